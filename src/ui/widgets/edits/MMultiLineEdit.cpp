#include "ui/widgets/edits/MMultiLineEdit.h"

#include "foundation/events/MEmulatedLockGuard.h"
#include "ui/control/MControlRoot.h"

#include <cmath>

MMultiLineEdit::MMultiLineEdit(MControl* parent, const MString& name) : MEdit(parent, name) {
    SetMultiLine(true);
    SetWrapLines(true);
    Set(MControlFlag::UseOverlays, false);
    for (MScrollBar* bar : {&vertical, &horizontal}) {
        bar->Set(MControlFlag::OverlayControl);
        bar->Set(MControlFlag::AdaptSize, false);
        bar->Set(MControlFlag::TabStop, false);
        bar->OnChange().Connect(this, &MMultiLineEdit::OnBarMoved);
    }
}

MRect MMultiLineEdit::GetTextRectangle() {
    MRect rect = MEdit::GetTextRectangle();
    const int32_t height = GetRowHeight();
    if (IsMultiLine() && rect.GetHeight() > height) rect.bottom -= rect.GetHeight() % height;
    return rect;
}

MMultiLineEdit::Needs MMultiLineEdit::GetNeeds(const MRect& rect) {
    if (!IsMultiLine() || !GetStyle()) return {};
    // The text's border is the same on both sides of each rectangle.
    const MRect text = MEdit::GetTextRectangle();
    const MPoint border{clientRect.GetWidth() - text.GetWidth(), clientRect.GetHeight() - text.GetHeight()};
    const MPoint room{rect.GetWidth() - border.x, rect.GetHeight() - border.y};
    const int32_t rowHeight = GetRowHeight();
    if (IsWrapping()) return {!GetRows().Fits(GetLook(room.x), room.y / rowHeight), false};
    const MPoint size = GetTextSize();
    Needs needs{size.y > room.y, size.x >= room.x};
    if (needs.vertical != needs.horizontal) {
        if (needs.horizontal) needs.vertical = size.y > room.y - horizontal.GetThickness();
        if (needs.vertical) needs.horizontal = size.x >= room.x - vertical.GetThickness();
    }
    return needs;
}

void MMultiLineEdit::AdjustRectangles(MRect&, MRect& newClientRect) {
    barsRect = newClientRect;
    shown = GetNeeds(barsRect);
    const int32_t width = shown.vertical ? vertical.GetThickness() : 0;
    const int32_t height = shown.horizontal ? horizontal.GetThickness() : 0;
    newClientRect.right -= width;
    newClientRect.bottom -= height;
    vertical.position = {newClientRect.right + 1, barsRect.top};
    vertical.size = {width, shown.vertical ? newClientRect.GetHeight() : 0};
    horizontal.position = {barsRect.left, newClientRect.bottom + 1};
    horizontal.size = {shown.horizontal ? newClientRect.GetWidth() : 0, height};
    ShowBars();
}

void MMultiLineEdit::OnViewChanged() {
    if (barsRect.IsEmpty()) return;
    if (GetNeeds(barsRect) == shown) return ShowBars();
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        ArrangeChildren();
    }
    Invalidate();
    ScrollTo(GetScroll());
}

void MMultiLineEdit::ShowBars() {
    const MRect area = GetTextRectangle();
    const MPoint text = GetTextSize();
    vertical.SetIncrease(GetRowHeight());
    vertical.Show(0, text.y, area.GetHeight(), GetScroll().y);
    horizontal.SetIncrease(GetRowHeight());
    horizontal.Show(0, text.x + 1, area.GetWidth(), GetScroll().x);
}

void MMultiLineEdit::OnBarMoved(const MOnNotifyParams&) {
    ScrollTo({static_cast<int32_t>(std::lround(horizontal.GetPosition())),
              static_cast<int32_t>(std::lround(vertical.GetPosition()))});
}
