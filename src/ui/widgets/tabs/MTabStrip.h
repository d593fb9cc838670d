#pragma once

#include "ui/control/MControl.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/widgets/buttons/MRepeaterButton.h"

#include <cstdint>
#include <optional>
#include <vector>

class MTabSet;

/// The buttons of a tab set, one beside the other. Where they do not fit, they are shrunk, or scrolled by two
/// buttons on the borders.
class MTabStrip final : public MControl {
public:
    explicit MTabStrip(MTabSet& tabs);

    /// Of a tab: what it shows, and its length in pixels at 100 percent, 0 for that of what it shows.
    struct Button {
        MString text;
        std::optional<MStdIcon> icon;
        int32_t size = 0;
        bool isEnabled = true;
    };

    void AddButton(Button button);
    [[nodiscard]] int32_t GetButtonCount() const { return static_cast<int32_t>(buttons.size()); }
    [[nodiscard]] const Button& GetButton(int32_t index) const { return buttons[static_cast<size_t>(index)]; }
    void ChangeButton(int32_t index, Button button);
    void SetFitAll(bool newIsFitAll);
    /// In own coordinates, also where it is scrolled out of view.
    [[nodiscard]] MRect GetButtonRect(int32_t index);
    /// The tab whose button can be seen at a point, or -1.
    [[nodiscard]] int32_t FindButtonAt(MPoint point);
    /// Scrolls as little as it takes to see all of a button.
    void ScrollToButton(int32_t index);

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void GetContentSize(int32_t& x, int32_t& y) override;
    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override;
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;

private:
    struct Extent {
        int32_t left;
        int32_t width;
    };

    [[nodiscard]] MPoint GetContentOf(MDrawer& drawer, const Button& button);
    /// Where the buttons stand if nothing is scrolled, and last where one more would.
    [[nodiscard]] std::vector<Extent> GetExtents(int32_t room);
    /// Where buttons are seen.
    [[nodiscard]] MRect GetViewRect();
    [[nodiscard]] int32_t GetBorderButtonWidth();
    void Scroll(int32_t pixels);
    void OnBorderClick(const MOnClickParams& params);
    void PaintButton(MDrawer& drawer, int32_t index, const MRect& rect);
    void SetHovered(int32_t index);
    [[nodiscard]] int32_t FindEnabled(int32_t index, int32_t step) const;
    bool ProcessKey(int32_t key, MKeyModifiers modifiers);

    MTabSet& tabs;
    std::vector<Button> buttons;
    MRepeaterButton* const leftButton;  ///< children, without size when everything is seen
    MRepeaterButton* const rightButton;
    int32_t scrollPlace = 0;  ///< so many pixels are to the left of the view
    int32_t hovered = -1;
    bool isFitAll = false;
    bool isScrollable = false;
};
