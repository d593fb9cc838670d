#pragma once

#include "ui/control/MContainers.h"
#include "ui/widgets/scrolling/MScrollBar.h"

/// A view of something larger, with scroll bars as long as they are needed. Controls go into the container, which
/// is as large as they need, and at least as large as the view. The keyboard scrolls, and whatever it goes to in
/// the container is brought into view.
///
/// Places and sizes are in pixels.
class MScroller : public MControl {
public:
    explicit MScroller(MControl* parent = nullptr, const MString& name = MString());

    [[nodiscard]] MControl& GetContainer() const { return *content; }
    /// What of the content lies left of and above the view.
    [[nodiscard]] MPoint GetScroll() const { return scroll; }
    /// Is limited.
    void ScrollTo(MPoint newScroll);

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    [[nodiscard]] MFlexibility GetFlexibility() override { return MFlexibleBoth; }
    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    /// A child of the control, in place of a container. Its parent is given to `makeContent`, which makes it.
    template <class MakeContent>
    MScroller(MControl* parent, const MString& name, MakeContent makeContent) : MControl(parent, name) {
        SetContent(makeContent(view));
    }
    /// What the content needs, at a width that it can have.
    [[nodiscard]] virtual MPoint GetNeededSize(int32_t width);
    /// How far a step goes.
    [[nodiscard]] virtual int32_t GetStep();
    /// Where the content is seen, in own coordinates.
    [[nodiscard]] MRect GetViewRectangle() const;
    bool ProcessKey(const MSystemEvent& event);

private:
    /// Clips what it shows a part of.
    class View final : public MControlContainer {
    public:
        explicit View(MScroller& scroller) : MControlContainer(&scroller, "view"), scroller(scroller) {}

        void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override;
        void Reveal(const MRect& rect) override;

    private:
        MScroller& scroller;
    };

    static constexpr int32_t StepsOfWheel = 3;

    void SetContent(MControl& newContent);
    void OnBarMoved(const MOnNotifyParams& params);
    void OnPageKey(const MOnKeyboardShortcutParams& params);

    MScrollBar horizontal{this, "hscrollbar", false};
    MScrollBar vertical{this, "vscrollbar", true};
    View view{*this};
    MControl* content = nullptr;
    MPoint needed;  ///< by the content
    MPoint scroll;
};
