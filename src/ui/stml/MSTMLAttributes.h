#pragma once

#include "foundation/xml/MAttribute.h"
#include "ui/stml/MSTMLColor.h"
#include "ui/stml/MSTMLLength.h"

#include <cstdint>
#include <span>

/// The largest number of pixels that mark-up may give a padding, a border or a space.
inline constexpr int32_t MSTMLMaximumSpace = 1 << 12;

/// The integer at the beginning of a text, cut to a range; 0 before that is cut if there is none.
[[nodiscard]] int32_t MSTMLParseInteger(const MString& text, int32_t minimum, int32_t maximum);

/// The attributes of a tag. What is missing has the default, and what cannot be read is 0 or the first name:
/// mark-up never fails.
class MSTMLAttributes {
public:
    /// Those of `others`, which may be null, count where the tag has none of its own. Both outlive this.
    explicit MSTMLAttributes(const MAttributeList& own, const MAttributeList* others = nullptr)
        : own(own), others(others) {}

    /// The same attributes with others behind them.
    [[nodiscard]] MSTMLAttributes With(const MAttributeList& newOthers) const {
        return MSTMLAttributes(own, &newOthers);
    }

    /// Null if there is none of that name, which is compared in any case.
    [[nodiscard]] const MString* Find(const MString& name) const;
    [[nodiscard]] bool Has(const MString& name) const { return Find(name) != nullptr; }
    [[nodiscard]] MString GetText(const MString& name) const;
    [[nodiscard]] int32_t GetInteger(const MString& name, int32_t defaultValue, int32_t minimum,
                                     int32_t maximum) const;
    /// From 0 to `MSTMLMaximumSpace`.
    [[nodiscard]] int32_t GetSpace(const MString& name, int32_t defaultValue) const {
        return GetInteger(name, defaultValue, 0, MSTMLMaximumSpace);
    }
    [[nodiscard]] uint8_t GetByte(const MString& name, uint8_t defaultValue) const {
        return static_cast<uint8_t>(GetInteger(name, defaultValue, 0, 255));
    }
    [[nodiscard]] bool GetBool(const MString& name) const { return GetInteger(name, 0, 0, 1) != 0; }
    /// Finite.
    [[nodiscard]] double GetNumber(const MString& name, double defaultValue) const;
    /// The index of the name that the attribute has, in any case; 0 for any other and without it.
    [[nodiscard]] int32_t GetName(const MString& name, std::span<const char* const> names) const;
    [[nodiscard]] MSTMLLength GetLength(const MString& name, MSTMLLength defaultValue = {}) const;
    [[nodiscard]] MSTMLColor GetColor(const MString& name, MSTMLColor defaultValue = {}) const;

private:
    const MAttributeList& own;
    const MAttributeList* others;
};
