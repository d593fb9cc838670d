#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MTextCache.h"
#include "foundation/xml/MEntities.h"
#include "foundation/xml/MMarkupReader.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Reads mark-up (dialect: MMarkupReader.h) and calls back for each tag and text. `Attribute` is made
/// from a name and a value; `AttributeList` owns what is added to it.
template <class Attribute, class AttributeList>
class MMLParser : public MObject {
public:
    /// Parses until a callback says stop or the data end. The header's "encoding" takes over behind it.
    /// Raises what `MMarkupReader`, the stream and the callbacks raise, and "Invalid file contents. "
    /// (0x100) with "No element name found.", "Special character found where attribute expected.",
    /// "Invalid character found where attribute expected.", "Invalid element finishing sequence.",
    /// "Invalid closing element syntax." or "Invalid special element sequence.".
    void Parse(MStream& stream, const MString& encoding);

    /// Where the parser stands, also after an exception; lines count from 1.
    [[nodiscard]] int32_t GetLine() const { return reader ? reader->GetLine() : 0; }
    /// The line of the "<" of the tag last read.
    [[nodiscard]] int32_t GetTagLine() const { return tagLine; }

protected:
    /// A tag. The attributes may be taken away. An element that closes itself comes twice.
    /// Returns true to stop parsing.
    virtual bool OnElement(const MString& name, AttributeList& attributes, bool isClosing) = 0;
    /// A text between tags, as it stands but for line ends. Returns true to stop parsing.
    virtual bool OnText(const MString& text) = 0;

private:
    bool ParseTag();
    bool ParseElement();
    bool ParseClosing();
    bool ParseInstruction();
    bool ParseSpecial();
    void ParseAttribute(char16_t closer);
    AttributeList TakeAttributes();
    MString TakeName(char16_t closer);
    bool GiveText(std::u16string_view text);
    MString MakeValue(std::u16string_view text);
    /// Words such as "create" fill definitions; longer texts and numbers are mostly unique.
    static bool MayComeBack(std::u16string_view text) {
        constexpr size_t WordLength = 12;
        return text.size() == 1 || (text.size() <= WordLength && !text.empty() && !MChar(text[0]).IsDigit());
    }

    std::unique_ptr<MMarkupReader> reader;
    int32_t tagLine = 0;
    MTextCache names;
    MTextCache values;
    std::u16string decoded;
    std::vector<std::unique_ptr<Attribute>> attributes;
};

template <class Attribute, class AttributeList>
void MMLParser<Attribute, AttributeList>::Parse(MStream& stream, const MString& encoding) {
    reader = std::make_unique<MMarkupReader>(stream, encoding);
    bool isTagFound = true;
    while (isTagFound) {
        std::u16string_view text;
        isTagFound = reader->TakeText(text);
        if (!text.empty() && GiveText(text)) return;
        if (isTagFound && ParseTag()) return;
    }
}

template <class Attribute, class AttributeList>
bool MMLParser<Attribute, AttributeList>::GiveText(std::u16string_view text) {
    // Most texts are the line end between two tags.
    return OnText(text == u" " ? MString(" ") : MakeValue(text));
}

template <class Attribute, class AttributeList>
MString MMLParser<Attribute, AttributeList>::MakeValue(std::u16string_view text) {
    if (text.find(u'&') != std::u16string_view::npos) {
        decoded.clear();
        MEntities::Decode(text, decoded);
        text = decoded;
    }
    if (MayComeBack(text)) return values.Get(text);
    return MString::Copy(text.data(), static_cast<int32_t>(text.size()));
}

template <class Attribute, class AttributeList>
bool MMLParser<Attribute, AttributeList>::ParseTag() {
    tagLine = reader->GetLine();
    reader->SkipBlanks();
    if (reader->TakeCharacter(u'/')) return ParseClosing();
    if (reader->TakeCharacter(u'?')) return ParseInstruction();
    if (reader->TakeCharacter(u'!')) return ParseSpecial();
    return ParseElement();
}

template <class Attribute, class AttributeList>
MString MMLParser<Attribute, AttributeList>::TakeName(char16_t closer) {
    reader->SkipBlanks();
    const std::u16string_view name = reader->TakeWord(closer);
    if (name.empty()) MMarkupReader::RaiseInvalid("No element name found.");
    return names.Get(name);
}

template <class Attribute, class AttributeList>
bool MMLParser<Attribute, AttributeList>::ParseElement() {
    const MString name = TakeName(u'/');
    bool isClosing = false;
    attributes.clear();
    for (reader->SkipBlanks(); !reader->TakeCharacter(u'>'); reader->SkipBlanks()) {
        isClosing = reader->TakeCharacter(u'/');
        if (!isClosing)
            ParseAttribute(u'/');
        else if (reader->TakeCharacter(u'>'))
            break;
        else
            MMarkupReader::RaiseInvalid("Invalid element finishing sequence.");
    }
    AttributeList taken = TakeAttributes();
    if (OnElement(name, taken, false)) return true;
    AttributeList none;
    return isClosing && OnElement(name, none, true);
}

template <class Attribute, class AttributeList>
void MMLParser<Attribute, AttributeList>::ParseAttribute(char16_t closer) {
    constexpr const char* SpecialFound = "Special character found where attribute expected.";
    const std::u16string_view word = reader->TakeWord(closer);
    if (word.empty()) MMarkupReader::RaiseInvalid(SpecialFound);
    auto attribute = std::make_unique<Attribute>(Attribute{names.Get(word), MString()});
    reader->SkipBlanks();
    if (!reader->TakeCharacter(u'='))
        MMarkupReader::RaiseInvalid("Invalid character found where attribute expected.");
    reader->SkipBlanks();
    const bool isQuoted = reader->TakeCharacter(u'"');
    const std::u16string_view text = isQuoted ? reader->TakeQuoted() : reader->TakeUnquoted(closer);
    if (!isQuoted && text.empty()) MMarkupReader::RaiseInvalid(SpecialFound);
    attribute->value = MakeValue(text);
    attributes.push_back(std::move(attribute));
}

template <class Attribute, class AttributeList>
AttributeList MMLParser<Attribute, AttributeList>::TakeAttributes() {
    AttributeList taken;
    taken.Reserve(static_cast<int32_t>(attributes.size()));
    for (auto& attribute : attributes) taken.Add(attribute.release());
    attributes.clear();
    return taken;
}

template <class Attribute, class AttributeList>
bool MMLParser<Attribute, AttributeList>::ParseClosing() {
    const MString name = TakeName(u'/');
    reader->SkipBlanks();
    if (!reader->TakeCharacter(u'>')) MMarkupReader::RaiseInvalid("Invalid closing element syntax.");
    AttributeList none;
    return OnElement(name, none, true);
}

template <class Attribute, class AttributeList>
bool MMLParser<Attribute, AttributeList>::ParseInstruction() {
    const MString name = TakeName(u'?');
    attributes.clear();
    for (reader->SkipBlanks(); !reader->TakeCharacter(u'>'); reader->SkipBlanks())
        if (!reader->TakeCharacter(u'?')) ParseAttribute(u'?');
    if (!(name == "xml")) return false;
    for (const auto& attribute : attributes)
        if (attribute->name == "encoding") reader->ChangeEncoding(attribute->value);
    return false;
}

template <class Attribute, class AttributeList>
bool MMLParser<Attribute, AttributeList>::ParseSpecial() {
    if (reader->TakeCharacter(u'-')) {
        static_cast<void>(reader->TakeThrough(u"-->", u' '));
        return false;
    }
    if (!reader->TakeCharacter(u'[')) {
        static_cast<void>(reader->TakeThrough(u">", u' '));
        return false;
    }
    if (!reader->TakeLetters("cdata[")) MMarkupReader::RaiseInvalid("Invalid special element sequence.");
    const std::u16string_view content = reader->TakeThrough(u"]]>", u'\n');
    return OnText(MString::Copy(content.data(), static_cast<int32_t>(content.size())).Trimmed());
}
