#include "ui/dialogs/MTimeLine.h"

#include "ui/control/kinds/MStdColor.h"
#include "ui/geometry/MAlignment.h"
#include "ui/geometry/MLength.h"

namespace {

// At 100 percent.
constexpr MPoint StepSize{20, 2};
constexpr int32_t Gap = 8;
constexpr int32_t Height = 8;

}  // namespace

MTimeLine::MTimeLine(MControl* parent, const MString& name) : MControl(parent, name) {
    SetControlType(MControlType::Static);
    Set(MControlFlag::TabStop, false);
}

void MTimeLine::SetSteps(int32_t newCount, int32_t newCurrent) {
    if (count == newCount && current == newCurrent) return;
    if (count != newCount) TouchSizes();
    count = newCount;
    current = newCurrent;
    Invalidate();
}

void MTimeLine::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStyle* const style = GetStyle();
    if (!style) return;
    x = MClampLength(int64_t{count} * (style->ScaleX(StepSize.x) + style->ScaleX(Gap)));
    y = style->ScaleY(Height);
}

void MTimeLine::PaintContent(MDrawer& drawer) {
    constexpr uint8_t PendingAlpha = 40;
    MStyle* const style = GetStyle();
    if (!style) return;
    const MPoint step{style->ScaleX(StepSize.x), style->ScaleY(StepSize.y)};
    const MColor pending = style->GetColor(static_cast<int32_t>(MStdColor::Text), style->IsInverted(*this));
    MRect rect = MAlignInside(clientRect, step, MAlignLeft);
    for (int32_t i = 0; i < count; ++i) {
        if (i <= current)
            style->PaintSelection(*this, drawer, rect, MDrawEnabled | MDrawFocused);
        else
            drawer.FillRectangle(rect, pending.WithAlpha(PendingAlpha), MDrawMode::Alphablend);
        rect = rect.Shifted({step.x + style->ScaleX(Gap), 0});
    }
}
