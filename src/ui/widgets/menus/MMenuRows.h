#pragma once

#include "ui/widgets/lists/MRowView.h"
#include "ui/widgets/menus/MMenuItemBaseWithFeatures.h"

class MMenuBase;

/// The rows of a menu: the mouse moves along them as the keyboard does, and one is chosen when a button or Enter
/// is released.
class MMenuRows final : public MRowView {
public:
    explicit MMenuRows(MMenuBase& menu);

    /// Forgets what was done when it was open before.
    void Restart();
    void Focus(int32_t row);
    void FocusFirst() { Focus(FindSelectable(-1, 1)); }

    [[nodiscard]] int32_t GetRowCount() override;
    [[nodiscard]] MMenuItemBaseWithFeatures& GetRow(int32_t row) override;
    [[nodiscard]] int32_t GetItemHeight(int32_t row, int32_t width) override;
    void PaintItem(MDrawer& drawer, int32_t row, const MRect& rect, uint8_t drawState) override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    bool PreviewEvent(MControl* target, const MSystemEvent& event) override;
    bool ProcessEvent(const MSystemEvent& event) override;

protected:
    void GoTo(int32_t row, MKeyModifiers modifiers) override;
    [[nodiscard]] uint8_t GetRowState(int32_t row) override;
    [[nodiscard]] MRect GetTextRect(int32_t row, const MRect& rect) override;
    [[nodiscard]] MPoint GetRowBorder() override;
    void SetHoveredRow(int32_t row) override;

private:
    /// What stands beside the texts, in pixels.
    struct Margins {
        int32_t space = 0;     ///< between two of them
        int32_t mark = 0;      ///< icons and ticks, before the texts
        int32_t shortcut = 0;  ///< behind them
        int32_t arrow = 0;     ///< of sub-menus, behind those
    };

    void UpdateMargins();
    bool ProcessKey(int32_t key, MKeyModifiers modifiers);

    MMenuBase& menu;
    Margins margins;
    MPoint firstPoint;           ///< where the mouse was when the menu was opened
    bool hasMouseMoved = false;  ///< since then
    int32_t pressedKey = 0;      ///< that chooses when it is released
};
