#include "ui/dialogs/configuration/MTexturedStyleConfiguration.h"

#include "foundation/base/MGuard.h"
#include "foundation/xml/MXMLItem.h"

MTexturedStyleConfiguration::MTexturedStyleConfiguration(MTexturedStyle& style, MControl* parent,
                                                         const MString& name)
    : MBaseStyleConfiguration(style, parent, name), textured(style), styles(*new MListBox(this, "Styles")) {
    for (const MString& each : style.ListStyles()) styles.AddItem(each);
    AddRow(MTranslate("Styles"), styles);
    MTexturedStyleConfiguration::ShowSettings();
    styles.OnChange().Connect(this, &MTexturedStyleConfiguration::OnStyle);
}

void MTexturedStyleConfiguration::ShowSettings() {
    MBaseStyleConfiguration::ShowSettings();
    for (int32_t i = 0; i < styles.GetItemCount(); ++i)
        if (styles.GetItem(i)->text == textured.GetName() && styles.GetSelectedRow() != i)
            styles.SelectRow(i);
}

void MTexturedStyleConfiguration::OnStyle(const MOnNotifyParams&) {
    MListBoxItem* const item = styles.GetSelectedItem();
    if (!item || item->text == textured.GetName()) return;
    const MControlRef self(this);
    MGuard("Choose style", [&] {
        MXMLItem settings;
        textured.SaveToSettings(settings);
        settings.SetAttribute("Style", item->text);
        textured.LoadFromSettings(settings);
    });
    if (!self) return;
    ShowSettings();
    SaveSettings();
}
