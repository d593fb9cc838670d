#pragma once

#include "foundation/values/MValueChoice.h"
#include "foundation/values/MValueHolder.h"

#include <cstdint>
#include <span>

/// The names of an enumeration whose values count from 0, in their order. An enumeration gets them by a
/// specialisation beside its declaration:
///
///     inline constexpr const char* ColorNames[] = {"red", "green"};
///     template <>
///     inline constexpr std::span<const char* const> MEnumNames<Color> = ColorNames;
template <class T>
inline constexpr std::span<const char* const> MEnumNames;

/// A value of an enumeration that has `MEnumNames`.
template <class T>
class MValueEnum final : public MValueChoice {
    static constexpr std::span<const char* const> Names = MEnumNames<T>;
    static_assert(!Names.empty(), "The enumeration has no names.");

public:
    MValueEnum() = default;
    explicit MValueEnum(const MString& id, T defaultValue = T{}) : MValueChoice(id), holder(defaultValue) {
        SetDefaultIndex(static_cast<int32_t>(defaultValue));
    }

    [[nodiscard]] T Get() const { return holder.Get(); }
    /// Returns true if the value changed.
    bool Set(T value) {
        const T before = Get();
        SetDiscreteIndex(static_cast<int32_t>(value));
        return Get() != before;
    }
    /// Works on an outside variable from now on, which must outlive the binding; null ends it.
    void Bind(T* variable) { holder.Bind(variable); }

    /// The value of a name, compared ignoring case; the first one for any other text.
    [[nodiscard]] static T FromName(const MString& name) {
        MValueEnum value;
        value.SetFromDisplayText(name);
        return value.Get();
    }
    [[nodiscard]] static MString ToName(T value) { return MValueEnum(MString(), value).GetDisplayText(); }

protected:
    [[nodiscard]] int32_t GetNameCount() const override { return static_cast<int32_t>(Names.size()); }
    [[nodiscard]] MString GetName(int32_t index) const override { return Names[static_cast<size_t>(index)]; }
    [[nodiscard]] int32_t GetStoredIndex() const override { return static_cast<int32_t>(Get()); }
    void StoreIndex(int32_t index) override { holder.Set(static_cast<T>(index)); }

private:
    MValueHolder<T> holder;
};
