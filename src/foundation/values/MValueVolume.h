#pragma once

#include "foundation/values/MValueNumber.h"

/// An amplitude, shown in decibels: 1 is "0.00 dB", 0 is "silence". Typed numbers are decibels.
class MValueVolume : public MValueDouble {
public:
    MValueVolume() : MValueVolume(MString(), 0, 1, 1) {}
    using MValueDouble::MValueDouble;

protected:
    [[nodiscard]] MString FormatNumber(double number) const override;
    [[nodiscard]] bool ParseNumber(const MString& text, double& number) const override;
};
