#include "examples/windows/MPlainStyle.h"

#include "foundation/files/MFile.h"
#include "ui/control/MControl.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/drawing/MDrawerToMBitmap.h"

#include <algorithm>

namespace {

constexpr MColor Text = MColor::FromRGB(32, 36, 40);
constexpr MColor Ground = MColor::FromRGB(232, 234, 236);
constexpr MColor Surface = MColor::FromRGB(250, 250, 250);
constexpr MColor Raised = MColor::FromRGB(216, 220, 224);
constexpr MColor Hovered = MColor::FromRGB(226, 232, 240);
constexpr MColor Pressed = MColor::FromRGB(184, 196, 212);
constexpr MColor Strip = MColor::FromRGB(60, 72, 88);
constexpr MColor FrameColor = MColor::FromRGB(150, 158, 166);
constexpr MColor Accent = MColor::FromRGB(20, 110, 190);

struct Face {
    const char* file;
    int32_t size;
};
constexpr Face Faces[] = {{"LiberationSans-Regular.ttf", 13}, {"LiberationSans-Bold.ttf", 13},
                          {"LiberationSans-Italic.ttf", 13},  {"LiberationSans-Regular.ttf", 11},
                          {"LiberationSans-Bold.ttf", 16},    {"LiberationSans-Bold.ttf", 20},
                          {"LiberationSans-Bold.ttf", 26},    {"LiberationSans-Bold.ttf", 34}};

constexpr int32_t IconSize = 12;

bool HasFrame(const MControl& control) {
    switch (control.GetControlType()) {
    case MControlType::Empty:
    case MControlType::NoBackground:
    case MControlType::Control:
    case MControlType::Static: return false;
    default: return true;
    }
}

/// What a control shows by itself is no caption.
bool HasCaption(const MControl& control) {
    return !control.GetCaption().IsEmpty() && control.GetCaptionType() != MCaptionType::None;
}

/// Whether the caption stands in a strip of its own rather than within the control.
bool HasStrip(const MControl& control) {
    const MControlType type = control.GetControlType();
    return HasCaption(control) && (type == MControlType::Window || type == MControlType::Panel);
}

MColor GetSurface(MControlType type, MDrawState state) {
    switch (type) {
    case MControlType::Button:
        return state & MDrawClicked ? Pressed : state & MDrawHighlighted ? Hovered : Raised;
    case MControlType::Edit:
    case MControlType::ListBox: return Surface;
    default: return Ground;
    }
}

}  // namespace

MPlainStyle::MPlainStyle(MWindows* owner, const MString& fontFolder) : MStyle(owner, "Plain") {
    const MString folder = MFile::Join(fontFolder, "liberation");
    for (size_t index = 0; index < fonts.size(); ++index) {
        fonts[index].LoadFromFile(MFile::Join(folder, Faces[index].file));
        fonts[index].SetSize(-Faces[index].size);
    }
    for (size_t index = 0; index < cursors.size(); ++index)
        cursors[index].kind = static_cast<MStdCursor>(index);
    icon.Create(IconSize, IconSize);
    MDrawerToMBitmap drawer(icon);
    drawer.FillCircle({5.5, 5.5}, 3, Accent, MDrawMode::Overlay);
}

MBitmap* MPlainStyle::GetStdIcon(int32_t) {
    return &icon;
}

MBitmap* MPlainStyle::GetStdBitmap(int32_t) {
    return &icon;
}

MFont* MPlainStyle::GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted, uint8_t drawState,
                            MColor& color) {
    color = GetColor(colorIndex, isInverted);
    if (!(drawState & MDrawEnabled)) color.alpha = 96;
    return &fonts[static_cast<size_t>(std::clamp(fontIndex, 0, static_cast<int32_t>(fonts.size()) - 1))];
}

const MCursor& MPlainStyle::GetCursor(MStdCursor cursor, MControl&, uint8_t) {
    return cursors[static_cast<size_t>(cursor)];
}

MColor MPlainStyle::GetColor(int32_t index, bool isInverted) {
    constexpr MColor Colors[] = {Text, FrameColor, MColor::FromRGB(200, 40, 40), MColor::FromRGB(0, 128, 60),
                                 Accent};
    const MColor color = index < 0 ? Text : Colors[std::min(index, 4)];
    return isInverted ? color.Inverted() : color;
}

MColor MPlainStyle::GetCaptionColor(MControl& control) {
    return HasStrip(control) ? Surface : Text;
}

int32_t MPlainStyle::GetMetric(int32_t index) {
    const auto metric = static_cast<MStyleMetric>(index);
    if (metric == MStyleMetric::DefLayoutSpace || metric == MStyleMetric::DefGridLayoutSpace) return Space;
    return metric < MStyleMetric::DefLayoutSpace ? 4 : 16;
}

MPlainStyle::Insets MPlainStyle::GetInsets(const MControl& control) {
    const int32_t frame = HasFrame(control) ? Frame : 0;
    return {frame, HasStrip(control) ? CaptionHeight : frame};
}

MPoint MPlainStyle::ConvertToClient(MControl& control, MPoint size) {
    const Insets insets = GetInsets(control);
    return {size.x - 2 * insets.side, size.y - insets.top - insets.side};
}

MPoint MPlainStyle::ConvertToWindow(MControl& control, MPoint size) {
    const Insets insets = GetInsets(control);
    return {size.x + 2 * insets.side, size.y + insets.top + insets.side};
}

void MPlainStyle::ComputeRectangles(MControl& control, MRect& windowRect, MRect& clientRect) {
    const MPoint size = control.GetShownSize();
    const Insets insets = GetInsets(control);
    windowRect = MRect::FromSize(0, 0, size.x, size.y);
    clientRect = {insets.side, insets.top, size.x - 1 - insets.side, size.y - 1 - insets.side};
}

bool MPlainStyle::HitCaption(MControl& control, MPoint point) {
    return HasStrip(control) && point.y >= 0 && point.y < CaptionHeight;
}

MPoint MPlainStyle::GetMinimalSize(MControl& control) {
    MPoint size = GetMinimalClassSize(control);
    if (!HasCaption(control)) return size;
    MColor color;
    MFont& font = *GetFont(control.GetFont(), 0, false, MDrawEnabled, color);
    const int32_t width = font.GetTextWidth(control.GetCaption());
    const int32_t height = font.GetAscent() + font.GetDescent();
    return {std::max(size.x, width + 16), std::max(size.y, HasStrip(control) ? CaptionHeight : height + 2)};
}

MPoint MPlainStyle::GetDefaultSize(MControl& control) {
    return GetMinimalClassSize(control);
}

MPoint MPlainStyle::GetMinimalClassSize(MControl& control) {
    switch (control.GetControlType()) {
    case MControlType::Button: return {64, 24};
    case MControlType::Edit: return {60, 22};
    case MControlType::ProgressBar: return {80, 14};
    default: return {};
    }
}

MPoint MPlainStyle::GetCollapsedSize(MControl&) {
    return {0, CaptionHeight + Frame};
}

void MPlainStyle::ResetSizes(MControl& control) {
    control.size = GetDefaultSize(control);
}

void MPlainStyle::PaintControl(MControl& control, MDrawer& drawer) {
    ++paints;
    const MControlType type = control.GetControlType();
    if (type == MControlType::Empty) return;
    const MDrawState state = control.GetDrawState();
    const MRect& rect = control.windowRect;
    if (type != MControlType::NoBackground && type != MControlType::Static && type != MControlType::Control)
        drawer.FillRectangle(rect, GetSurface(type, state), MDrawMode::Copy);
    if (HasFrame(control))
        drawer.Rectangle(rect, state & MDrawFocused ? Accent : FrameColor, MDrawMode::Copy);
    PaintCaption(control, drawer);
}

void MPlainStyle::PaintCaption(MControl& control, MDrawer& drawer) {
    if (!HasCaption(control)) return;
    MRect rect = control.windowRect;
    MTextAlignment alignment = MTextLeft | MTextMiddle;
    if (HasStrip(control)) {
        rect.bottom = rect.top + CaptionHeight - 1;
        drawer.FillRectangle(rect, Strip, MDrawMode::Copy);
        rect = rect.Shrunk(8, 0);
    } else if (control.GetControlType() == MControlType::Button) {
        alignment = MTextCenter | MTextMiddle;
    } else if (HasFrame(control)) {
        rect = rect.Shrunk(5, 0);
    }
    MColor color;
    MFont* const font = GetFont(control.GetFont(), 0, false, control.GetDrawState(), color);
    drawer.DrawText(rect, *font, control.GetCaption(), GetCaptionColor(control).WithAlpha(color.alpha),
                    alignment);
}

void MPlainStyle::OffsetContent(MControl& control, MPoint& point) {
    if (control.GetDrawState() & MDrawClicked) point = point + MPoint{1, 1};
}

double MPlainStyle::GetTrackerPosition(MControl& control, MPoint point) {
    return std::clamp(static_cast<double>(point.x) / std::max(control.size.x - 1, 1), 0.0, 1.0);
}

MRect MPlainStyle::GetTrackerRect(MControl& control, double value) {
    const int32_t x = static_cast<int32_t>(value * (control.size.x - 1));
    return {x - 3, 0, x + 3, control.size.y - 1};
}

MPoint MPlainStyle::GetPartSize(MControl&, MStylePart part) {
    constexpr MPoint Mark = {13, 13};
    constexpr MPoint Border = {6, 3};
    switch (part) {
    case MStylePart::ScrollArrow: return {12, 12};
    case MStylePart::ScrollThumb: return {8, 8};
    case MStylePart::CheckMark:
    case MStylePart::RadioMark: return Mark;
    case MStylePart::Knob: return {32, 32};
    default: return Border;
    }
}

void MPlainStyle::PaintHorizontalScrollBar(MControl& control, MDrawer& drawer, const MScrollBarParts& parts) {
    PaintVerticalScrollBar(control, drawer, parts);
}

void MPlainStyle::PaintVerticalScrollBar(MControl&, MDrawer& drawer, const MScrollBarParts& parts) {
    drawer.FillRectangle(parts.track, Raised, MDrawMode::Copy);
    for (const MRect& part : {parts.thumb, parts.decrease, parts.increase})
        drawer.FillRectangle(part, FrameColor, MDrawMode::Copy);
}

void MPlainStyle::PaintCheckMark(MControl&, MDrawer& drawer, const MRect& rect, MCheckMarkShape,
                                 int32_t state, uint8_t) {
    drawer.Rectangle(rect, Text, MDrawMode::Copy);
    if (state != 0) drawer.FillRectangle(rect.Shrunk(3, 3), Accent, MDrawMode::Copy);
}

void MPlainStyle::PaintListItem(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) {
    if (drawState & MDrawFocused) PaintSelection(control, drawer, rect, drawState);
}

void MPlainStyle::PaintTreeLines(MControl& control, MDrawer& drawer, const MRect& rect, int32_t) {
    PaintLine(control, drawer, rect);
}

void MPlainStyle::PaintLine(MControl&, MDrawer& drawer, const MRect& rect) {
    drawer.FillRectangle(rect, FrameColor, MDrawMode::Copy);
}

void MPlainStyle::PaintSelection(MControl&, MDrawer& drawer, const MRect& rect, uint8_t) {
    drawer.FillRectangle(rect, Accent, MDrawMode::Copy);
}

void MPlainStyle::PaintHighlight(MControl&, MDrawer& drawer, const MRect& rect, uint8_t) {
    drawer.FillRectangle(rect, Accent.WithAlpha(48), MDrawMode::Alphablend);
}

void MPlainStyle::PaintTreeExpander(MControl& control, MDrawer& drawer, const MRect& rect, bool isOpen,
                                    uint8_t drawState) {
    PaintCheckMark(control, drawer, rect, MCheckMarkShape::CheckBox, isOpen ? 1 : 0, drawState);
}

void MPlainStyle::PaintValue(MControl&, MDrawer& drawer, const MRect& rect, const MValueLook& look) {
    MRect filled = rect;
    filled.right = rect.left + static_cast<int32_t>(look.value * (rect.right - rect.left));
    drawer.FillRectangle(filled, Accent, MDrawMode::Copy);
}

void MPlainStyle::PaintTab(MControl&, MDrawer& drawer, const MRect& rect, uint8_t drawState) {
    drawer.FillRectangle(rect, drawState & MDrawClicked ? Surface : Raised, MDrawMode::Copy);
}

void MPlainStyle::PaintMenuBarItem(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) {
    if (drawState & (MDrawClicked | MDrawHighlighted)) PaintHighlight(control, drawer, rect, drawState);
}

void MPlainStyle::PaintSplitter(MControl&, MDrawer& drawer, const MRect& rect, bool, uint8_t drawState) {
    drawer.FillRectangle(rect, drawState & MDrawHighlighted ? Hovered : Raised, MDrawMode::Copy);
}

bool MPlainStyle::IsInverted(MControl& control) {
    const MControl* const parent = control.GetParent();
    return control.Is(MControlFlag::Inverted) != (parent && parent->Is(MControlFlag::Inverted));
}
