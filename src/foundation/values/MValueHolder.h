#pragma once

/// Where a value keeps its data: inside, or in a variable of another object that it is bound to. A copy of
/// a bound holder is bound to the same variable.
template <class Type>
class MValueHolder {
public:
    MValueHolder() = default;
    explicit MValueHolder(Type inner) : inner(inner) {}

    [[nodiscard]] Type Get() const { return bound ? *bound : inner; }
    void Set(Type value) { (bound ? *bound : inner) = value; }
    /// The variable must outlive the binding. Null unbinds: the inner value takes over what was bound.
    void Bind(Type* variable) {
        if (!variable) inner = Get();
        bound = variable;
    }

private:
    Type inner{};
    Type* bound = nullptr;
};
