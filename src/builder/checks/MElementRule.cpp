#include "builder/checks/MElementRule.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view Pages = "onstart onsuccess onerror onabort";

constexpr MElementRule Rules[] = {
    {"install", "", "name", true},
    {"uninstall", "install", "", false},
    {"topimage", "install", "name", true},
    {"leftimage", "install", "name", true},
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

}  // namespace

const MElementRule* MElementRule::Find(const MXMLItem& item) {
    const MString parent = item.GetParent() ? item.GetParent()->GetName() : MString();
    const auto* const found = std::find_if(std::begin(Rules), std::end(Rules), [&](const MElementRule& rule) {
        const bool isPlaced = item.GetParent() ? HasWord(rule.parents, parent) : rule.parents.empty();
        return isPlaced && HasWord(rule.name, item.GetName());
    });
    return found == std::end(Rules) ? nullptr : found;
}

bool MElementRule::IsNumber(const MString& attribute) {
    return HasWord(Numbers, attribute);
}

bool MElementRule::HasWord(std::string_view list, const MString& word) {
    bool isFound = false;
    ForEachWord(list, [&](const MString& candidate) { isFound = isFound || candidate == word; });
    return isFound;
}
