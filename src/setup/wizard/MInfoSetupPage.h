#pragma once

#include "foundation/base/MList.h"
#include "setup/choices/MExecuteChoices.h"
#include "setup/choices/MUpdateOffer.h"
#include "setup/wizard/MSetupPage.h"

#include <optional>

class MCheckBox;
class MScroller;
class MStatic;
class MStaticMultiLine;

/// Screens of information one after the other, and programs that start between them: the page "onstart" and
/// those at the end. Programs with a text have a tick box on the page. At the end of a run a button shows
/// what it has done.
class MInfoSetupPage : public MSetupPage {
public:
    /// `element` holds the screens and programs. With an offer to look for updates, which may be null and is
    /// not owned, the page has a box for that. Raises "Could not find required attribute (destination)." (0).
    MInfoSetupPage(MControl& parent, const MString& name, MXMLItem& element, MUpdateOffer* updateOffer);

    [[nodiscard]] bool ShouldSkip(bool back) override;
    bool OnNext() override;
    void OnExit() override;

private:
    void AddBoxes(MUpdateOffer* updateOffer);
    MCheckBox& AddBox(MLayout& column, const MString& markup, bool isOn);
    void OnExecuteBox(const MOnNotifyParams& params);
    void OnUpdateBox(const MOnNotifyParams& params);
    void ShowInfo(const MXMLItem& info);
    void AddDetails();
    /// Of a run that has done something.
    void ShowDetails();
    void OnDetails(const MOnClickParams& params);

    MXMLItem& Element;
    MUpdateOffer* offer;
    std::optional<MExecuteChoices> script;
    MList<MXMLItem, MListPointers> boxElements;  ///< in the order of the boxes
    MList<MCheckBox, MListPointers> boxes;

    // Children.
    MStatic* sign;
    MStaticHeader* Header;
    MScroller* view;
    MStaticMultiLine* Body;
    MControlContainer* details;
    MStaticMultiLine* summary;
};
