#include "ui/widgets/splitters/MSplitterBar.h"

#include "ui/control/kinds/MStyleMetric.h"
#include "ui/widgets/splitters/MSplitter.h"

#include <utility>

namespace {

/// How far an arrow key moves the bar, at 100 percent.
constexpr int32_t KeyStep = 8;

}  // namespace

MSplitterBar::MSplitterBar(MSplitter& splitter) : MControl(&splitter, "Bar"), splitter(splitter) {
    SetControlType(MControlType::Empty);
    Set(MControlFlag::HotTrack);
    Set(MControlFlag::Pressable);
    Set(MControlFlag::UseParentHelp);
}

void MSplitterBar::GetMinimalContentSize(int32_t& x, int32_t& y) {
    const bool isVertical = splitter.IsVertical();
    const MStyleMetric metric = isVertical ? MStyleMetric::VSplitterSize : MStyleMetric::HSplitterSize;
    (isVertical ? x : y) = GetStyle()->GetMetric(static_cast<int32_t>(metric));
}

void MSplitterBar::PaintContent(MDrawer& drawer) {
    GetStyle()->PaintSplitter(*this, drawer, windowRect, splitter.IsVertical(), GetDrawState());
}

MStdCursor MSplitterBar::GetCursorAt(MPoint) {
    return splitter.IsVertical() ? MStdCursor::ArrowLR : MStdCursor::ArrowUD;
}

bool MSplitterBar::ProcessKey(int32_t key) {
    const bool isVertical = splitter.IsVertical();
    const int32_t step = isVertical ? GetStyle()->ScaleX(KeyStep) : GetStyle()->ScaleY(KeyStep);
    const int32_t length = splitter.GetFirstLength();
    if (key == (isVertical ? MKeyLeft : MKeyUp))
        splitter.SetFirstLength(length - step);
    else if (key == (isVertical ? MKeyRight : MKeyDown))
        splitter.SetFirstLength(length + step);
    else if (key == MKeyHome)
        splitter.SetFirstLength(0);
    else if (key == MKeyEnd)
        splitter.SetFirstLength(Unlimited);
    else if (key == MKeyEscape && std::exchange(isDragged, false))
        splitter.SetFirstLength(lengthBefore);
    else
        return false;
    return true;
}

void MSplitterBar::OnCaptureLost() {
    isDragged = false;
    MControl::OnCaptureLost();
}

bool MSplitterBar::ProcessEvent(const MSystemEvent& event) {
    // In coordinates of the splitter, since the bar moves.
    const MPoint point = splitter.GetOwnPoint(event.point);
    const int32_t place = splitter.IsVertical() ? point.x : point.y;
    switch (event.type) {
    case MEventType::LeftDown:
        isDragged = true;
        lengthBefore = splitter.GetFirstLength();
        grip = place - lengthBefore;
        return true;
    case MEventType::MouseMove:
        if (isDragged) splitter.SetFirstLength(place - grip);
        return true;
    case MEventType::LeftUp: isDragged = false; return true;
    case MEventType::KeyDown: return ProcessKey(event.key) || MControl::ProcessEvent(event);
    default: return MControl::ProcessEvent(event);
    }
}
