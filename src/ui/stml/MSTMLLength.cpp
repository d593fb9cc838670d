#include "ui/stml/MSTMLLength.h"

#include "ui/control/kinds/MStyleMetric.h"
#include "ui/drawing/MDrawer.h"
#include "ui/image/MNames.h"
#include "ui/stml/MSTMLAttributes.h"
#include "ui/stml/MSTMLItem.h"

#include <algorithm>

MSTMLLength MSTMLLength::Parse(const MString& text) {
    if (text.IsEmpty()) return {};
    if (text[0].IsDigit()) {
        const bool isPercent = text.FindChar('%') != MString::NotFound;
        return {isPercent ? Kind::Percent : Kind::Pixels, MSTMLParseInteger(text, 0, Maximum)};
    }
    const int32_t metric = MFindName(MStyleMetricNames, text);
    return metric < 0 ? MSTMLLength() : MSTMLLength{Kind::Metric, metric};
}

namespace {

int32_t Resolve(const MSTMLLength& length, MDrawer& drawer, int32_t (MDrawer::*scale)(int32_t), int32_t total,
                int32_t minimum) {
    switch (length.kind) {
    case MSTMLLength::Kind::Pixels: return std::max((drawer.*scale)(length.value), minimum);
    case MSTMLLength::Kind::Metric: return std::max(drawer.GetStdSize(length.value), minimum);
    case MSTMLLength::Kind::Percent: break;
    }
    if (total >= MSTMLUnlimited) return minimum;
    const int64_t share = int64_t{length.value} * total / 100;
    return std::max(minimum, static_cast<int32_t>(std::min<int64_t>(share, MSTMLUnlimited)));
}

}  // namespace

int32_t MSTMLLength::ResolveX(MDrawer& drawer, int32_t total, int32_t minimum) const {
    return Resolve(*this, drawer, &MDrawer::ScaleX, total, minimum);
}

int32_t MSTMLLength::ResolveY(MDrawer& drawer, int32_t total, int32_t minimum) const {
    return Resolve(*this, drawer, &MDrawer::ScaleY, total, minimum);
}
