#include "foundation/xml/MEntities.h"

#include <algorithm>

namespace {

struct Entity {
    std::string_view name;
    char16_t character;
    const char* reference;
};

constexpr Entity Entities[] = {
    {"amp", u'&', "&amp;"},    {"lt", u'<', "&lt;"},     {"gt", u'>', "&gt;"},
    {"apos", u'\'', "&apos;"}, {"quot", u'"', "&quot;"}, {"#10", u'\n', "&#10;"},
};

bool IsNamed(const Entity& entity, std::u16string_view text) {
    if (text.size() <= entity.name.size() || text[entity.name.size()] != ';') return false;
    return std::ranges::equal(entity.name, text.substr(0, entity.name.size()),
                              [](char expected, char16_t unit) {
                                  return MChar(expected) == MChar(unit).FoldDiacritics().ToLower();
                              });
}

/// The entity whose name and ";" the text begins with, or null.
const Entity* FindByName(std::u16string_view text) {
    const Entity* found =
        std::ranges::find_if(Entities, [&](const Entity& entity) { return IsNamed(entity, text); });
    return found == std::end(Entities) ? nullptr : found;
}

const Entity* FindByCharacter(char16_t character) {
    // None lies behind it.
    if (character > u'>') return nullptr;
    const Entity* found = std::ranges::find(Entities, character, &Entity::character);
    return found == std::end(Entities) ? nullptr : found;
}

}  // namespace

void MEntities::Decode(std::u16string_view text, std::u16string& target) {
    while (!text.empty()) {
        const size_t plain = std::min(text.find(u'&'), text.size());
        target.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) return;
        text.remove_prefix(1);
        const Entity* entity = FindByName(text);
        target.push_back(entity ? entity->character : u'&');
        if (entity) text.remove_prefix(entity->name.size() + 1);
    }
}

void MEntities::Escape(const MString& text, MString& target) {
    int32_t copied = 0;
    for (int32_t i = 0; i < text.GetLength(); ++i) {
        const Entity* entity = FindByCharacter(text[i]);
        if (!entity) continue;
        target.Append(text.Substring(copied, i - copied));
        target.Append(entity->reference);
        copied = i + 1;
    }
    target.Append(copied == 0 ? text : text.Substring(copied));
}

MString MEntities::Escape(const MString& text) {
    MString escaped;
    Escape(text, escaped);
    return escaped;
}
