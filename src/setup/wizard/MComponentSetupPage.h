#pragma once

#include "setup/choices/MComponentRows.h"
#include "setup/choices/MSpaceNeeds.h"
#include "setup/wizard/MSetupPage.h"
#include "ui/widgets/lists/MSTMLListBoxItem.h"

class MCheckBox;
class MStatic;

/// A part of the product that can be ticked, as a row of a list.
class MComponentListBoxItem final : public MSTMLListBoxItem {
public:
    using MSTMLListBoxItem::MSTMLListBoxItem;

    MComponentRow* row = nullptr;  ///< what it stands for; not owned
};

/// Which parts of the product are installed, and how large they are: tick boxes, or a list where there are
/// many. What the user has ticked is overwritten by the kind of installation each time the page is entered
/// forward.
class MComponentSetupPage : public MSetupPage {
public:
    MComponentSetupPage(MControl& parent, const MString& name);

    [[nodiscard]] bool ShouldSkip(bool back) override;
    bool OnNext() override;
    [[nodiscard]] MControl* GetFirstControl() override;

private:
    static constexpr int32_t MaximumBoxes = 8;  ///< more rows make a list

    void AddBoxes();
    /// Takes what the controls say.
    void ReadControls();
    void ShowNeeded();
    void OnBox(const MOnNotifyParams&) { ShowNeeded(); }
    void OnItem(const MOnItemParams<MComponentListBoxItem>&) { ShowNeeded(); }

    MComponentRows rows;
    MSpaceNeeds needs;
    MListBoxT<MComponentListBoxItem>* List;  ///< a child
    MList<MCheckBox, MListPointers> Boxes;   ///< in the order of the list; none where that is shown
    MStatic* needed;                         ///< a child
};
