#pragma once

#include "foundation/xml/MXMLItem.h"

#include <string_view>

/// What a definition says of an element. Lists are words with single blanks between them.
struct MElementRule {
    std::string_view name;
    /// Elements that it stands in; none for the root.
    std::string_view parents;
    std::string_view required;
    /// Of several in one parent only the first would be read.
    bool isSingle = false;

    /// The rule of an element where it stands, or null.
    [[nodiscard]] static const MElementRule* Find(const MXMLItem& item);
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
