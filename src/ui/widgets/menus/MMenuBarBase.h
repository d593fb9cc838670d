#pragma once

#include "ui/control/MControl.h"
#include "ui/widgets/menus/MMenuBase.h"

#include <cstdint>
#include <memory>

/// A row of items, each of which opens a menu beneath it. Alt or F10 takes the keyboard there from anywhere in
/// the window, and Alt with the first letter of an item opens that; then arrows go along the bar and from menu to
/// menu. When a menu is closed, the control that had the focus before has it again.
class MMenuBarBase : public MControl, private MMenuNeighbours {
public:
    explicit MMenuBarBase(MControl* parent = nullptr, const MString& name = MString());

    [[nodiscard]] int32_t GetItemCount() const { return items.GetCount(); }
    [[nodiscard]] MMenuBase& GetMenuBase(int32_t index) const { return *items[index]->menu; }
    void SetItemEnabled(int32_t index, bool isEnabled);
    /// Whose menu is open, or -1.
    [[nodiscard]] int32_t GetOpenItem() const { return openItem; }
    /// Nothing happens for one that is disabled.
    void OpenItem(int32_t index);
    /// In own coordinates.
    [[nodiscard]] MRect GetItemRect(int32_t index);

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void PaintContent(MDrawer& drawer) override;
    bool PreviewEvent(MControl* target, const MSystemEvent& event) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    bool ProcessGlobalEvent(const MSystemEvent& event) override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    void AddBarItem(const MString& text, std::unique_ptr<MMenuBase> menu);

private:
    struct Item {
        MString text;
        std::unique_ptr<MMenuBase> menu;
        bool isEnabled = true;
    };

    bool OpenNeighbour(int32_t step) override;
    void OnMenuClosed() override;

    [[nodiscard]] int32_t GetItemWidth(const Item& item);
    [[nodiscard]] int32_t FindItemAt(MPoint point);
    [[nodiscard]] int32_t FindEnabled(int32_t index, int32_t step) const;
    void SetCurrentItem(int32_t index);
    void OpenByKey(int32_t index);
    bool ProcessKey(int32_t key);
    /// Takes the focus, or gives it back.
    void ToggleFocus();
    void GiveFocusBack();

    MList<Item, MListOwning> items;
    MControlRef focusBefore;
    int32_t openItem = -1;
    int32_t currentItem = -1;  ///< that the mouse or the keyboard is on
    bool isChanging = false;   ///< from one menu to another
    bool isAltAlone = false;   ///< was pressed, and nothing since
};
