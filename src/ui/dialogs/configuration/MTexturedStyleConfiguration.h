#pragma once

#include "ui/dialogs/configuration/MBaseStyleConfiguration.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/widgets/lists/MListBox.h"

/// The configuration of textured styles: also lets the user choose one of those that are installed.
class MTexturedStyleConfiguration final : public MBaseStyleConfiguration {
public:
    /// The style outlives the control.
    explicit MTexturedStyleConfiguration(MTexturedStyle& style, MControl* parent = nullptr,
                                         const MString& name = MString());

    void ShowSettings() override;

private:
    void OnStyle(const MOnNotifyParams&);

    MTexturedStyle& textured;
    MListBox& styles;
};
