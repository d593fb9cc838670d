#include "foundation/values/MValueNumber.h"

#include "foundation/base/MGuard.h"
#include "foundation/text/MNumberText.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MTypedNumber.h"
#include "foundation/xml/MXMLItem.h"

#include <algorithm>
#include <cmath>
#include <concepts>
#include <limits>
#include <type_traits>

namespace {

template <std::integral To>
To Narrowed(int64_t number) {
    using Limits = std::numeric_limits<To>;
    return static_cast<To>(std::clamp<int64_t>(number, Limits::min(), Limits::max()));
}

template <std::floating_point To>
To Narrowed(double number) {
    using Limits = std::numeric_limits<To>;
    if (std::isinf(number)) return static_cast<To>(number);
    return static_cast<To>(std::clamp<double>(number, Limits::lowest(), Limits::max()));
}

template <class Wide>
bool IsNumber(Wide number) {
    return std::integral<Wide> || !std::isnan(static_cast<double>(number));
}

/// The nearest number of the type, which for whole numbers may be its limit.
template <class Wide>
Wide FromDouble(double number) {
    if constexpr (std::integral<Wide>) {
        using Limits = std::numeric_limits<Wide>;
        const double rounded = std::round(number);
        // The upper limit of 64 bits is no double; the one it rounds up to is one too many.
        if (rounded >= static_cast<double>(Limits::max())) return Limits::max();
        if (rounded <= static_cast<double>(Limits::min())) return Limits::min();
        return static_cast<Wide>(rounded);
    } else {
        return number;
    }
}

/// number + count * step, whole numbers staying within their type.
template <class Wide>
Wide Advanced(Wide number, int32_t count, Wide step) {
    if constexpr (std::integral<Wide>) {
        using Limits = std::numeric_limits<Wide>;
        const Wide limit = (count < 0) == (step < 0) ? Limits::max() : Limits::min();
        Wide distance = 0;
        Wide sum = 0;
        if (__builtin_mul_overflow(count, step, &distance)) return limit;
        return __builtin_add_overflow(number, distance, &sum) ? limit : sum;
    } else {
        return number + count * step;
    }
}

/// The distance of two whole numbers, `to` not below `from`, as far as an index goes.
template <std::integral Wide>
int32_t Distance(Wide from, Wide to) {
    const uint64_t distance = static_cast<uint64_t>(to) - static_cast<uint64_t>(from);
    return static_cast<int32_t>(std::min<uint64_t>(distance, std::numeric_limits<int32_t>::max()));
}

template <class Wide>
Wide ReadStored(const MString& text) {
    if constexpr (std::integral<Wide>) {
        return Narrowed<Wide>(MParseInt64(text));
    } else {
        const double number = MParseDouble(text);
        return IsNumber(number) ? number : 0;
    }
}

template <class Wide>
bool ReadTyped(const MString& text, Wide& number) {
    std::conditional_t<std::integral<Wide>, int64_t, double> typed = 0;
    MString rest;
    if constexpr (std::integral<Wide>) {
        if (!MReadTypedInteger(text, typed, rest) || !rest.IsEmpty()) return false;
    } else {
        if (!MReadTypedNumber(text, typed, rest) || !rest.IsEmpty()) return false;
    }
    number = Narrowed<Wide>(typed);
    return true;
}

template <class Wide>
void ReadAttribute(MXMLItem& item, const char* name, Wide& number) {
    if (item.HasAttribute(name)) number = ReadStored<Wide>(item.GetCachedAttribute());
}

}  // namespace

template <class Type, class WideType, int32_t Discrete, int32_t Log>
MValueNumber<Type, WideType, Discrete, Log>::MValueNumber() : min(0), max(1) {
    if constexpr (Discrete) {
        min = std::numeric_limits<Type>::min();
        max = std::numeric_limits<Type>::max();
    }
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
MValueNumber<Type, WideType, Discrete, Log>::MValueNumber(const MString& id, WideType minimum,
                                                          WideType maximum, WideType defaultValue)
    : MValue(id), min(minimum), max(maximum), defaultValue(defaultValue) {
    holder.Set(Narrowed<Type>(Limited(defaultValue)));
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
bool MValueNumber<Type, WideType, Discrete, Log>::Set(WideType number) {
    if (!IsNumber(number)) return false;
    const Type before = holder.Get();
    holder.Set(Narrowed<Type>(number));
    Validate();
    return holder.Get() != before;
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
void MValueNumber<Type, WideType, Discrete, Log>::SetRange(WideType minimum, WideType maximum) {
    min = minimum;
    max = maximum;
    OnRangeChange();
    Validate();
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
WideType MValueNumber<Type, WideType, Discrete, Log>::GetStep(bool isFine) const {
    if (isFine && fineStep != 0) return fineStep;
    if constexpr (Discrete) {
        return isFine || coarseStep == 0 ? 1 : coarseStep;
    } else {
        const WideType coarse = coarseStep != 0 ? coarseStep : (max - min) / 100;
        return isFine ? coarse / 10 : coarse;
    }
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
void MValueNumber<Type, WideType, Discrete, Log>::SetSteps(WideType fine, WideType coarse) {
    fineStep = fine;
    coarseStep = coarse;
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
void MValueNumber<Type, WideType, Discrete, Log>::SetFormat(const MString& newFormat) {
    (void)MStringFormatter(newFormat);
    format = newFormat;
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
MString MValueNumber<Type, WideType, Discrete, Log>::ToStorageText() const {
    if constexpr (Discrete)
        return MNumberToText(holder.Get());
    else
        return MDoubleToText(holder.Get());
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
void MValueNumber<Type, WideType, Discrete, Log>::FromStorageText(const MString& text) {
    Set(ReadStored<WideType>(text));
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
void MValueNumber<Type, WideType, Discrete, Log>::ResetToDefault() {
    Set(defaultValue);
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
void MValueNumber<Type, WideType, Discrete, Log>::LoadDefinition(MXMLItem& item) {
    MValue::LoadDefinition(item);
    WideType minimum = min;
    WideType maximum = max;
    ReadAttribute(item, "min", minimum);
    ReadAttribute(item, "max", maximum);
    ReadAttribute(item, "default", defaultValue);
    ReadAttribute(item, "maxinc", coarseStep);
    if (item.HasAttribute("format"))
        MGuard("MValueNumber::LoadDefinition", [&] { SetFormat(item.GetCachedAttribute()); });
    SetRange(minimum, maximum);
    if (item.HasAttribute("value"))
        FromStorageText(item.GetCachedAttribute());
    else if (item.HasAttribute("default"))
        ResetToDefault();
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
const MCharFilter::Interface& MValueNumber<Type, WideType, Discrete, Log>::GetCharFilter() const {
    static const std::conditional_t<Discrete, MCharFilter::IntegerFilter, MCharFilter::FloatFilter> filter;
    const MString shown = FormatNumber(1);
    MString typeable = shown;
    typeable.KeepAccepted(filter);
    return typeable.IsExactly(shown) ? filter : MValue::GetCharFilter();
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
MString MValueNumber<Type, WideType, Discrete, Log>::GetTextAt(double position) {
    const Type before = holder.Get();
    SetNormalized(position);
    const MString text = GetText();
    holder.Set(before);
    return text;
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
MString MValueNumber<Type, WideType, Discrete, Log>::GetDisplayText() const {
    return FormatNumber(holder.Get());
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
bool MValueNumber<Type, WideType, Discrete, Log>::SetFromDisplayText(const MString& text) {
    WideType number = 0;
    return ParseNumber(text, number) && Set(number);
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
void MValueNumber<Type, WideType, Discrete, Log>::Validate() {
    const WideType number = holder.Get();
    holder.Set(Narrowed<Type>(Limited(IsNumber(number) ? number : defaultValue)));
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
bool MValueNumber<Type, WideType, Discrete, Log>::Step(int32_t count, bool isFine) {
    if (!HasLogScale() || coarseStep != 0)
        return Set(Advanced<WideType>(holder.Get(), count, GetStep(isFine)));
    const Type before = holder.Get();
    SetNormalized(GetNormalized() + count * (isFine ? 0.001 : 0.01));
    return holder.Get() != before;
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
bool MValueNumber<Type, WideType, Discrete, Log>::StepBy(int32_t count) {
    return Set(Advanced<WideType>(holder.Get(), count, GetStep(false)));
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
double MValueNumber<Type, WideType, Discrete, Log>::GetNormalized() const {
    const auto number = static_cast<double>(holder.Get());
    const auto first = static_cast<double>(min);
    const auto last = static_cast<double>(max);
    if (min == max) return 0;
    const double position =
        HasLogScale() ? std::log(number / first) / std::log(last / first) : (number - first) / (last - first);
    return position > 0 ? std::min(position, 1.0) : 0;
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
void MValueNumber<Type, WideType, Discrete, Log>::SetNormalized(double position) {
    const auto first = static_cast<double>(min);
    const auto last = static_cast<double>(max);
    if (std::isnan(position)) return;
    // The ends are exact: what is computed may miss them by a rounding.
    if (position <= 0)
        Set(min);
    else if (position >= 1)
        Set(max);
    else if (HasLogScale())
        Set(FromDouble<WideType>(first * std::pow(last / first, position)));
    else
        Set(FromDouble<WideType>((last - first) * position + first));
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
int32_t MValueNumber<Type, WideType, Discrete, Log>::GetDiscreteCount() const {
    if constexpr (Discrete) {
        if (max < min) return 1;
        return Advanced<int32_t>(Distance(min, max), 1, 1);
    } else {
        return 0;
    }
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
void MValueNumber<Type, WideType, Discrete, Log>::SetDiscreteIndex(int32_t index) {
    if constexpr (Discrete) Set(Advanced<WideType>(min, index, 1));
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
int32_t MValueNumber<Type, WideType, Discrete, Log>::GetDiscreteIndex() const {
    if constexpr (Discrete)
        return Distance<WideType>(min, std::max<WideType>(min, holder.Get()));
    else
        return 0;
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
MString MValueNumber<Type, WideType, Discrete, Log>::FormatNumber(WideType number) const {
    return MFormat(format, number);
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
bool MValueNumber<Type, WideType, Discrete, Log>::ParseNumber(const MString& text, WideType& number) const {
    return ReadTyped(text, number) || ReadTyped(MWithoutFormat(text, format), number);
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
WideType MValueNumber<Type, WideType, Discrete, Log>::Limited(WideType number) const {
    if (number > max) number = max;
    if (min > number) number = min;
    return number;
}

template <class Type, class WideType, int32_t Discrete, int32_t Log>
bool MValueNumber<Type, WideType, Discrete, Log>::HasLogScale() const {
    return Log && min > 0 && max > min;
}

template class MValueNumber<int16_t, int32_t, 1, 0>;
template class MValueNumber<int32_t, int32_t, 1, 0>;
template class MValueNumber<int64_t, int64_t, 1, 0>;
template class MValueNumber<float, double, 0, 0>;
template class MValueNumber<double, double, 0, 0>;
template class MValueNumber<double, double, 0, 1>;
