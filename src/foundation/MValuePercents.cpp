#include "foundation/MValuePercents.h"

#include "foundation/MMeasureText.h"
#include "foundation/MTypedNumber.h"

MString MValuePercents::FormatNumber(double number) const {
    return MPercentText(number);
}

bool MValuePercents::ParseNumber(const MString& text, double& number) const {
    static constexpr MTypedUnit Units[] = {{"", 1, 100}, {"%", 1, 100}};
    return MReadTypedMeasure(text, Units, number);
}
