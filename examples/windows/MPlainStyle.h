#pragma once

#include "ui/control/MStyle.h"
#include "ui/text/MFont.h"

#include <array>

/// A look of a few rectangles, for examples, tests and benchmarks: grey surfaces, thin frames, captions in a
/// strip. It reads nothing but its fonts, so windows look the same on every platform.
class MPlainStyle final : public MStyle {
public:
    /// `fontFolder` holds "liberation" with the faces of Liberation Sans. Raises what opening them raises.
    MPlainStyle(MWindows* owner, const MString& fontFolder);

    static constexpr int32_t Space = 8;           ///< between neighbours in a layout
    static constexpr int32_t CaptionHeight = 22;  ///< of panels and windows with a caption
    static constexpr int32_t Frame = 1;           ///< of what has a frame

    /// How often `PaintControl` was asked, for tests.
    [[nodiscard]] int64_t CountPaints() const { return paints; }

    [[nodiscard]] MString GetInfo() override { return "Plain style"; }
    [[nodiscard]] MString GetSettingsFile() override { return {}; }
    [[nodiscard]] MString GetStyleDirectory() override { return {}; }
    [[nodiscard]] MString GetStyleLibrary() override { return {}; }
    [[nodiscard]] MList<MString> ListStyles() override { return {}; }
    void LoadFromSettings(MXMLItem&) override {}
    void SaveToSettings(MXMLItem&) override {}
    void LoadDefinition(MXMLItem&) override {}
    void Unload() override {}

    [[nodiscard]] MBitmap* GetStdIcon(int32_t index) override;
    [[nodiscard]] MBitmap* GetStdBitmap(int32_t index) override;
    [[nodiscard]] MFontTable* GetFontTable() override { return nullptr; }
    [[nodiscard]] MFont* GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted, uint8_t drawState,
                                 MColor& color) override;
    [[nodiscard]] const MCursor& GetCursor(MStdCursor cursor, MControl& control, uint8_t drawState) override;
    [[nodiscard]] MColor GetColor(int32_t index, bool isInverted) override;
    [[nodiscard]] MColor GetCaptionColor(MControl& control) override;
    [[nodiscard]] int32_t GetMetric(int32_t index) override;
    [[nodiscard]] int32_t GetDrawFlags(MControl&) override { return 0; }
    [[nodiscard]] uint8_t GetDisabledAlpha(MControl&) override { return 96; }

    [[nodiscard]] MPoint ConvertToClient(MControl& control, MPoint size) override;
    [[nodiscard]] MPoint ConvertToWindow(MControl& control, MPoint size) override;
    void ComputeRectangles(MControl& control, MRect& windowRect, MRect& clientRect) override;
    [[nodiscard]] bool HitCaption(MControl& control, MPoint point) override;
    [[nodiscard]] MPoint GetMinimalSize(MControl& control) override;
    [[nodiscard]] MPoint GetDefaultSize(MControl& control) override;
    [[nodiscard]] MPoint GetMinimalClassSize(MControl& control) override;
    [[nodiscard]] MPoint GetCollapsedSize(MControl& control) override;
    void ResetSizes(MControl& control) override;
    [[nodiscard]] int32_t ScaleX(int32_t value) override { return value; }
    [[nodiscard]] int32_t ScaleY(int32_t value) override { return value; }
    void AdjustSize(MControl&, int32_t&, int32_t&) override {}

    void PaintControl(MControl& control, MDrawer& drawer) override;
    void OffsetContent(MControl& control, MPoint& point) override;
    [[nodiscard]] double GetTrackerPosition(MControl& control, MPoint point) override;
    [[nodiscard]] MRect GetTrackerRect(MControl& control, double value) override;

    [[nodiscard]] MPoint GetPartSize(MControl& control, MStylePart part) override;
    void PaintHorizontalScrollBar(MControl& control, MDrawer& drawer, const MScrollBarParts& parts) override;
    void PaintVerticalScrollBar(MControl& control, MDrawer& drawer, const MScrollBarParts& parts) override;
    void PaintCheckMark(MControl& control, MDrawer& drawer, const MRect& rect, MCheckMarkShape shape,
                        int32_t state, uint8_t drawState) override;
    void PaintListItem(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) override;
    void PaintTreeLines(MControl& control, MDrawer& drawer, const MRect& rect, int32_t lines) override;
    void PaintLine(MControl& control, MDrawer& drawer, const MRect& rect) override;
    void PaintSelection(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) override;
    void PaintHighlight(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) override;
    void PaintTreeExpander(MControl& control, MDrawer& drawer, const MRect& rect, bool isOpen,
                           uint8_t drawState) override;
    void PaintValue(MControl& control, MDrawer& drawer, const MRect& rect, const MValueLook& look) override;
    void PaintTab(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) override;
    void PaintMenuBarItem(MControl& control, MDrawer& drawer, const MRect& rect, uint8_t drawState) override;
    void PaintSplitter(MControl& control, MDrawer& drawer, const MRect& rect, bool isVertical,
                       uint8_t drawState) override;
    [[nodiscard]] bool IsInverted(MControl& control) override;
    void PaintCaption(MControl& control, MDrawer& drawer) override;
    [[nodiscard]] MControl* GetCaptionPanel(MControl&) override { return nullptr; }

private:
    /// What the frame and the caption of a control take at each side.
    struct Insets {
        int32_t side = 0;
        int32_t top = 0;
    };
    [[nodiscard]] static Insets GetInsets(const MControl& control);

    std::array<MFont, 8> fonts;
    std::array<MCursor, 14> cursors;
    MBitmap icon;
    int64_t paints = 0;
};
