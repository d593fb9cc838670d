#include "setup/choices/MExecuteChoices.h"

#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLSubItems.h"

void MExecuteChoices::Validate() const {
    for (const MXMLItem& execute : MXMLSubItems(page, "execute")) (void)execute.GetAttribute("destination");
}

const MXMLItem* MExecuteChoices::NextItem(const MPathMacros& macros, MUserDialogs& dialogs) {
    while (cursor < page.GetSubItemCount()) {
        const MXMLItem& item = *page.GetSubItem(cursor++);
        if (item.GetName() == "info") return &item;
        if (!(item.GetName() == "execute")) continue;
        const MString destination = macros.ExpandPath(item.GetAttribute("destination"));
        if (!IsChosen(item, destination)) continue;
        try {
            const MString directory = MFile::GetDirectory(destination);
            if (item.GetInt32Attribute("wait", 0) != 0)
                dialogs.Await([&] { (void)MFile::Execute(destination, {}, directory, true); });
            else
                (void)MFile::Execute(destination, {}, directory, false);
        } catch (const MException& exception) {
            dialogs.ShowError(exception.GetMessage());
        }
    }
    return nullptr;
}

bool MExecuteChoices::IsChosen(const MXMLItem& execute, const MString& destination) const {
    if (scope == MExecuteScope::None || execute.GetInt32Attribute("enabled", 1) == 0) return false;
    if (scope == MExecuteScope::UnaskedPrograms && !execute.GetValue().IsEmpty()) return false;
    if (destination.Contains("://")) return scope == MExecuteScope::Everything;
    return MFile::Exists(destination);
}
