#pragma once

#include "foundation/values/MValueNumber.h"

/// A place between left (-1) and right (1), shown as "center", "50% left" or "50% right". Typed numbers are
/// percents, negative ones to the left.
class MValuePan : public MValueDouble {
public:
    MValuePan() : MValuePan(MString(), -1, 1, 0) {}
    using MValueDouble::MValueDouble;

protected:
    [[nodiscard]] MString FormatNumber(double number) const override;
    [[nodiscard]] bool ParseNumber(const MString& text, double& number) const override;
};
