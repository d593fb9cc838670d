#include "ui/widgets/values/MKnob.h"

#include "ui/control/kinds/MStyleMetric.h"
#include "ui/geometry/MLength.h"
#include "ui/widgets/values/MValueLooks.h"

#include <algorithm>

MKnob::MKnob(MControl* parent, const MString& name) : MControlValueVerticalDragging(parent, name) {
    SetControlType(MControlType::Knob);
}

MPoint MKnob::GetDialSize() {
    MStyle* const style = GetStyle();
    return style ? style->GetPartSize(*this, MStylePart::Knob) : MPoint();
}

MPoint MKnob::GetDialSpace() {
    MStyle* const style = GetStyle();
    if (!style) return {};
    return {style->GetMetric(static_cast<int32_t>(MStyleMetric::XSpaceInMContent)),
            style->GetMetric(static_cast<int32_t>(MStyleMetric::YSpaceInMContent))};
}

void MKnob::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MControlValueVerticalDragging::GetMinimalContentSize(x, y);
    const MPoint dial = GetDialSize();
    x = std::max(x, dial.x);
    y = MClampLength(int64_t{dial.y} + GetDialSpace().y + y);
}

/// As large as there is room above the text.
MRect MKnob::GetDialRectangle() {
    const int32_t text = GetNeededSize(GetContent()).y + GetDialSpace().y;
    const int32_t side = std::min(clientRect.GetWidth(), clientRect.GetHeight() - text);
    return MAlignInside(clientRect, {side, side}, MAlignTop);
}

MRect MKnob::GetContentRectangle() {
    MRect rect = MControlValueVerticalDragging::GetContentRectangle();
    rect.top = GetDialRectangle().bottom + 1 + GetDialSpace().y;
    return rect;
}

void MKnob::PaintContent(MDrawer& drawer) {
    const MRect dial = GetDialRectangle();
    MStyle* const style = GetStyle();
    if (style && !dial.IsEmpty())
        style->PaintValue(*this, drawer, dial, MGetValueLook(GetValue(), GetDrawState()));
    MControlValueVerticalDragging::PaintContent(drawer);
}

MRotator::MRotator(MControl* parent, const MString& name) : MKnob(parent, name) {
    SetControlType(MControlType::Rotator);
}

void MRotator::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MControlValueVerticalDragging::GetMinimalContentSize(x, y);
    const MPoint dial = GetDialSize();
    x = MClampLength(int64_t{dial.x} + GetDialSpace().x + x);
    y = std::max(y, dial.y);
}

MRect MRotator::GetDialRectangle() {
    const MPoint dial = GetDialSize();
    const int32_t side = std::min({clientRect.GetHeight(), clientRect.GetWidth(), std::max(dial.x, dial.y)});
    return MAlignInside(clientRect, {side, side}, MAlignLeft);
}

MRect MRotator::GetContentRectangle() {
    MRect rect = MControlValueVerticalDragging::GetContentRectangle();
    rect.left = GetDialRectangle().right + 1 + GetDialSpace().x;
    return rect;
}
