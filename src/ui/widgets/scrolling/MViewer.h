#pragma once

#include "ui/stml/MSTML.h"
#include "ui/widgets/scrolling/MFindBar.h"
#include "ui/widgets/scrolling/MSTMLTextMap.h"
#include "ui/widgets/scrolling/MScroller.h"

/// Rich text in a view that scrolls. Ctrl+F opens an entry that searches it; web addresses can be clicked, and Tab
/// goes from one to the next before it leaves the control.
class MViewer : public MScroller {
public:
    explicit MViewer(MControl* parent = nullptr, const MString& name = MString());

    /// With mark-up (`MSTMLParser`). Shows its beginning.
    void SetText(const MString& markup);
    /// For images and default flags; after changes of those call `SetText`.
    [[nodiscard]] MSTML& GetDocument() { return document; }
    /// An address was chosen. Without handlers it is shown by the user's browser.
    [[nodiscard]] MEvent<MOnStringParams>& OnLink() { return linkEvent; }

    /// Marks where a text is, without regard to case, and brings the first place into view that is not above what
    /// is seen. The empty text marks nothing. Returns how many there are.
    int32_t Find(const MString& wanted);
    /// Goes to the next place, or to the one before; behind the last one comes the first.
    void FindNext(int32_t step = 1);
    void OpenFindBar();
    void CloseFindBar();

    void LoadFromXml(MXMLItem& item) override;
    void OnPrepared() override;
    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override;
    bool PreviewEvent(MControl* target, const MSystemEvent& event) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    [[nodiscard]] MPoint GetNeededSize(int32_t width) override;

private:
    /// The text itself.
    class Page final : public MControl {
    public:
        Page(MControl& parent, MViewer& viewer);

        void PaintContent(MDrawer& drawer) override;
        bool ProcessEvent(const MSystemEvent& event) override;
        [[nodiscard]] MStdCursor GetCursorAt(MPoint point) override;

    private:
        MViewer& viewer;
    };

    /// Between the edge of the view and the text.
    [[nodiscard]] MPoint GetBorder();
    /// In coordinates of the page.
    [[nodiscard]] MRect GetTextRectangle();
    /// Of the text in its present size.
    [[nodiscard]] const MSTMLTextMap& GetMap();
    void ForgetMap();
    void Mark();
    void OpenLink(const MTextRange& link);
    /// The keyboard is on a web address, or on none for -1.
    void FocusLink(int32_t index);
    bool ProcessLinkKey(const MSystemEvent& event);
    void OnFindKey(const MOnKeyboardShortcutParams& params);
    void OnWantedChanged(const MOnStringParams& params);

    MSTML document;
    std::unique_ptr<MSTMLTextMap> map;  ///< null until it is needed
    MEvent<MOnStringParams> linkEvent;
    MFindBar findBar{*this, "find"};
    MString wanted;
    std::vector<MTextRange> found;
    int32_t current = -1;      ///< of what was found
    int32_t focusedLink = -1;  ///< of the web addresses
    bool hasLinks = false;
    bool isListening = false;
};
