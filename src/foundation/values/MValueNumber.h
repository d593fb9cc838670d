#pragma once

#include "foundation/values/MValue.h"
#include "foundation/values/MValueHolder.h"

#include <cstdint>

/// A number with limits. `Type` is what is stored, `WideType` what is computed with, `Discrete` 1 for whole
/// numbers, `Log` 1 for a scale whose positions go by the logarithm of the number; such a scale is linear
/// after all if the minimum is not above 0. If the minimum is above the maximum, the minimum is the only
/// value.
///
/// A step of 0 means that the range decides: 1 for whole numbers, else a hundredth of the scale, and a tenth
/// of the coarse step for the fine one. A number that is not one (NaN) is never stored, and where an outside
/// variable holds it, validating puts the default there.
///
/// A derived class shows another unit by overriding `FormatNumber` and `ParseNumber`.
template <class Type, class WideType, int32_t Discrete, int32_t Log>
class MValueNumber : public MValue {
public:
    /// Without a range, whole numbers have that of their type, others go from 0 to 1. The default is 0.
    MValueNumber();
    MValueNumber(const MString& id, WideType minimum, WideType maximum, WideType defaultValue);

    [[nodiscard]] Type Get() const { return holder.Get(); }
    /// Stores and validates. Returns true if the value changed.
    bool Set(WideType number);
    /// Works on an outside variable from now on, which must outlive the binding; null ends it.
    void Bind(Type* variable) { holder.Bind(variable); }

    [[nodiscard]] WideType GetMin() const { return min; }
    [[nodiscard]] WideType GetMax() const { return max; }
    void SetRange(WideType minimum, WideType maximum);
    /// The width of a step where the scale is linear.
    [[nodiscard]] WideType GetStep(bool isFine) const;
    void SetSteps(WideType fine, WideType coarse);
    /// How the number is shown: a format string for one value, "{0}" at first. Text around the placeholder
    /// may be left out when a number is typed.
    [[nodiscard]] const MString& GetFormat() const { return format; }
    /// Raises "Formatting string ends in an argument specification." (0).
    void SetFormat(const MString& newFormat);

    /// Six decimals, or a whole number.
    [[nodiscard]] MString ToStorageText() const override;
    /// Text that is no number reads as 0.
    void FromStorageText(const MString& text) override;
    void ResetToDefault() override;
    /// Takes "id", "min", "max", "default", "value", "format" and "maxinc", the coarse step, as far as they
    /// are there. Without "value", a "default" becomes the value. A format that `SetFormat` refuses is passed
    /// over.
    void LoadDefinition(MXMLItem& item) override;
    /// Those of a number; all where the texts of the value have more than that, as a unit or a plus sign.
    [[nodiscard]] const MCharFilter::Interface& GetCharFilter() const override;
    [[nodiscard]] MString GetTextAt(double position) override;
    [[nodiscard]] MString GetDisplayText() const override;
    bool SetFromDisplayText(const MString& text) override;
    void Validate() override;
    /// On a logarithmic scale without a coarse step of its own, steps are parts of the scale.
    bool Step(int32_t count, bool isFine) override;
    bool StepBy(int32_t count) override;
    [[nodiscard]] double GetNormalized() const override;
    /// Whole numbers are rounded to the nearest.
    void SetNormalized(double position) override;
    [[nodiscard]] int32_t GetDiscreteCount() const override;
    void SetDiscreteIndex(int32_t index) override;
    [[nodiscard]] int32_t GetDiscreteIndex() const override;

protected:
    /// The text with unit of any number.
    [[nodiscard]] virtual MString FormatNumber(WideType number) const;
    /// False, with `number` unchanged, if the text is no number with or without the unit.
    [[nodiscard]] virtual bool ParseNumber(const MString& text, WideType& number) const;

private:
    [[nodiscard]] WideType Limited(WideType number) const;
    /// Zero and what lies below it have no place on a logarithmic scale.
    [[nodiscard]] bool HasLogScale() const;

    MValueHolder<Type> holder;
    WideType min;
    WideType max;
    WideType fineStep = 0;
    WideType coarseStep = 0;
    WideType defaultValue = 0;
    MString format = "{0}";
};

using MValueInt16 = MValueNumber<int16_t, int32_t, 1, 0>;
using MValueInt32 = MValueNumber<int32_t, int32_t, 1, 0>;
using MValueInt64 = MValueNumber<int64_t, int64_t, 1, 0>;
using MValueFloat = MValueNumber<float, double, 0, 0>;
using MValueDouble = MValueNumber<double, double, 0, 0>;
using MValueDoubleLog = MValueNumber<double, double, 0, 1>;

extern template class MValueNumber<int16_t, int32_t, 1, 0>;
extern template class MValueNumber<int32_t, int32_t, 1, 0>;
extern template class MValueNumber<int64_t, int64_t, 1, 0>;
extern template class MValueNumber<float, double, 0, 0>;
extern template class MValueNumber<double, double, 0, 0>;
extern template class MValueNumber<double, double, 0, 1>;
