#pragma once

#include "ui/control/MContainers.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/layout/MLayoutSwitch.h"
#include "ui/widgets/menus/MMenu.h"
#include "ui/widgets/tabs/MTabPopup.h"
#include "ui/widgets/tabs/MTabStrip.h"

#include <cstdint>
#include <memory>
#include <vector>

/// Pages in the place of one another, each with a button on top. A page can be taken out to a window of its own,
/// so that several are seen at once; when that is closed the page is back. `ExecuteOnChange` is raised when the
/// user has selected a tab. With `SaveValue` the window's state has "selected".
class MTabSet : public MControl {
public:
    explicit MTabSet(MControl* parent = nullptr, const MString& name = MString());
    ~MTabSet() override;

    /// Gives the page, whose controls the caller adds. `size`: see `MTabStrip::Button`.
    MPanel& AddTab(const MString& text, std::optional<MStdIcon> icon = std::nullopt, int32_t size = 0);
    [[nodiscard]] int32_t GetTabCount() const { return static_cast<int32_t>(pages.size()); }
    [[nodiscard]] MPanel& GetPage(int32_t index) const { return *pages[static_cast<size_t>(index)].panel; }
    void SetTabText(int32_t index, const MString& text);
    void SetTabEnabled(int32_t index, bool isEnabled);
    [[nodiscard]] MTabStrip& GetStrip() const { return *strip; }

    /// -1 without tabs.
    [[nodiscard]] int32_t GetSelectedTab() const { return selected; }
    /// Raises nothing.
    void SelectTab(int32_t index);
    /// Shows the selected page and its button. What handlers throw ends it.
    void Actualise();
    /// Shrinks the buttons to the width that there is, rather than scrolling them.
    void SetFitAllButtons(bool isFitAll) { strip->SetFitAll(isFitAll); }

    /// Takes a page out to a window of its own, or brings that to the front.
    void ShowInPopup(int32_t index);
    [[nodiscard]] bool IsInPopup(int32_t index) const;
    /// All tabs to choose from, below a rectangle of the screen.
    void OpenContextMenu(const MRect& anchorOnScreen);
    /// As the user does: raises `ExecuteOnChange` if it was another one.
    void ChooseTab(int32_t index);

    /// "fitallbuttons", "selected", and the items "item", which may stand in "items", with "text", "icon", "size"
    /// and "enabled", and the elements of their pages.
    void LoadFromXml(MXMLItem& item) override;
    void SaveValueState(MXMLItem& item) override;
    void LoadValueState(MXMLItem& item) override;
    void WriteHelpInfo(MXMLItem& item) override;
    [[nodiscard]] bool PaintsNothing() override { return GetStyle() && GetStyle()->PaintsNothing(*this); }

private:
    struct Page {
        MPanel* panel;  ///< a child
        std::unique_ptr<MTabPopup> popup;
    };

    void OnMenuItem(const MOnItemParams<MMenuItem>& params);
    void OnPageKey(const MOnKeyboardShortcutParams& params);
    void LoadTabs(MXMLItem& group);

    MTabStrip* const strip;       ///< a child
    MLayoutSwitch* switchLayout;  ///< of the pages
    std::vector<Page> pages;
    MMenu contextMenu{"MTabSetContextMenu"};
    int32_t selected = -1;
};
