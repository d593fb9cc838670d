#pragma once

#include "foundation/base/MList.h"
#include "foundation/events/MEventTarget.h"
#include "foundation/text/MString.h"
#include "ui/control/MCursor.h"
#include "ui/control/MStyleParts.h"
#include "ui/control/MSystemEvent.h"
#include "ui/control/kinds/MControlType.h"
#include "ui/drawing/MDrawer.h"

#include <cstdint>

class MAlphaMask;
class MControl;
class MWindows;
class MXMLItem;

/// The state in which a control is drawn, combined with `|`.
enum MDrawState : uint8_t {
    MDrawDisabled = 0,
    MDrawEnabled = 1,
    MDrawFocused = 2,
    MDrawHighlighted = 4,
    MDrawClicked = 8,
};

constexpr MDrawState operator|(MDrawState left, MDrawState right) {
    return static_cast<MDrawState>(static_cast<uint8_t>(left) | static_cast<uint8_t>(right));
}

/// What leads to a row of a tree, combined with `|`.
enum MTreeLines : uint8_t { MTreeLineUp = 1, MTreeLineDown = 2, MTreeLineRight = 4 };

/// The look of all controls: sizes, colours, fonts, icons, pointers, and the painting of each control by its
/// class and state. A control holds what it is; nothing of how it looks.
///
/// Sizes and rectangles are in pixels, rectangles inclusive, points in the control's own coordinates. Changed
/// on the thread of the user interface only.
class MStyle : public MEventTarget {
public:
    MStyle(MWindows* owner, const MString& name) : owner(owner), name(name) {}

    // What the style is.
    [[nodiscard]] virtual MString GetInfo() = 0;
    /// Path of the file with the user's settings.
    [[nodiscard]] virtual MString GetSettingsFile() = 0;
    [[nodiscard]] virtual MString GetStyleDirectory() = 0;
    [[nodiscard]] virtual MString GetName() { return name; }
    [[nodiscard]] virtual MString GetStyleLibrary() = 0;
    [[nodiscard]] virtual MList<MString> ListStyles() = 0;
    virtual void LoadFromSettings(MXMLItem& settings) = 0;
    virtual void SaveToSettings(MXMLItem& settings) = 0;
    virtual void LoadDefinition(MXMLItem& definition) = 0;
    virtual void Unload() = 0;

    // What it provides. Pictures and fonts belong to the style; null where it has none.
    [[nodiscard]] virtual MBitmap* GetStdIcon(int32_t index) = 0;
    /// As `MDrawer::GetStdIconMask`.
    [[nodiscard]] virtual const MAlphaMask* GetStdIconMask(int32_t) { return nullptr; }
    [[nodiscard]] virtual MBitmap* GetStdBitmap(int32_t index) = 0;
    [[nodiscard]] virtual MFontTable* GetFontTable() = 0;
    /// As `MDrawer::GetFont`.
    [[nodiscard]] virtual MFont* GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted,
                                         uint8_t drawState, MColor& color) = 0;
    [[nodiscard]] virtual const MCursor& GetCursor(MStdCursor cursor, MControl& control,
                                                   uint8_t drawState) = 0;
    [[nodiscard]] virtual MColor GetColor(int32_t index, bool isInverted) = 0;
    [[nodiscard]] virtual MColor GetCaptionColor(MControl& control) = 0;
    /// The caption of a control, or a text in its place, as it is shown: in upper case where the user wants that.
    [[nodiscard]] virtual MString TransformCaption(MControl&, const MString& text) { return text; }
    /// One of `MStyleMetric`, scaled.
    [[nodiscard]] virtual int32_t GetMetric(int32_t index) = 0;
    [[nodiscard]] virtual int32_t GetDrawFlags(MControl& control) = 0;
    [[nodiscard]] virtual uint8_t GetDisabledAlpha(MControl& control) = 0;

    // Sizes of a control: of the whole, and of what its frame and caption leave for what is inside.
    [[nodiscard]] virtual MPoint ConvertToClient(MControl& control, MPoint size) = 0;
    [[nodiscard]] virtual MPoint ConvertToWindow(MControl& control, MPoint size) = 0;
    /// `windowRect` becomes the whole control; `clientRect` what caption and frame leave of it.
    virtual void ComputeRectangles(MControl& control, MRect& windowRect, MRect& clientRect) = 0;
    /// Whether a point lies in the caption.
    [[nodiscard]] virtual bool HitCaption(MControl& control, MPoint point) = 0;
    /// That of the control's class, raised by its caption.
    [[nodiscard]] virtual MPoint GetMinimalSize(MControl& control) = 0;
    [[nodiscard]] virtual MPoint GetDefaultSize(MControl& control) = 0;
    [[nodiscard]] virtual MPoint GetMinimalClassSize(MControl& control) = 0;
    /// Of a collapsed control: its caption with the frame.
    [[nodiscard]] virtual MPoint GetCollapsedSize(MControl& control) = 0;
    /// Gives a control of a new class the default size of that.
    virtual void ResetSizes(MControl& control) = 0;
    [[nodiscard]] virtual MControl* FindCaptionControl(MControl&) { return nullptr; }
    /// A length of 100 percent in the style's size.
    [[nodiscard]] virtual int32_t ScaleX(int32_t value) = 0;
    [[nodiscard]] virtual int32_t ScaleY(int32_t value) = 0;
    virtual void AdjustSize(MControl& control, int32_t& x, int32_t& y) = 0;
    /// Whether the style has become smaller, because a window at its minimal size does not fit the screen: then
    /// all of it is measured again.
    [[nodiscard]] virtual bool FitWindow(MControl&) { return false; }
    /// The minimal size that was found for a control that keeps it in the style.
    virtual void StoreMinimalSize(MControl&, MPoint) {}

    // The life of a control.
    virtual void AttachControl(MControl&) {}
    /// True if the style has consumed the event.
    [[nodiscard]] virtual bool PreprocessEvent(MControl&, const MSystemEvent&) { return false; }
    virtual void PrePaint(MControl&) {}
    /// Frame, background and caption. The drawer is in the control's own coordinates.
    virtual void PaintControl(MControl& control, MDrawer& drawer) = 0;
    /// Whether `PaintControl` is known to paint nothing, in no state.
    [[nodiscard]] virtual bool PaintsNothing(MControl&) { return false; }
    /// What `PaintControl` covers with opaque pixels, whatever lies behind, as far as the style knows.
    [[nodiscard]] virtual MRect GetOpaquePart(MControl&) { return {}; }
    virtual void DetachControl(MControl&) {}
    /// The shape of a window: its opaque pixels; left empty for a rectangle.
    virtual void GetWindowMask(MControl&, MAlphaMask&) {}
    /// Moves what is inside of a pressed control.
    virtual void OffsetContent(MControl& control, MPoint& point) = 0;
    [[nodiscard]] virtual double GetTrackerPosition(MControl& control, MPoint point) = 0;
    [[nodiscard]] virtual MRect GetTrackerRect(MControl& control, double value) = 0;

    // Parts of composed controls. Of a row, a tab or an item, `MDrawClicked` says that it is selected or open,
    // `MDrawHighlighted` that the mouse is over it, `MDrawFocused` that the keyboard works on it.
    [[nodiscard]] virtual MPoint GetPartSize(MControl& control, MStylePart part) = 0;
    virtual void PaintHorizontalScrollBar(MControl& control, MDrawer& drawer,
                                          const MScrollBarParts& parts) = 0;
    virtual void PaintVerticalScrollBar(MControl& control, MDrawer& drawer, const MScrollBarParts& parts) = 0;
    /// `state` is 0 for off, 1 for on, 2 for neither.
    virtual void PaintCheckMark(MControl& control, MDrawer& drawer, const MRect& rect, MCheckMarkShape shape,
                                int32_t state, uint8_t drawState) = 0;
    /// What lies behind a row of a list, a tree or a menu.
    virtual void PaintListItem(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) = 0;
    /// One of `MTreeLines` combined: what leads to a row of a tree, in one step of its indentation.
    virtual void PaintTreeLines(MControl& control, MDrawer& drawer, const MRect& rect, int32_t lines) = 0;
    /// A line between rows or groups, in the middle of the rectangle, along its longer side.
    virtual void PaintLine(MControl& control, MDrawer& drawer, const MRect& rect) = 0;
    /// What lies behind selected text.
    virtual void PaintSelection(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) = 0;
    /// A mark over something: where dragged things go, what a search has found.
    virtual void PaintHighlight(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) = 0;
    virtual void PaintTreeExpander(MControl& control, MDrawer& drawer, const MRect& rect, bool isOpen,
                                   uint8_t drawState) = 0;
    /// What a control of the classes knob, rotator, tracker or progress bar shows, by its class. The rectangle is
    /// that of the dial, the whole of a tracker, or what the frame of a bar leaves.
    virtual void PaintValue(MControl& control, MDrawer& drawer, const MRect& rect,
                            const MValueLook& look) = 0;
    /// The button of a tab; without what is in it.
    virtual void PaintTab(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) = 0;
    virtual void PaintMenuBarItem(MControl& control, MDrawer& drawer, const MRect& rect,
                                  uint8_t drawState) = 0;
    /// The bar between two panels; `isVertical` if they stand side by side.
    virtual void PaintSplitter(MControl& control, MDrawer& drawer, const MRect& rect, bool isVertical,
                               uint8_t drawState) = 0;
    /// Whether a control is in the colours of what is selected: by itself or by its parent, not by both.
    [[nodiscard]] virtual bool IsInverted(MControl& control) = 0;
    virtual void PaintCaption(MControl& control, MDrawer& drawer) = 0;
    [[nodiscard]] virtual MControl* GetCaptionPanel(MControl& control) = 0;

protected:
    MWindows* const owner;  ///< not owned

private:
    MString name;
};
