#include "ui/widgets/scrolling/MViewer.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>
#include <utility>

MViewer::MViewer(MControl* parent, const MString& name)
    : MScroller(parent, name, [this](MControl& view) -> MControl& { return *new Page(view, *this); }) {
    SetControlType(MControlType::ListBox);
    document.SetDefaults({.drawState = MDrawEnabled});
    findBar.Set(MControlFlag::OverlayControl);
    findBar.Set(MControlFlag::AdaptSize, false);
    findBar.SetVisible(false);
    findBar.GetEdit().OnString().Connect(this, &MViewer::OnWantedChanged);
    findBar.onStep = [this](int32_t step) { step == 0 ? CloseFindBar() : FindNext(step); };
}

void MViewer::SetText(const MString& markup) {
    document.Parse(markup);
    ForgetMap();
    found.clear();
    focusedLink = -1;
    hasLinks = false;
    ScrollTo({});
    TouchSizes();
    if (GetRoot().Is(MControlFlag::LayoutValid)) UpdateLayout();
}

void MViewer::LoadFromXml(MXMLItem& item) {
    if (item.HasAttribute("text")) SetText(item.GetCachedAttribute());
    MScroller::LoadFromXml(item);
}

MPoint MViewer::GetNeededSize(int32_t width) {
    MStyle* const style = GetStyle();
    if (!style) return {};
    MDrawerUsingStyle<MDrawer> drawer(*style, GetContainer());
    const MPoint border = GetBorder();
    MPoint size;
    size.y = document.GetHeightForWidth(drawer, std::max(0, width - 2 * border.x), size.x);
    return size + border + border;
}

MPoint MViewer::GetBorder() {
    constexpr MPoint Border = {8, 6};
    MStyle* const style = GetStyle();
    return style ? MPoint{style->ScaleX(Border.x), style->ScaleY(Border.y)} : MPoint();
}

MRect MViewer::GetTextRectangle() {
    const MPoint border = GetBorder();
    return GetContainer().clientRect.Shrunk(border.x, border.y);
}

void MViewer::AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) {
    ForgetMap();
    if (findBar.Is(MControlFlag::Visible)) {
        findBar.position = newClientRect.GetTopLeft();
        findBar.size = {newClientRect.GetWidth(), findBar.minimalSize.y};
        newClientRect.top += findBar.size.y;
    }
    MScroller::AdjustRectangles(newWindowRect, newClientRect);
    if (hasLinks) Set(MControlFlag::TabStop);
}

// ---- The text.

MViewer::Page::Page(MControl& parent, MViewer& viewer) : MControl(&parent, "text"), viewer(viewer) {
    SetControlType(MControlType::Empty);
    Set(MControlFlag::TabStop, false);
    Set(MControlFlag::AutoDetectMinimalSize, false);
}

void MViewer::Page::PaintContent(MDrawer& drawer) {
    viewer.document.Paint(drawer, viewer.GetTextRectangle(), drawer.inverted);
    const MSTMLTextMap& texts = viewer.GetMap();
    const MRect clip = drawer.GetClip();
    const MColor linkColor = drawer.GetTextColor(static_cast<int32_t>(MStdColor::Blue), drawer.inverted);
    for (const MTextRange& link : texts.GetLinks())
        for (MRect rect : texts.GetRectangles(link)) {
            rect.top = rect.bottom - std::max(1, drawer.ScaleY(1)) + 1;
            drawer.FillRectangle(rect, linkColor, MDrawMode::Overlay);
        }
    const auto mark = [&](const MTextRange& range, bool isCurrent) {
        for (const MRect& rect : texts.GetRectangles(range))
            if (!rect.Intersected(clip).IsEmpty())
                GetStyle()->PaintHighlight(*this, drawer, rect,
                                           MDrawEnabled | (isCurrent ? MDrawFocused : MDrawDisabled));
    };
    for (size_t i = 0; i < viewer.found.size(); ++i)
        mark(viewer.found[i], static_cast<int32_t>(i) == viewer.current);
    if (viewer.focusedLink >= 0) mark(texts.GetLinks()[static_cast<size_t>(viewer.focusedLink)], true);
}

bool MViewer::Page::ProcessEvent(const MSystemEvent& event) {
    if (event.type == MEventType::LeftDown) {
        viewer.SetFocus();
        return true;
    }
    const MTextRange* const link =
        event.type == MEventType::LeftUp ? viewer.GetMap().FindLinkAt(GetOwnPoint(event.point)) : nullptr;
    if (!link) return MControl::ProcessEvent(event);
    viewer.OpenLink(*link);
    return true;
}

MStdCursor MViewer::Page::GetCursorAt(MPoint point) {
    return viewer.GetMap().FindLinkAt(point) ? MStdCursor::Link : MControl::GetCursorAt(point);
}

const MSTMLTextMap& MViewer::GetMap() {
    if (map) return *map;
    map = std::make_unique<MSTMLTextMap>();
    if (MStyle* const style = GetStyle()) {
        MDrawerUsingStyle<MDrawer> drawer(*style, GetContainer());
        document.Observe(drawer, GetTextRectangle(), *map);
        map->Finish();
        // Only now is it known whether the keyboard has anything to go to where nothing scrolls.
        hasLinks = !map->GetLinks().empty();
        if (hasLinks) Set(MControlFlag::TabStop);
    }
    return *map;
}

void MViewer::ForgetMap() {
    map.reset();
}

void MViewer::OpenLink(const MTextRange& link) {
    const MString address = GetMap().GetText(link);
    if (linkEvent.HasHandlers()) {
        linkEvent.Fire({this, address});
        return;
    }
    const MString full = address.StartsWith("www.") ? MString("http://") + address : address;
    MGuard("MViewer::OpenLink", [&] { MFile::ExecuteWWW(full); });
}

void MViewer::FocusLink(int32_t index) {
    if (std::exchange(focusedLink, index) == index) return;
    GetContainer().Invalidate();
    if (index < 0) return;
    const std::vector<MRect> rects = GetMap().GetRectangles(GetMap().GetLinks()[static_cast<size_t>(index)]);
    if (!rects.empty()) GetContainer().Reveal(rects.front());
}

bool MViewer::ProcessLinkKey(const MSystemEvent& event) {
    const std::vector<MTextRange>& links = GetMap().GetLinks();
    switch (event.key) {
    case MKeyTab: {
        const int32_t next = focusedLink + (event.Has(MModifierShift) ? -1 : 1);
        const bool isThere = next >= 0 && next < static_cast<int32_t>(links.size());
        FocusLink(isThere ? next : -1);
        return isThere;
    }
    case MKeyEnter:
    case MKeySpace:
        if (focusedLink < 0) return false;
        OpenLink(links[static_cast<size_t>(focusedLink)]);
        return true;
    default: return false;
    }
}

bool MViewer::ProcessEvent(const MSystemEvent& event) {
    if (event.type == MEventType::LostFocus) FocusLink(-1);
    if (event.type == MEventType::KeyDown && ProcessLinkKey(event)) return true;
    return MScroller::ProcessEvent(event);
}

// ---- The search.

int32_t MViewer::Find(const MString& newWanted) {
    wanted = newWanted;
    found = GetMap().Find(wanted);
    // From what is seen on, and not from where an earlier search has been.
    const auto isSeen = [&](const MTextRange& range) {
        const std::vector<MRect> rects = GetMap().GetRectangles(range);
        return !rects.empty() && rects.front().bottom >= GetScroll().y;
    };
    const auto first = std::ranges::find_if(found, isSeen);
    current = found.empty() ? -1 : first == found.end() ? 0 : static_cast<int32_t>(first - found.begin());
    Mark();
    return static_cast<int32_t>(found.size());
}

void MViewer::FindNext(int32_t step) {
    const auto count = static_cast<int32_t>(found.size());
    if (count == 0) return;
    current = (current + step % count + count) % count;
    Mark();
}

void MViewer::Mark() {
    findBar.ShowCount(static_cast<int32_t>(found.size()), current);
    GetContainer().Invalidate();
    if (current < 0) return;
    const std::vector<MRect> rects = GetMap().GetRectangles(found[static_cast<size_t>(current)]);
    if (!rects.empty()) GetContainer().Reveal(rects.front());
}

void MViewer::OpenFindBar() {
    findBar.SetVisible(true);
    UpdateLayout();
    findBar.GetEdit().SetFocus();
    findBar.GetEdit().SelectAll();
}

void MViewer::CloseFindBar() {
    const MControlRef self(this);
    found.clear();
    current = -1;
    SetFocus();
    if (!self) return;
    findBar.SetVisible(false);
    if (self) UpdateLayout();
}

void MViewer::OnPrepared() {
    MScroller::OnPrepared();
    // Ctrl+F works wherever the keyboard is in the window.
    if (!std::exchange(isListening, true))
        GetRoot().GetShortcuts().Connect(this, &MViewer::OnFindKey,
                                         {'F', MModifierControl, MShortcutPhase::Press});
}

void MViewer::OnFindKey(const MOnKeyboardShortcutParams&) {
    if (IsShown() && IsEnabled()) OpenFindBar();
}

void MViewer::OnWantedChanged(const MOnStringParams& params) {
    (void)Find(params.text);
}

bool MViewer::PreviewEvent(MControl* target, const MSystemEvent& event) {
    constexpr int32_t KeyF3 = MKeyF1 + 2;
    if (event.type == MEventType::KeyDown && target == &findBar) {
        const bool isBack = event.Has(MModifierShift);
        switch (event.key) {
        case MKeyEscape: CloseFindBar(); return true;
        case MKeyEnter:
            if (!findBar.GetEdit().HasFocus()) break;
            FindNext(isBack ? -1 : 1);
            return true;
        case MKeyUp: FindNext(-1); return true;
        case MKeyDown: FindNext(1); return true;
        default: break;
        }
    }
    if (event.type == MEventType::KeyDown && event.key == KeyF3 && !found.empty()) {
        FindNext(event.Has(MModifierShift) ? -1 : 1);
        return true;
    }
    return MScroller::PreviewEvent(target, event);
}

void MViewer::WriteHelpInfo(MXMLItem& item) {
    MScroller::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<control>Ctrl+F</control> searches the text: <control>Enter</control> and <control>down arrow</control> "
        "go to the next place, <control>Shift+Enter</control> and <control>up arrow</control> to the previous "
        "one, <control>Esc</control> ends the search.",
        "<control>Left mouse button</control> on a web address opens it.",
        "<control>Tab</control> goes to the next web address, which <control>Enter</control> opens."};
    MWriteUsage(item, "", Entries);
}
