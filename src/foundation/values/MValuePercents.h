#pragma once

#include "foundation/values/MValueNumber.h"

/// A fraction, shown as a percentage: 0.5 is "50.0%". Typed numbers are percents, with or without the sign.
class MValuePercents : public MValueDouble {
public:
    MValuePercents() : MValuePercents(MString(), 0, 1, 0) {}
    using MValueDouble::MValueDouble;

protected:
    [[nodiscard]] MString FormatNumber(double number) const override;
    [[nodiscard]] bool ParseNumber(const MString& text, double& number) const override;
};
