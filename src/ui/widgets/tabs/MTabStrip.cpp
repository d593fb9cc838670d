#include "ui/widgets/tabs/MTabStrip.h"

#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/drawing/MClipScope.h"
#include "ui/widgets/tabs/MTabSet.h"

#include <algorithm>
#include <utility>

namespace {

/// How far a click on a border button scrolls, at 100 percent.
constexpr int32_t ScrollStep = 40;

MRepeaterButton* AddBorderButton(MControl& strip, const char* name, MStdIcon icon) {
    auto* const button = new MRepeaterButton(&strip, name);
    button->SetIcon(icon);
    button->Set(MControlFlag::OverlayControl);
    button->Set(MControlFlag::AdaptSize, false);
    button->Set(MControlFlag::TabStop, false);
    button->Set(MControlFlag::UseParentHelp);
    button->size = {};
    return button;
}

}  // namespace

MTabStrip::MTabStrip(MTabSet& tabs)
    : MControl(&tabs, "Buttons"),
      tabs(tabs),
      leftButton(AddBorderButton(*this, "Left", MStdIcon::Left)),
      rightButton(AddBorderButton(*this, "Right", MStdIcon::Right)) {
    SetControlType(MControlType::Empty);
    Set(MControlFlag::UseOverlays, false);
    Set(MControlFlag::DoubleClicksAsClicks);
    Set(MControlFlag::UseParentHelp);
    layoutRatio.y = 0;
    for (MRepeaterButton* button : {leftButton, rightButton})
        button->OnClick(Click::Left).Connect(this, &MTabStrip::OnBorderClick);
}

void MTabStrip::AddButton(Button button) {
    buttons.push_back(std::move(button));
    TouchSizes();
    Invalidate();
}

void MTabStrip::ChangeButton(int32_t index, Button button) {
    buttons[static_cast<size_t>(index)] = std::move(button);
    UpdateLayout();
}

void MTabStrip::SetFitAll(bool newIsFitAll) {
    if (std::exchange(isFitAll, newIsFitAll) != newIsFitAll) UpdateLayout();
}

MPoint MTabStrip::GetContentOf(MDrawer& drawer, const Button& button) {
    const MContentLook look{.font = GetFont(), .drawState = MDrawEnabled};
    MPoint content = MContentText(button.text).GetSize(drawer, look);
    if (!button.icon) return content;
    const MPoint icon = MContentIcon(*button.icon).GetSize(drawer, look);
    content.x += icon.x;
    if (!button.text.IsEmpty())
        content.x += GetStyle()->GetMetric(static_cast<int32_t>(MStyleMetric::XSpaceInMContent));
    content.y = std::max(content.y, icon.y);
    return content;
}

std::vector<MTabStrip::Extent> MTabStrip::GetExtents(int32_t room) {
    MStyle& style = *GetStyle();
    MDrawerUsingStyle<MDrawer> drawer(style, *this);
    const auto getMetric = [&](MStyleMetric metric) { return style.GetMetric(static_cast<int32_t>(metric)); };
    const int32_t overlap = getMetric(MStyleMetric::TabSetOverlapSize);
    const int32_t margins =
        getMetric(MStyleMetric::TabSetLeftSize) + getMetric(MStyleMetric::TabSetRightSize);
    const int32_t border = style.GetPartSize(*this, MStylePart::TabBorder).x;
    std::vector<int32_t> widths;
    int64_t all = 0;
    for (const Button& button : buttons) {
        const int32_t own = style.ScaleX(button.size);
        widths.push_back(own > 0 ? own : GetContentOf(drawer, button).x + 2 * border);
        all += widths.back();
    }
    const int64_t shared = room - margins + int64_t{overlap} * std::max(GetButtonCount() - 1, 0);
    const bool isShrunk = isFitAll && all > shared;
    std::vector<Extent> extents;
    int64_t before = 0;
    int32_t left = getMetric(MStyleMetric::TabSetLeftSize);
    for (const int32_t width : widths) {
        // Shares are cut at whole pixels so that they fill the room together.
        const auto getShare = [&](int64_t length) { return std::max<int64_t>(length * shared / all, 0); };
        const auto own = static_cast<int32_t>(isShrunk ? getShare(before + width) - getShare(before) : width);
        extents.push_back({left, own});
        before += width;
        left += own - overlap;
    }
    extents.push_back({left + (buttons.empty() ? 0 : overlap) + getMetric(MStyleMetric::TabSetRightSize), 0});
    return extents;
}

void MTabStrip::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStyle& style = *GetStyle();
    MDrawerUsingStyle<MDrawer> drawer(style, *this);
    int32_t height = MContentText("X").GetSize(drawer, {.font = GetFont(), .drawState = MDrawEnabled}).y;
    int32_t widest = 0;
    const std::vector<Extent> extents = GetExtents(Unlimited);
    for (int32_t i = 0; i < GetButtonCount(); ++i) {
        height = std::max(height, GetContentOf(drawer, GetButton(i)).y);
        widest = std::max(widest, extents[static_cast<size_t>(i)].width);
    }
    y = height + 2 * style.GetPartSize(*this, MStylePart::TabBorder).y;
    x = std::min(widest + 2 * y, extents.back().left);
}

void MTabStrip::GetContentSize(int32_t& x, int32_t& y) {
    GetMinimalContentSize(x, y);
    x = GetExtents(Unlimited).back().left;
}

int32_t MTabStrip::GetBorderButtonWidth() {
    return isScrollable ? clientRect.GetHeight() : 0;
}

void MTabStrip::AdjustRectangles(MRect&, MRect& newClientRect) {
    const int32_t height = newClientRect.GetHeight();
    isScrollable = !isFitAll && GetExtents(newClientRect.GetWidth()).back().left > newClientRect.GetWidth();
    const MPoint shown = isScrollable ? MPoint{height, height} : MPoint();
    leftButton->position = newClientRect.GetTopLeft();
    rightButton->position = {newClientRect.right - height + 1, newClientRect.top};
    leftButton->size = rightButton->size = shown;
    Scroll(0);
}

MRect MTabStrip::GetViewRect() {
    return clientRect.Shrunk(GetBorderButtonWidth(), 0);
}

void MTabStrip::Scroll(int32_t pixels) {
    const int32_t room = GetViewRect().GetWidth();
    const int32_t greatest = isScrollable ? std::max(GetExtents(room).back().left - room, 0) : 0;
    const int32_t place = std::clamp(scrollPlace + pixels, 0, greatest);
    if (std::exchange(scrollPlace, place) != place) Invalidate();
}

void MTabStrip::ScrollToButton(int32_t index) {
    if (!isScrollable) return;
    const MRect view = GetViewRect();
    const MRect rect = GetButtonRect(index);
    if (rect.left < view.left)
        Scroll(rect.left - view.left);
    else if (rect.right > view.right)
        Scroll(rect.right - view.right);
}

void MTabStrip::OnBorderClick(const MOnClickParams& params) {
    const int32_t step = GetStyle()->ScaleX(ScrollStep);
    Scroll(params.control == leftButton ? -step : step);
}

MRect MTabStrip::GetButtonRect(int32_t index) {
    const MRect view = GetViewRect();
    const Extent extent = GetExtents(view.GetWidth())[static_cast<size_t>(index)];
    return MRect::FromSize(view.left + extent.left - scrollPlace, view.top, extent.width, view.GetHeight());
}

int32_t MTabStrip::FindButtonAt(MPoint point) {
    if (!GetViewRect().Contains(point)) return -1;
    // The selected one lies over its neighbours.
    const int32_t selected = tabs.GetSelectedTab();
    if (selected >= 0 && GetButtonRect(selected).Contains(point)) return selected;
    for (int32_t i = 0; i < GetButtonCount(); ++i)
        if (GetButtonRect(i).Contains(point)) return i;
    return -1;
}

void MTabStrip::PaintButton(MDrawer& drawer, int32_t index, const MRect& rect) {
    MStyle& style = *GetStyle();
    const Button& button = GetButton(index);
    const bool isSelected = index == tabs.GetSelectedTab();
    uint8_t state = IsEnabled() && button.isEnabled ? MDrawEnabled : MDrawDisabled;
    if (index == hovered && state) state |= MDrawHighlighted;
    if (isSelected) state |= MDrawClicked | (HasFocus() ? MDrawFocused : 0);
    style.PaintTab(*this, drawer, rect, state);
    const MPoint border = style.GetPartSize(*this, MStylePart::TabBorder);
    MRect inside = rect.Shrunk(std::min(border.x, rect.GetWidth() / 4), border.y);
    MContentLook look{.font = GetFont(), .drawState = state, .isInverted = style.IsInverted(*this)};
    if (button.icon) {
        MContentIcon icon(*button.icon);
        MRect place = inside;
        place.right = place.left + icon.GetSize(drawer, look).x - 1;
        icon.Paint(drawer, place, look);
        inside.left = place.right + 1 + style.GetMetric(static_cast<int32_t>(MStyleMetric::XSpaceInMContent));
    }
    MContentText(button.text).Paint(drawer, inside, look);
}

void MTabStrip::PaintContent(MDrawer& drawer) {
    const MRect view = GetViewRect();
    MClipScope clip(drawer);
    if (clip.Intersect(view)) return;
    const int32_t selected = tabs.GetSelectedTab();
    const std::vector<Extent> extents = GetExtents(view.GetWidth());
    const auto paint = [&](int32_t index) {
        const Extent& extent = extents[static_cast<size_t>(index)];
        PaintButton(
            drawer, index,
            MRect::FromSize(view.left + extent.left - scrollPlace, view.top, extent.width, view.GetHeight()));
    };
    for (int32_t i = 0; i < GetButtonCount(); ++i)
        if (i != selected) paint(i);
    if (selected >= 0) paint(selected);
}

void MTabStrip::SetHovered(int32_t index) {
    if (std::exchange(hovered, index) != index) Invalidate();
}

int32_t MTabStrip::FindEnabled(int32_t index, int32_t step) const {
    for (index += step; index >= 0 && index < GetButtonCount(); index += step)
        if (GetButton(index).isEnabled) return index;
    return -1;
}

bool MTabStrip::ProcessKey(int32_t key, MKeyModifiers modifiers) {
    const int32_t selected = tabs.GetSelectedTab();
    if (selected < 0) return false;
    switch (key) {
    case MKeyLeft: tabs.ChooseTab(FindEnabled(selected, -1)); return true;
    case MKeyRight: tabs.ChooseTab(FindEnabled(selected, 1)); return true;
    case MKeyHome: tabs.ChooseTab(FindEnabled(-1, 1)); return true;
    case MKeyEnd: tabs.ChooseTab(FindEnabled(GetButtonCount(), -1)); return true;
    case MKeyEnter:
        if (!(modifiers & MModifierControl)) return false;
        tabs.ShowInPopup(selected);
        return true;
    case MKeyMenu: {
        const MRect rect = GetButtonRect(selected);
        tabs.OpenContextMenu(rect.Shifted(GetScreenPoint({0, 0})));
        return true;
    }
    default: return false;
    }
}

bool MTabStrip::ProcessEvent(const MSystemEvent& event) {
    const int32_t index = event.HasPosition() ? FindButtonAt(GetOwnPoint(event.point)) : -1;
    switch (event.type) {
    case MEventType::LeftDown:
    case MEventType::RightDown: {
        const bool isRight = event.type == MEventType::RightDown;
        const MPoint place = GetScreenPoint(GetOwnPoint(event.point));
        if (index >= 0 && GetButton(index).isEnabled)
            isRight || event.Has(MModifierControl) ? tabs.ShowInPopup(index) : tabs.ChooseTab(index);
        else if (index < 0 && isRight)
            tabs.OpenContextMenu({place.x, place.y, place.x, place.y - 1});
        return true;
    }
    case MEventType::MouseMove: SetHovered(index); return true;
    case MEventType::MouseLeave: SetHovered(-1); return MControl::ProcessEvent(event);
    case MEventType::Wheel: Scroll(-event.wheelDelta * GetStyle()->ScaleX(ScrollStep)); return isScrollable;
    case MEventType::GotFocus:
    case MEventType::LostFocus: Invalidate(); return MControl::ProcessEvent(event);
    case MEventType::KeyDown: return ProcessKey(event.key, event.modifiers) || MControl::ProcessEvent(event);
    default: return MControl::ProcessEvent(event);
    }
}
