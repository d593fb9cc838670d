#include "foundation/values/MValueVolume.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MTypedNumber.h"

#include <cmath>
#include <limits>

namespace {

constexpr const char* Silence = "silence";
constexpr double SmallestAmplitude = std::numeric_limits<double>::min();

}  // namespace

MString MValueVolume::FormatNumber(double number) const {
    if (number < SmallestAmplitude) return Silence;
    const double decibels = 20 * std::log10(number);
    return MFormat(std::fabs(decibels) < 10 ? "{0;.2} dB" : "{0;.1} dB", decibels);
}

bool MValueVolume::ParseNumber(const MString& text, double& number) const {
    static constexpr MTypedUnit Units[] = {{""}, {"dB"}};
    if (text.Trimmed() == Silence) {
        number = 0;
        return true;
    }
    double decibels = 0;
    if (!MReadTypedMeasure(text, Units, decibels)) return false;
    number = std::pow(10, decibels / 20);
    return true;
}
