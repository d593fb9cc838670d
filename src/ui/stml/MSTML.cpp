#include "ui/stml/MSTML.h"

#include "foundation/base/MGuard.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/stml/MSTMLParser.h"
#include "ui/text/MFont.h"

#include <algorithm>
#include <iterator>

void MSTML::Parse(const MString& text) {
    Reset();
    MSTMLParser parser(*this, defaultFlags);
    MGuard("MSTML::Parse", [&] { parser.ParseText(text); });
}

void MSTML::Reset() {
    Clear();
    ++mark;
}

void MSTML::SetDefaults(const MSTMLDefaults& newDefaults) {
    defaults = newDefaults;
    ++mark;
}

int32_t MSTML::AddImage(const MBitmap& bitmap) {
    images.Add(bitmap);
    ++mark;
    return images.GetCount() - 1;
}

MSTMLContext MSTML::MakeContext(MDrawer& drawer) {
    constexpr int32_t Long = 1 << 16;
    constexpr auto Fonts = static_cast<int32_t>(std::size(MStdFontNames));
    constexpr auto Metrics = static_cast<int32_t>(std::size(MStyleMetricNames));
    static_assert(Fonts + Metrics + 2 <= std::tuple_size_v<Signature>);
    Signature now = {};
    auto next = now.begin();
    MColor unused;
    for (int32_t i = 0; i < Fonts; ++i) {
        const MFont* const font = drawer.GetFont(i, 0, false, defaults.drawState, unused);
        *next++ = font ? font->GetRevision() : 0;
    }
    for (int32_t i = 0; i < Metrics; ++i) *next++ = static_cast<uint32_t>(drawer.GetStdSize(i));
    *next++ = static_cast<uint32_t>(drawer.ScaleX(Long));
    *next = static_cast<uint32_t>(drawer.ScaleY(Long));
    if (mark == 0 || now != signature) ++mark;
    signature = now;
    return {drawer, defaults, images, mark};
}

int32_t MSTML::Measure(MDrawer& drawer, int32_t width) {
    int32_t unused = 0;
    return GetHeightForWidth(drawer, width, unused);
}

int32_t MSTML::GetHeightForWidth(MDrawer& drawer, int32_t width, int32_t& outWidth) {
    MSTMLContext context = MakeContext(drawer);
    return ComputeSize(context, width, outWidth);
}

int32_t MSTML::GetMinimalWidth(MDrawer& drawer) {
    MSTMLContext context = MakeContext(drawer);
    return GetMinimalWidth(context);
}

int32_t MSTML::GetMaximalWidth(MDrawer& drawer) {
    MSTMLContext context = MakeContext(drawer);
    return GetMaximalWidth(context);
}

int32_t MSTML::GetOptimalWidth(MDrawer& drawer, int32_t width) {
    const int32_t height = Measure(drawer, width);
    int32_t low = GetMinimalWidth(drawer);
    int32_t high = width;
    while (high - low > 1) {
        const int32_t middle = low + (high - low) / 2;
        if (Measure(drawer, middle) > height)
            low = middle;
        else
            high = middle;
    }
    return high;
}

void MSTML::Paint(MDrawer& drawer, const MRect& rect, bool isInverted) {
    MSTMLContext context = MakeContext(drawer);
    PaintInside(context, rect, isInverted);
}

void MSTML::Observe(MDrawer& drawer, const MRect& rect, MSTMLTextObserver& observer) {
    MSTMLContext context = MakeContext(drawer);
    context.observer = &observer;
    PaintInside(context, rect, false);
}

void MSTML::PaintInside(MSTMLContext& context, const MRect& rect, bool isInverted) {
    int32_t unused = 0;
    // Heights in percent share what there is; where that is too little, nothing is pressed together.
    const int32_t needed = ComputeSize(context, rect.GetWidth(), unused);
    const int32_t room =
        rect.GetHeight() - ComputeHeight(context, rect.GetWidth(), std::max(needed, rect.GetHeight()));
    MRect place = rect;
    if (defaultFlags & MSTMLParagraph::Bottom)
        place.top += std::max(0, room);
    else if (defaultFlags & MSTMLParagraph::Middle)
        place.top += std::max(0, room / 2);
    Paint(context, place, isInverted);
}
