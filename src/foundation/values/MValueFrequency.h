#pragma once

#include "foundation/values/MValueNumber.h"

/// A frequency in Hz, shown as "0.2500 Hz", "5.00 Hz", "50.0 Hz", "440 Hz" or "12.5 kHz". Typed numbers are
/// Hz unless "kHz" or "k" follows. Without a range it goes from 20 to 20,000 Hz.
template <int32_t Log>
class MValueFrequencyOnScale : public MValueNumber<double, double, 0, Log> {
public:
    MValueFrequencyOnScale() : MValueFrequencyOnScale(MString(), 20, 20'000, 1000) {}
    using MValueNumber<double, double, 0, Log>::MValueNumber;

protected:
    [[nodiscard]] MString FormatNumber(double number) const override;
    [[nodiscard]] bool ParseNumber(const MString& text, double& number) const override;
};

extern template class MValueFrequencyOnScale<0>;
extern template class MValueFrequencyOnScale<1>;

class MValueFrequency : public MValueFrequencyOnScale<1> {
public:
    using MValueFrequencyOnScale<1>::MValueFrequencyOnScale;
};

class MValueFrequencyLog : public MValueFrequencyOnScale<1> {
public:
    using MValueFrequencyOnScale<1>::MValueFrequencyOnScale;
};

class MValueFrequencyLinear : public MValueFrequencyOnScale<0> {
public:
    using MValueFrequencyOnScale<0>::MValueFrequencyOnScale;
};
