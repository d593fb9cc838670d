// What the style paints of a control by its class, and the parts of composed controls.

#include "ui/control/MControl.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/geometry/MAlignment.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/style/images/MImageContext.h"

#include <algorithm>
#include <cmath>

void MTexturedStyle::PaintControl(MControl& control, MDrawer& drawer) {
    drawer.textShadowAlpha = static_cast<uint8_t>(GetDrawFlags(control));
    if (ControlStyle* const style = FindStyle(control)) {
        if (control.GetControlType() == MControlType::Window)
            drawer.FillRectangle(control.windowRect, GetColors().Get(MStyleTone::Ground), MDrawMode::Copy);
        style->Paint(drawer, GetFaceRect(control), control.GetDrawState(), GetContext());
    }
    PaintCaption(control, drawer);
}

bool MTexturedStyle::PaintsNothing(MControl& control) {
    const ControlStyle* const style = FindStyle(control);
    return style && style->IsEmpty() && !FindCaption(control);
}

MRect MTexturedStyle::GetOpaquePart(MControl& control) {
    ControlStyle* const style = FindStyle(control);
    return style ? style->GetOpaquePart(GetFaceRect(control), control.GetDrawState(), GetContext()) : MRect();
}

MRect MTexturedStyle::GetFaceRect(MControl& control) {
    MRect rect = control.windowRect;
    if (const MCaptionLook* const caption = FindCaption(control); caption && !caption->isOnBackground)
        rect.top += GetCaptionHeight(control);
    return rect;
}

void MTexturedStyle::PaintPiece(MClassLook& look, MStylePiece piece, MDrawer& drawer, const MRect& rect,
                                uint8_t drawState) {
    if (ControlStyle* const style = look.Find(piece)) style->Paint(drawer, rect, drawState, GetContext());
}

void MTexturedStyle::PaintAround(MClassLook& look, MStylePiece piece, MDrawer& drawer, MPointF center,
                                 MPoint size, uint8_t drawState) {
    const auto getStart = [](double middle, int32_t length) {
        return static_cast<int32_t>(std::floor(middle - (length - 1) / 2.0 + 0.5));
    };
    PaintPiece(look, piece, drawer,
               MRect::FromSize(getStart(center.x, size.x), getStart(center.y, size.y), size.x, size.y),
               drawState);
}

void MTexturedStyle::PaintScrollBar(MStyleClass styleClass, MDrawer& drawer, const MScrollBarParts& parts) {
    MClassLook& look = GetLook(styleClass);
    const MRect whole = parts.track.United(parts.decrease).United(parts.increase);
    PaintPiece(look, MStylePiece::Image, drawer, whole, parts.trackState);
    PaintPiece(look, MStylePiece::Locator, drawer, parts.thumb, parts.thumbState);
    const MPoint move =
        GetScale().Get({look.GetNumber("contentmovex", 0), look.GetNumber("contentmovey", 0)});
    const auto paintArrow = [&](MStylePiece piece, const MRect& rect, uint8_t drawState) {
        const bool isMoved = drawState & MDrawClicked;
        PaintPiece(look, piece, drawer, isMoved ? rect.Shifted(move) : rect, drawState);
    };
    paintArrow(MStylePiece::Decrease, parts.decrease, parts.decreaseState);
    paintArrow(MStylePiece::Increase, parts.increase, parts.increaseState);
}

void MTexturedStyle::PaintHorizontalScrollBar(MControl&, MDrawer& drawer, const MScrollBarParts& parts) {
    PaintScrollBar(MStyleClass::HScrollBar, drawer, parts);
}

void MTexturedStyle::PaintVerticalScrollBar(MControl&, MDrawer& drawer, const MScrollBarParts& parts) {
    PaintScrollBar(MStyleClass::VScrollBar, drawer, parts);
}

void MTexturedStyle::PaintCheckMark(MControl& control, MDrawer& drawer, const MRect& rect,
                                    MCheckMarkShape shape, int32_t state, uint8_t drawState) {
    constexpr MStyleClass Classes[] = {MStyleClass::CheckBox, MStyleClass::RadioButton,
                                       MStyleClass::ControlCheckBox};
    constexpr MStylePiece Pieces[] = {MStylePiece::Off, MStylePiece::On, MStylePiece::Grayed};
    constexpr const char* Icons[] = {"iconoff", "iconon", "icongrayed"};
    const int32_t index = std::clamp(state, 0, 2);
    MClassLook& look = GetLook(Classes[static_cast<size_t>(shape)]);
    PaintPiece(look, look.Find(Pieces[index]) ? Pieces[index] : MStylePiece::Off, drawer, rect, drawState);
    const MString name = look.GetText(Icons[index]);
    MBitmap* const icon =
        name.IsEmpty() ? nullptr : GetStdIcon(static_cast<int32_t>(MValueEnum<MStdIcon>::FromName(name)));
    if (!icon) return;
    const MRect place = MAlignInside(rect, {icon->GetWidth(), icon->GetHeight()}, MAlignCenter);
    const int32_t alpha = std::clamp(look.GetNumber("alpha", 255), 0, 255);
    const int32_t strength = drawState & MDrawEnabled ? 255 : GetDisabledAlpha(control);
    drawer.BitBltWhole(*icon, place.GetTopLeft(), static_cast<uint8_t>(alpha * strength / 255),
                       MDrawMode::Alphablend);
}

void MTexturedStyle::PaintListItem(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) {
    const bool isMenu = control.GetRoot().GetControlType() == MControlType::Menu;
    MClassLook& look = GetLook(isMenu ? MStyleClass::Menu : MStyleClass::ListControl);
    const bool isSelected = drawState & MDrawClicked;
    PaintPiece(look, isSelected ? MStylePiece::SelectedItem : MStylePiece::Item, drawer, rect,
               static_cast<uint8_t>(drawState & ~MDrawClicked));
    if (drawState & MDrawFocused) PaintPiece(look, MStylePiece::Selector, drawer, rect, drawState);
}

void MTexturedStyle::PaintTreeLines(MControl&, MDrawer& drawer, const MRect& rect, int32_t lines) {
    MClassLook& look = GetLook(MStyleClass::TreeControl);
    const int32_t width = GetScale().GetLine(1);
    const MColor given = GetColors().Get(MStyleTone::Line);
    const MColor color = look.GetNumber("invertlinecolor", 0) ? given.Inverted() : given;
    const int32_t x = rect.left + (rect.GetWidth() - width) / 2;
    const int32_t y = rect.top + (rect.GetHeight() - width) / 2;
    const auto fill = [&](const MRect& line) { drawer.FillRectangle(line, color, MDrawMode::Alphablend); };
    if (lines & MTreeLineUp) fill({x, rect.top, x + width - 1, y - 1});
    if (lines & MTreeLineDown) fill({x, y + width, x + width - 1, rect.bottom});
    // The line ends so far before what it leads to.
    const int32_t gap = GetScale().GetX(look.GetNumber("parentcrossoffset", 0));
    if (lines & MTreeLineRight)
        fill({x, y, rect.right - gap, y + width - 1});
    else if (lines)
        fill({x, y, x + width - 1, y + width - 1});
}

void MTexturedStyle::PaintLine(MControl&, MDrawer& drawer, const MRect& rect) {
    const int32_t width = GetScale().GetLine(1);
    MRect line = rect;
    if (rect.GetWidth() >= rect.GetHeight()) {
        line.top = rect.top + (rect.GetHeight() - width) / 2;
        line.bottom = line.top + width - 1;
    } else {
        line.left = rect.left + (rect.GetWidth() - width) / 2;
        line.right = line.left + width - 1;
    }
    drawer.FillRectangle(line, GetColors().Get(MStyleTone::Line), MDrawMode::Alphablend);
}

void MTexturedStyle::PaintSelection(MControl&, MDrawer& drawer, const MRect& rect, uint8_t drawState) {
    PaintPiece(GetLook(MStyleClass::Edit), MStylePiece::Selector, drawer, rect, drawState);
}

void MTexturedStyle::PaintHighlight(MControl&, MDrawer& drawer, const MRect& rect, uint8_t drawState) {
    PaintPiece(GetLook(MStyleClass::ListControl), MStylePiece::Highlight, drawer, rect, drawState);
}

void MTexturedStyle::PaintTreeExpander(MControl&, MDrawer& drawer, const MRect& rect, bool isOpen,
                                       uint8_t drawState) {
    PaintPiece(GetLook(MStyleClass::TreeControl), isOpen ? MStylePiece::On : MStylePiece::Off, drawer, rect,
               drawState);
}

void MTexturedStyle::PaintTab(MControl&, MDrawer& drawer, const MRect& rect, uint8_t drawState) {
    const bool isSelected = drawState & MDrawClicked;
    PaintPiece(GetLook(MStyleClass::TabSet), isSelected ? MStylePiece::SelectedItem : MStylePiece::Item,
               drawer, rect, static_cast<uint8_t>(drawState & ~MDrawClicked));
}

void MTexturedStyle::PaintMenuBarItem(MControl&, MDrawer& drawer, const MRect& rect, uint8_t drawState) {
    const bool isOpen = drawState & MDrawClicked;
    PaintPiece(GetLook(MStyleClass::MenuBar), isOpen ? MStylePiece::SelectedItem : MStylePiece::Item, drawer,
               rect, static_cast<uint8_t>(drawState & ~MDrawClicked));
}

void MTexturedStyle::PaintSplitter(MControl&, MDrawer& drawer, const MRect& rect, bool isVertical,
                                   uint8_t drawState) {
    PaintPiece(GetLook(MStyleClass::Splitter), isVertical ? MStylePiece::VImage : MStylePiece::HImage, drawer,
               rect, drawState);
}
