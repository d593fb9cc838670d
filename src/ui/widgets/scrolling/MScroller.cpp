#include "ui/widgets/scrolling/MScroller.h"

#include "foundation/events/MEmulatedLockGuard.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/geometry/MLength.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>
#include <cmath>

MScroller::MScroller(MControl* parent, const MString& name) : MControl(parent, name) {
    SetContent(*new MPlasticContainer(&view, "container"));
    // It has no face of its own that could show the focus.
    for (MScrollBar* bar : {&horizontal, &vertical}) bar->SetFocusOwner(*this);
}

void MScroller::SetContent(MControl& newContent) {
    content = &newContent;
    Set(MControlFlag::UseOverlays, false);
    for (MScrollBar* bar : {&horizontal, &vertical}) {
        bar->Set(MControlFlag::OverlayControl);
        bar->Set(MControlFlag::AdaptSize, false);
        bar->Set(MControlFlag::TabStop, false);
        bar->OnChange().Connect(this, &MScroller::OnBarMoved);
    }
    // What the content needs is no matter of those that the view lies in.
    view.Set(MControlFlag::AutoDetectMinimalSize, false);
    view.Set(MControlFlag::AdaptSize, false);
    for (MControl* part : {static_cast<MControl*>(&view), content}) part->Set(MControlFlag::UseParentHelp);
    view.SetClientControl(content);
    SetClientControl(&view);
    for (const int32_t key : {MKeyPageUp, MKeyPageDown})
        GetShortcuts().Connect(this, &MScroller::OnPageKey, {key, MModifierNone, MShortcutPhase::Press});
}

MPoint MScroller::GetNeededSize(int32_t width) {
    const int32_t least = std::max(width, content->minimalSize.x);
    const bool isPlastic = content->Is(MControlFlag::Plastic);
    return {content->minimalSize.x, isPlastic ? content->GetPlasticSize(1, least) : content->minimalSize.y};
}

int32_t MScroller::GetStep() {
    MStyle* const style = GetStyle();
    return style ? std::max(1, style->GetMetric(static_cast<int32_t>(MStyleMetric::DefaultListBoxItemHeight)))
                 : 1;
}

MRect MScroller::GetViewRectangle() const {
    return view.windowRect.Shifted(view.GetOffsetInParent());
}

void MScroller::GetMinimalContentSize(int32_t& x, int32_t& y) {
    x = vertical.GetThickness() + horizontal.minimalSize.x;
    y = horizontal.GetThickness() + vertical.minimalSize.y;
}

void MScroller::AdjustRectangles(MRect&, MRect& newClientRect) {
    MStyle* const style = GetStyle();
    if (!style) return;
    const MRect area = newClientRect;
    const int32_t space = style->GetMetric(static_cast<int32_t>(MStyleMetric::ScrollerLayoutSpace));
    const MPoint bars{vertical.GetThickness() + space, horizontal.GetThickness() + space};
    bool hasVertical = false;
    bool hasHorizontal = false;
    // A bar takes room from the content, which may then need the other one.
    for (bool isFitting = false; !isFitting;) {
        const MPoint room{area.GetWidth() - (hasVertical ? bars.x : 0),
                          area.GetHeight() - (hasHorizontal ? bars.y : 0)};
        needed = GetNeededSize(std::max(0, room.x));
        const bool needsVertical = needed.y > room.y && !hasVertical;
        const bool needsHorizontal = needed.x > room.x && !hasHorizontal;
        isFitting = !needsVertical && !needsHorizontal;
        hasVertical |= needsVertical;
        hasHorizontal |= needsHorizontal;
    }
    if (hasVertical) newClientRect.right -= bars.x;
    if (hasHorizontal) newClientRect.bottom -= bars.y;
    const auto place = [&](MScrollBar& bar, bool isNeeded, const MRect& rect) {
        bar.position = rect.GetTopLeft();
        bar.size =
            isNeeded ? MPoint{MClampLength(rect.GetWidth()), MClampLength(rect.GetHeight())} : MPoint();
    };
    place(vertical, hasVertical,
          {area.right - vertical.GetThickness() + 1, area.top, area.right, newClientRect.bottom});
    place(horizontal, hasHorizontal,
          {area.left, area.bottom - horizontal.GetThickness() + 1, newClientRect.right, area.bottom});
    Set(MControlFlag::TabStop, hasVertical || hasHorizontal);
}

void MScroller::View::AdjustRectangles(MRect&, MRect& newClientRect) {
    const MPoint room{newClientRect.GetWidth(), newClientRect.GetHeight()};
    MPoint& shift = scroller.scroll;
    const MPoint& wanted = scroller.needed;
    shift.x = std::clamp(shift.x, 0, std::max(0, wanted.x - room.x));
    shift.y = std::clamp(shift.y, 0, std::max(0, wanted.y - room.y));
    newClientRect =
        MRect::FromSize(-shift.x, -shift.y, std::max(wanted.x, room.x), std::max(wanted.y, room.y));
    scroller.horizontal.SetIncrease(scroller.GetStep());
    scroller.horizontal.Show(0, wanted.x, room.x, shift.x);
    scroller.vertical.SetIncrease(scroller.GetStep());
    scroller.vertical.Show(0, wanted.y, room.y, shift.y);
}

void MScroller::ScrollTo(MPoint newScroll) {
    const MPoint before = scroll;
    scroll = newScroll;
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        view.ArrangeChildren();
    }
    if (scroll == before) return;
    view.InvalidateRect(view.contentRect);
    NotifySizes();
}

void MScroller::View::Reveal(const MRect& rect) {
    MPoint wanted = scroller.scroll;
    for (const MAxis axis : {MAxis::X, MAxis::Y}) {
        const int32_t before = rect.GetLow(axis) - windowRect.GetLow(axis);
        const int32_t behind = rect.GetHigh(axis) - windowRect.GetHigh(axis);
        // Of what is larger than the view the beginning is shown.
        if (before < 0 || behind > 0) wanted[axis] += before < 0 ? before : std::min(before, behind);
    }
    const MPoint old = scroller.scroll;
    const MControlRef self(this);
    scroller.ScrollTo(wanted);
    if (self) MControl::Reveal(rect.Shifted(old - scroller.scroll));
}

void MScroller::OnBarMoved(const MOnNotifyParams&) {
    ScrollTo({static_cast<int32_t>(std::lround(horizontal.GetPosition())),
              static_cast<int32_t>(std::lround(vertical.GetPosition()))});
}

void MScroller::OnPageKey(const MOnKeyboardShortcutParams& params) {
    vertical.SetPosition(vertical.GetPosition() +
                         (params.key == MKeyPageUp ? -1 : 1) * vertical.GetPageSize());
}

bool MScroller::ProcessEvent(const MSystemEvent& event) {
    if (event.type == MEventType::Wheel) {
        MScrollBar& bar = event.Has(MModifierShift) || !vertical.CanScroll() ? horizontal : vertical;
        const double before = bar.GetPosition();
        bar.Scroll(-event.wheelDelta * StepsOfWheel);
        return bar.GetPosition() != before;
    }
    if (event.type == MEventType::KeyDown && ProcessKey(event)) return true;
    if (event.type == MEventType::GotFocus || event.type == MEventType::LostFocus)
        for (MScrollBar* bar : {&horizontal, &vertical}) bar->Invalidate();
    return MControl::ProcessEvent(event);
}

bool MScroller::ProcessKey(const MSystemEvent& event) {
    const bool isAcross = event.key == MKeyLeft || event.key == MKeyRight;
    MScrollBar& bar = isAcross ? horizontal : vertical;
    if (!bar.CanScroll()) return false;
    switch (event.key) {
    case MKeyLeft:
    case MKeyUp: bar.Scroll(-1); return true;
    case MKeyRight:
    case MKeyDown: bar.Scroll(1); return true;
    case MKeyPageUp: bar.SetPosition(bar.GetPosition() - bar.GetPageSize()); return true;
    case MKeyPageDown: bar.SetPosition(bar.GetPosition() + bar.GetPageSize()); return true;
    case MKeyHome: bar.SetPosition(0); return true;
    case MKeyEnd: bar.SetPosition(bar.GetMaximum()); return true;
    default: return false;
    }
}

void MScroller::WriteHelpInfo(MXMLItem& item) {
    MControl::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<control>Mouse-wheel</control> scrolls the view.",
        "<control>Arrow keys</control>, <control>page-up</control>, <control>page-down</control>, "
        "<control>home</control> and <control>end</control> scroll the view."};
    MWriteUsage(item, "Scroller shows a part of something larger.", Entries);
}
