#include "ui/stml/MSTMLPlainText.h"

#include "foundation/base/MGuard.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr const char* LineTags[] = {"p",  "left", "center", "right",   "justify",
                                    "tr", "td",   "li",     "header1", "header2"};

}  // namespace

MString MSTMLPlainText::Of(const MString& markup) {
    MSTMLPlainText reader;
    MGuard("MSTMLPlainText::Of", [&] { reader.ParseText(markup); });
    return reader.text.Trimmed();
}

bool MSTMLPlainText::OnText(const MString& words) {
    if (isLineDue) {
        if (words.Trimmed().IsEmpty()) return false;
        if (!text.IsEmpty()) text.Append('\n');
        isLineDue = false;
    }
    text += words;
    return false;
}

void MSTMLPlainText::OnTag(const MString& name, const MSTMLAttributes& attributes, bool isClosing) {
    const auto isName = [&](const char* tag) { return name.IsExactly(tag); };
    if (std::ranges::any_of(LineTags, isName))
        isLineDue = true;
    else
        ReplayTagSet(name, attributes, isClosing);
}
