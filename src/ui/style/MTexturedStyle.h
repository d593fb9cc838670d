#pragma once

#include "ui/style/MBaseStyle.h"
#include "ui/style/MClassLook.h"

#include <array>
#include <memory>

struct MImageContext;

/// The look of the program: all of its pictures and numbers come from a definition, an XML document with the
/// root `mstyle` in a resource library beside the pictures that it names (docs/style.md). Styles are the files
/// "*.mstyle" in the folder "MTexturedStyles" of the shared data directory, and the library that travels
/// inside of the program.
///
/// Until a definition was loaded everything that needs one raises "Style resources have not been loaded." (0).
class MTexturedStyle final : public MBaseStyle {
public:
    static constexpr const char* DefaultName = "Default";

    /// See `MBaseStyle`. Nothing is loaded yet.
    MTexturedStyle(MWindows* owner, MResourceLibrary* builtIn, FontSource fontSource = FontSource::System);
    ~MTexturedStyle() override;

    /// Reads the settings file, if there is one, and opens the style that it names, else "Default", else the
    /// first that there is. Raises "No styles are available. Please reinstall the software." (0), and "No
    /// fonts are available on the system." (0).
    void LoadStyle();

    [[nodiscard]] MString GetInfo() override;
    [[nodiscard]] MString GetName() override { return settings.style; }
    [[nodiscard]] MString GetStyleLibrary() override { return "MTexturedStyles"; }
    /// Also opens the style that the settings name. Raises as `LoadStyle`.
    void LoadFromSettings(MXMLItem& item) override;
    void LoadDefinition(MXMLItem& definition) override;
    void Unload() override;

    [[nodiscard]] MColor GetCaptionColor(MControl& control) override;
    [[nodiscard]] int32_t GetMetric(int32_t index) override;
    [[nodiscard]] bool HitCaption(MControl& control, MPoint point) override;
    [[nodiscard]] MPoint GetMinimalSize(MControl& control) override;
    [[nodiscard]] MPoint GetCollapsedSize(MControl& control) override;
    [[nodiscard]] MPoint GetPartSize(MControl& control, MStylePart part) override;
    void OffsetContent(MControl& control, MPoint& point) override;
    [[nodiscard]] double GetTrackerPosition(MControl& control, MPoint point) override;
    [[nodiscard]] MRect GetTrackerRect(MControl& control, double value) override;
    [[nodiscard]] bool IsInverted(MControl& control) override;

    void AttachControl(MControl& control) override;
    void DetachControl(MControl& control) override;
    void ComputeRectangles(MControl& control, MRect& windowRect, MRect& clientRect) override;
    [[nodiscard]] bool PreprocessEvent(MControl& control, const MSystemEvent& event) override;
    void PaintControl(MControl& control, MDrawer& drawer) override;
    [[nodiscard]] bool PaintsNothing(MControl& control) override;
    [[nodiscard]] MRect GetOpaquePart(MControl& control) override;
    void PaintCaption(MControl& control, MDrawer& drawer) override;
    [[nodiscard]] MControl* GetCaptionPanel(MControl& control) override;

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

protected:
    [[nodiscard]] Frame GetFrame(MControl& control) override;
    void ResetImages() override;

private:
    [[nodiscard]] std::unique_ptr<MResourceLibrary> OpenLibrary(const MString& name);
    [[nodiscard]] bool TryStyle(const MString& name);
    void ChooseStyle();

    [[nodiscard]] MClassLook& GetLook(MStyleClass styleClass);
    [[nodiscard]] MClassLook* FindLook(MControl& control);
    /// The picture of a control as it is now; null for one that paints none.
    [[nodiscard]] ControlStyle* FindStyle(MControl& control);
    /// Where the style of a control is painted: below the caption, unless that lies on it.
    [[nodiscard]] MRect GetFaceRect(MControl& control);
    /// Null for a control without a caption of its own.
    [[nodiscard]] MCaptionLook* FindCaption(MControl& control);
    [[nodiscard]] int32_t GetCaptionHeight(MControl& control);
    /// How wide a title makes its control at most, in pixels: a longer one ends in an ellipsis.
    [[nodiscard]] int32_t GetMostTitleWidth() const;
    /// Where title and buttons stand.
    [[nodiscard]] MRect GetCaptionRect(MControl& control);
    [[nodiscard]] MImageContext GetContext() const;
    void PaintPiece(MClassLook& look, MStylePiece piece, MDrawer& drawer, const MRect& rect,
                    uint8_t drawState);
    /// With the mark of the focus, in pixels.
    [[nodiscard]] MPoint GetPieceSize(MClassLook& look, MStylePiece piece) const;
    /// In a size in pixels around a point.
    void PaintAround(MClassLook& look, MStylePiece piece, MDrawer& drawer, MPointF center, MPoint size,
                     uint8_t drawState);
    void PaintScrollBar(MStyleClass styleClass, MDrawer& drawer, const MScrollBarParts& parts);
    void PaintDial(MStyleClass styleClass, MDrawer& drawer, const MRect& rect, const MValueLook& look);
    void PaintTracker(MControl& control, MDrawer& drawer, const MRect& rect, const MValueLook& look);
    void PaintProgress(MControl& control, MDrawer& drawer, const MRect& rect, const MValueLook& look);

    std::array<MClassLook, std::size(MStyleClassNames)> looks;
    std::unique_ptr<MResourceLibrary> library;  ///< of a style file; null while the built-in one is shown
    MString libraryName;
    std::unique_ptr<MXMLItem> root;  ///< the definition, kept for its numbers
    bool isLoaded = false;
};
