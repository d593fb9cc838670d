#include "foundation/values/MValueFrequency.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MTypedNumber.h"

template <int32_t Log>
MString MValueFrequencyOnScale<Log>::FormatNumber(double number) const {
    if (number < 0.00001) return "0 Hz";
    if (number < 1) return MFormat("{0;.4} Hz", number);
    if (number < 10) return MFormat("{0;.2} Hz", number);
    if (number < 100) return MFormat("{0;.1} Hz", number);
    if (number < 10'000) return MFormat("{0;.0} Hz", number);
    return MFormat("{0;.1} kHz", number * 0.001);
}

template <int32_t Log>
bool MValueFrequencyOnScale<Log>::ParseNumber(const MString& text, double& number) const {
    static constexpr MTypedUnit Units[] = {{""}, {"Hz"}, {"kHz", 1000}, {"k", 1000}};
    return MReadTypedMeasure(text, Units, number);
}

template class MValueFrequencyOnScale<0>;
template class MValueFrequencyOnScale<1>;
