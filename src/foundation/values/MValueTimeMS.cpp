#include "foundation/values/MValueTimeMS.h"

#include "foundation/text/MMeasureText.h"
#include "foundation/text/MTypedNumber.h"

MString MValueTimeMS::FormatNumber(double number) const {
    return MMillisecondsText(number);
}

bool MValueTimeMS::ParseNumber(const MString& text, double& number) const {
    static constexpr MTypedUnit Units[] = {{"", 1, 1000}, {"ms", 1, 1000}, {"s"}};
    return MReadTypedMeasure(text, Units, number);
}
