#include "foundation/values/MValuePercents.h"

#include "foundation/text/MMeasureText.h"
#include "foundation/text/MTypedNumber.h"

MString MValuePercents::FormatNumber(double number) const {
    return MPercentText(number);
}

bool MValuePercents::ParseNumber(const MString& text, double& number) const {
    static constexpr MTypedUnit Units[] = {{"", 1, 100}, {"%", 1, 100}};
    return MReadTypedMeasure(text, Units, number);
}
