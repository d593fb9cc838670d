#include "ui/style/images/MArc.h"

#include <algorithm>
#include <cmath>

namespace {

/// Up to 45 degrees, where few terms of the series are enough.
double GetSine(double radians) {
    const double square = radians * radians;
    return radians * (1 - square / 6 * (1 - square / 20 * (1 - square / 42 * (1 - square / 72))));
}

double GetCosine(double radians) {
    const double square = radians * radians;
    return 1 - square / 2 * (1 - square / 12 * (1 - square / 30 * (1 - square / 56)));
}

MPointF GetPoint(MPointF center, double radius, double degrees) {
    const MPointF direction = MArc::GetDirection(degrees);
    return {center.x + radius * direction.x, center.y + radius * direction.y};
}

/// How many degrees a step of a circle may have so that no point is off by more than a fiftieth of a pixel.
int32_t CountSteps(double radius, double degrees) {
    const double steps = std::ceil(degrees / 90 * 4 * std::sqrt(std::max(radius, 1.0)));
    return static_cast<int32_t>(std::clamp(steps, 2.0, 4096.0));
}

}  // namespace

MPointF MArc::GetDirection(double degrees) {
    constexpr double Degree = 3.14159265358979323846 / 180;
    const double quarters = std::floor(degrees / 90 + 0.5);
    const double rest = (degrees - quarters * 90) * Degree;
    const double x = GetCosine(rest);
    const double y = GetSine(rest);
    switch (static_cast<int32_t>(quarters - 4 * std::floor(quarters / 4))) {
    case 0: return {x, y};
    case 1: return {-y, x};
    case 2: return {-x, -y};
    default: return {y, -x};
    }
}

MOutlines::Outline MArc::GetBand(MPointF center, double radius, double width, double from, double to) {
    MOutlines::Outline outline;
    const double inner = std::max(radius - width, 0.0);
    if (!(radius > 0) || !(to > from)) return outline;
    const int32_t steps = CountSteps(radius, to - from);
    for (int32_t i = 0; i <= steps; ++i)
        outline.push_back(GetPoint(center, radius, from + (to - from) * i / steps));
    for (int32_t i = steps; i >= 0; --i)
        outline.push_back(GetPoint(center, inner, from + (to - from) * i / steps));
    return outline;
}

MOutlines::Outline MArc::GetPen(MPointF from, MPointF to, double width) {
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double length = std::sqrt(x * x + y * y);
    const MPointF along = length > 0 ? MPointF{x / length, y / length} : MPointF{1, 0};
    const double radius = width / 2;
    MOutlines::Outline outline;
    const auto addEnd = [&](MPointF center, double sign) {
        constexpr int32_t Steps = 12;
        for (int32_t i = 0; i <= Steps; ++i) {
            const MPointF turn = GetDirection(180.0 * i / Steps - 90);
            outline.push_back({center.x + sign * radius * (turn.x * along.x - turn.y * along.y),
                               center.y + sign * radius * (turn.x * along.y + turn.y * along.x)});
        }
    };
    addEnd(to, 1);
    addEnd(from, -1);
    return outline;
}
