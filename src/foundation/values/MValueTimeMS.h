#pragma once

#include "foundation/values/MValueNumber.h"

/// A time in seconds, shown in milliseconds: 0.02 is "20 ms". Typed numbers are milliseconds; "s" after one
/// makes it seconds.
class MValueTimeMS : public MValueDouble {
public:
    MValueTimeMS() : MValueTimeMS(MString(), 0, 1, 0) {}
    using MValueDouble::MValueDouble;

protected:
    [[nodiscard]] MString FormatNumber(double number) const override;
    [[nodiscard]] bool ParseNumber(const MString& text, double& number) const override;
};
