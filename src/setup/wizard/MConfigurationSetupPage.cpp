#include "setup/wizard/MConfigurationSetupPage.h"

#include "foundation/text/MStringFormatter.h"
#include "setup/wizard/MChoiceText.h"
#include "setup/wizard/MSetupWindow.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/scrolling/MScroller.h"

MConfigurationSetupPage::MConfigurationSetupPage(MControl& parent, const MString& name)
    : MSetupPage(parent, name), choice(GetDefinition()) {
    AddHeader(MTranslate("Click the type of setup you prefer, then click Next."));
    MScroller& view = AddView();
    auto& column = *new MLayoutVertical(view.GetContainer());
    column.space = 8;
    for (const MXMLItem* alternative : choice.GetAlternatives()) {
        MCheckBox& box = AddBox(view.GetContainer(), alternative->GetAttribute("id"),
                                MChoiceText(alternative->GetAttribute("name"), alternative->GetValue()));
        column.Add(box);
        box.Set(MCheckBoxState::On);
        Group.Add(box);
        box.SetEnabled(choice.IsAvailable(*alternative));
    }
    auto& rest = *new MControlContainer(&view.GetContainer(), "Space");
    column.Add(rest);
}

bool MConfigurationSetupPage::ShouldSkip(bool) {
    return choice.GetAlternatives().GetCount() < 2;
}

bool MConfigurationSetupPage::OnNext() {
    try {
        for (int32_t i = 0; i < Group.GetBoxes().GetCount(); ++i)
            if (Group.GetBoxes()[i]->IsOn())
                choice.Apply(*choice.GetAlternatives()[i], GetWindow().GetSession());
    } catch (const MException& exception) {
        GetWindow().GetDialogs().ShowError(exception.GetMessage());
        throw MException(MString(), MString(), MExceptionGeneral);
    }
    return true;
}
