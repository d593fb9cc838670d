#include "builder/checks/MElementCheck.h"

#include "builder/checks/MPlatforms.h"
#include "foundation/text/MStringFormatter.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

/// What a definition says of an element. Lists are words with single blanks between them.
struct ElementRule {
    std::string_view name;
    /// Elements that it stands in; none for the root.
    std::string_view parents;
    std::string_view required;
    /// Of several in one parent only the first would be read.
    bool isSingle = false;

    /// The rule of an element where it stands, or null.
    [[nodiscard]] static const ElementRule* Find(const MXMLItem& item);
    /// Whether an attribute is read as a number.
    [[nodiscard]] static bool IsNumber(const MString& attribute);
    /// Whether a list has a word, ignoring case.
    [[nodiscard]] static bool HasWord(std::string_view list, const MString& word);

    /// Calls `visit(MString)` for each word of a list.
    template <class Visitor>
    static void ForEachWord(std::string_view list, Visitor visit) {
        while (!list.empty()) {
            const size_t blank = std::min(list.find(' '), list.size());
            visit(MString::Copy(list.data(), static_cast<int32_t>(blank)));
            list.remove_prefix(std::min(blank + 1, list.size()));
        }
    }
};

constexpr std::string_view Pages = "onstart onsuccess onerror onabort";

constexpr ElementRule Rules[] = {
    {"install", "", "name", true},
    {"uninstall", "install", "", false},
    {"topimage", "install", "name", true},
    {"leftimage", "install", "name", true},
    {"scaled", "topimage leftimage", "percent name", false},
    {"onstart", "install", "", true},
    {"licence", "install", "name", true},
    {"configuration", "install", "id name", false},
    {"directory", "install", "id name default", false},
    {"files", "install", "destination", false},
    {"executeupdate", "install", "", true},
    {"shortcutdirectory", "install shortcutdirectory", "name", false},
    {"shortcut", "install shortcutdirectory", "name", false},
    {"onsuccess", "install", "", true},
    {"onerror", "install", "", true},
    {"onabort", "install", "", true},
    {"info", Pages, "", false},
    {"execute", Pages, "destination", false},
    {"default", "directory", "", false},
    {"copy", "files", "destination", false},
    {"extension", "copy", "src dst", false},
    {"dir", "files dir", "name", false},
    {"file", "files dir", "name", false},
};

constexpr std::string_view Numbers = "update wait enabled windows linux setup x64 Hidden StoreSystemDefaults "
                                     "required rewritable uninstall createpath ignoresubdirs desktop";

const ElementRule* ElementRule::Find(const MXMLItem& item) {
    const MString parent = item.GetParent() ? item.GetParent()->GetName() : MString();
    const auto* const found = std::find_if(std::begin(Rules), std::end(Rules), [&](const ElementRule& rule) {
        const bool isPlaced = item.GetParent() ? HasWord(rule.parents, parent) : rule.parents.empty();
        return isPlaced && HasWord(rule.name, item.GetName());
    });
    return found == std::end(Rules) ? nullptr : found;
}

bool ElementRule::IsNumber(const MString& attribute) {
    return HasWord(Numbers, attribute);
}

bool ElementRule::HasWord(std::string_view list, const MString& word) {
    bool isFound = false;
    ForEachWord(list, [&](const MString& candidate) { isFound = isFound || candidate == word; });
    return isFound;
}

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
    const ElementRule* rule = ElementRule::Find(item);
    if (!rule) {
        problems.AddWarning(
            definition.GetLine(item),
            MFormat("Nothing reads an element \"{0}\" here. Correct its name or move it.", item.GetName()));
        return;
    }
    ElementRule::ForEachWord(rule->required,
                             [&](const MString& attribute) { CheckRequired(item, attribute); });
    CheckConditional(item);
    CheckNumbers(item);
    if (rule->isSingle) CheckSingle(item);
    if (item.GetName() == "scaled") CheckScale(item);
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
        if (ElementRule::IsNumber(attribute->name) && !IsNumberText(attribute->value))
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

void MElementCheck::CheckScale(const MXMLItem& item) {
    constexpr int32_t LargestScale = 1000;
    const MString text = item.GetAttribute("percent", "");
    // A missing percentage is told as a missing attribute.
    if (text.IsEmpty()) return;
    const int32_t percent = item.GetInt32Attribute("percent", 0);
    if (!IsNumberText(text) || percent < 1 || percent > LargestScale)
        problems.AddError(definition.GetLine(item),
                          MFormat("There is no scale of \"{0}\" percent. Write a whole number from 1 to {1}.",
                                  text, LargestScale));
    bool isGiven = percent == 100;
    for (const MXMLItem* other = item.GetPrevious(); other && !isGiven; other = other->GetPrevious())
        isGiven = other->GetName() == "scaled" && other->GetInt32Attribute("percent", 0) == percent;
    if (isGiven)
        problems.AddWarning(
            definition.GetLine(item),
            MFormat("There is a picture for {0} percent already, which is shown. Remove this one.", percent));
}

void MElementCheck::CheckPages() {
    const MXMLItem& root = definition.GetRoot();
    for (const char* name : {"onsuccess", "onerror", "onabort"})
        if (!root.FindSubItem(name))
            problems.AddError(definition.GetLine(root),
                              MFormat("The page \"{0}\" is missing. Add <{1}><info type=\"...\"/></{2}>.",
                                      name, name, name));
}
