#pragma once

class MControl;

/// Points to a control and becomes null when that ends, so that whoever calls a handler finds out whether it
/// has survived. Belongs to the thread of the user interface.
class MControlRef final {
public:
    MControlRef() = default;
    explicit MControlRef(MControl* control) { Set(control); }
    MControlRef(const MControlRef&) = delete;
    MControlRef& operator=(const MControlRef&) = delete;
    ~MControlRef() { Set(nullptr); }

    void Set(MControl* newControl);
    [[nodiscard]] MControl* Get() const { return control; }
    explicit operator bool() const { return control != nullptr; }
    MControl* operator->() const { return control; }

private:
    friend class MControl;

    MControl* control = nullptr;
    MControlRef* previous = nullptr;
    MControlRef* next = nullptr;
};
