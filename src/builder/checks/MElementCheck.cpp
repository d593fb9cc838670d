#include "builder/checks/MElementCheck.h"

#include "builder/checks/MElementRule.h"
#include "builder/checks/MPlatforms.h"
#include "foundation/text/MStringFormatter.h"

namespace {

bool HasAttribute(const MXMLItem& item, const MString& name) {
    for (const MAttribute* attribute : item.GetAttributes())
        if (attribute->name == name) return true;
    return false;
}

bool IsNumberText(const MString& text) {
    const int32_t start = !text.IsEmpty() && text[0] == MChar('-') ? 1 : 0;
    if (start == text.GetLength()) return false;
    for (int32_t i = start; i < text.GetLength(); ++i)
        if (!text[i].IsDigit()) return false;
    return true;
}

}  // namespace

void MElementCheck::Run() {
    const MXMLItem& root = definition.GetRoot();
    if (!(root.GetName() == "install")) {
        problems.AddError(definition.GetLine(root),
                          MFormat("The outermost element is \"{0}\". Make it \"install\".", root.GetName()));
        return;
    }
    CheckItem(root);
    CheckPages();
}

void MElementCheck::CheckItem(const MXMLItem& item) {
    const MElementRule* rule = MElementRule::Find(item);
    if (!rule) {
        problems.AddWarning(
            definition.GetLine(item),
            MFormat("Nothing reads an element \"{0}\" here. Correct its name or move it.", item.GetName()));
        return;
    }
    MElementRule::ForEachWord(rule->required,
                              [&](const MString& attribute) { CheckRequired(item, attribute); });
    CheckConditional(item);
    CheckNumbers(item);
    if (rule->isSingle) CheckSingle(item);
    for (const MXMLItem* child : item.GetSubItems()) CheckItem(*child);
}

void MElementCheck::CheckRequired(const MXMLItem& item, const MString& attribute) {
    if (HasAttribute(item, attribute)) return;
    problems.AddError(definition.GetLine(item),
                      MFormat("\"{0}\" lacks the attribute \"{1}\". Add it.", item.GetName(), attribute));
}

void MElementCheck::CheckConditional(const MXMLItem& item) {
    const MString& name = item.GetName();
    // A component needs a name as soon as it has a row.
    if (name == "files" && item.GetInt32Attribute("required", 0) == 0 && MPlatforms(item).IsAnywhere())
        CheckRequired(item, "name");
    if (!(name == "shortcut")) return;
    const MString preset = item.GetAttribute("preset", "");
    if (preset.IsEmpty())
        CheckRequired(item, "destination");
    else if (!(preset == "uninstall" || preset == "update"))
        problems.AddError(definition.GetLine(item),
                          MFormat("There is no preset \"{0}\". Use \"uninstall\" or \"update\".", preset));
}

void MElementCheck::CheckNumbers(const MXMLItem& item) {
    for (const MAttribute* attribute : item.GetAttributes())
        if (MElementRule::IsNumber(attribute->name) && !IsNumberText(attribute->value))
            problems.AddWarning(
                definition.GetLine(item),
                MFormat("\"{0}\" is \"{1}\", which counts as 0 or as the digits it begins with. "
                        "Write 0 or 1.",
                        attribute->name, attribute->value));
}

void MElementCheck::CheckSingle(const MXMLItem& item) {
    for (const MXMLItem* other = item.GetPrevious(); other; other = other->GetPrevious()) {
        if (!(other->GetName() == item.GetName())) continue;
        problems.AddWarning(definition.GetLine(item),
                            MFormat("Only the first \"{0}\" is read. Remove this one.", item.GetName()));
        return;
    }
}

void MElementCheck::CheckPages() {
    const MXMLItem& root = definition.GetRoot();
    for (const char* name : {"onsuccess", "onerror", "onabort"})
        if (!root.FindSubItem(name))
            problems.AddError(definition.GetLine(root),
                              MFormat("The page \"{0}\" is missing. Add <{1}><info type=\"...\"/></{2}>.",
                                      name, name, name));
}
