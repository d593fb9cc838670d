#pragma once

#include "setup/choices/MConfigurationChoice.h"
#include "setup/wizard/MSetupPage.h"
#include "ui/widgets/buttons/MRadioGroup.h"

/// What kind of installation it is to be: one of the alternatives of the definition.
class MConfigurationSetupPage : public MSetupPage {
public:
    MConfigurationSetupPage(MControl& parent, const MString& name);

    /// With nothing to choose from.
    [[nodiscard]] bool ShouldSkip(bool back) override;
    [[nodiscard]] bool IsNextEnabled() override { return Group.GetChosen() != nullptr; }
    /// Raises an `MException` without text, after telling why, for an alternative that cannot be taken on
    /// this system.
    bool OnNext() override;
    [[nodiscard]] MControl* GetFirstControl() override { return Group.GetChosen(); }

private:
    MConfigurationChoice choice;
    MRadioGroup Group;
};
