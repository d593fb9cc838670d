#include "foundation/values/MValuePan.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MTypedNumber.h"

namespace {

constexpr const char* Center = "center";

}  // namespace

MString MValuePan::FormatNumber(double number) const {
    if (number == 0) return Center;
    const double percents = 100 * number;
    return number < 0 ? MFormat("{0;.0}% left", -percents) : MFormat("{0;.0}% right", percents);
}

bool MValuePan::ParseNumber(const MString& text, double& number) const {
    if (text.Trimmed() == Center) {
        number = 0;
        return true;
    }
    double percents = 0;
    MString side;
    if (!MReadTypedNumber(text, percents, side)) return false;
    if (side.StartsWith("%")) side = side.Substring(1).Trimmed();
    if (!side.IsEmpty() && (percents < 0 || (side != "left" && side != "right"))) return false;
    number = (side == "left" ? -percents : percents) / 100;
    return true;
}
