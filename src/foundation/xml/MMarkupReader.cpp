#include "foundation/xml/MMarkupReader.h"

#include "foundation/base/MException.h"

#include <algorithm>

namespace {

/// One bit for each unit below 64.
constexpr uint64_t MaskOf(std::u16string_view units) {
    uint64_t mask = 0;
    for (const char16_t unit : units) mask |= uint64_t{1} << unit;
    return mask;
}

constexpr auto IsBlank = [](char16_t unit) { return MChar(unit).IsBlank(); };
constexpr auto EndsUnquoted = [](char16_t unit) { return IsBlank(unit) || unit == u'>'; };
constexpr auto EndsWord = [](char16_t unit) {
    constexpr uint64_t Special = MaskOf(u"<>\"/!=");
    return IsBlank(unit) || (unit < 64 && (Special >> unit & 1) != 0);
};

std::u16string_view WithoutBlanksInFront(std::u16string_view text) {
    text.remove_prefix(static_cast<size_t>(std::ranges::find_if_not(text, IsBlank) - text.begin()));
    return text;
}

std::u16string_view WithoutBlanksBehind(std::u16string_view text) {
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace

void MMarkupReader::RaiseInvalid(const char* detail) {
    throw MException(MString(), MTranslate("Invalid file contents. ") + MTranslate(detail),
                     MExceptionStreamError);
}

bool MMarkupReader::ReadLine() {
    if (!reader.ReadLine(line)) return false;
    ++lineNumber;
    BeginLine();
    return true;
}

void MMarkupReader::BeginLine() {
    if (line.IsLiteral()) line.Reserve(line.GetLength() + 1);
    cursor = line.GetUnits();
    end = cursor + line.GetLength();
}

bool MMarkupReader::TakeText(std::u16string_view& text) {
    const size_t length = GetRest().find(u'<');
    if (length != std::u16string_view::npos) {
        text = GetRest().substr(0, length);
        cursor += length + 1;
        return true;
    }
    joined.assign(WithoutBlanksBehind(GetRest()));
    const bool isTagFound = AppendTextLines();
    text = joined;
    return isTagFound;
}

bool MMarkupReader::AppendTextLines() {
    cursor = end;
    while (ReadLine()) {
        // The first line has no line end in front.
        if (lineNumber > 1) joined.push_back(u' ');
        const std::u16string_view content = WithoutBlanksInFront(GetRest());
        const size_t length = content.find(u'<');
        if (length != std::u16string_view::npos) {
            joined.append(content.substr(0, length));
            cursor = content.data() + length + 1;
            return true;
        }
        joined.append(WithoutBlanksBehind(content));
        cursor = end;
    }
    return false;
}

void MMarkupReader::SkipBlanks() {
    while (true) {
        cursor = std::find_if_not(cursor, end, IsBlank);
        if (cursor != end) return;
        if (!ReadLine()) RaiseInvalid("No ending delimiter found.");
    }
}

bool MMarkupReader::TakeCharacter(char16_t character) {
    if (cursor == end || *cursor != character) return false;
    ++cursor;
    return true;
}

bool MMarkupReader::TakeLetters(std::string_view lowerCaseText) {
    const std::u16string_view front = GetRest().substr(0, lowerCaseText.size());
    const auto isEqual = [](char16_t unit, char expected) {
        return MChar(unit).ToLower() == MChar(expected);
    };
    if (!std::ranges::equal(front, lowerCaseText, isEqual)) return false;
    cursor += lowerCaseText.size();
    return true;
}

std::u16string_view MMarkupReader::TakeWord(char16_t closer) {
    return TakeFront(static_cast<size_t>(std::find_if(cursor, end, EndsWord) - cursor), closer);
}

std::u16string_view MMarkupReader::TakeUnquoted(char16_t closer) {
    return TakeFront(static_cast<size_t>(std::find_if(cursor, end, EndsUnquoted) - cursor), closer);
}

std::u16string_view MMarkupReader::TakeFront(size_t count, char16_t closer) {
    const bool isAtTagEnd = cursor + count != end && cursor[count] == u'>';
    if (isAtTagEnd && count > 0 && cursor[count - 1] == closer) --count;
    const std::u16string_view front = GetRest().substr(0, count);
    cursor += count;
    return front;
}

std::u16string_view MMarkupReader::TakeThrough(std::u16string_view delimiter, char16_t lineEnd) {
    size_t length = GetRest().find(delimiter);
    if (length != std::u16string_view::npos) {
        const std::u16string_view content = GetRest().substr(0, length);
        cursor += length + delimiter.size();
        return content;
    }
    joined.clear();
    do {
        joined.append(GetRest());
        joined.push_back(lineEnd);
        cursor = end;
        if (!ReadLine()) RaiseInvalid("No ending delimiter found.");
        length = GetRest().find(delimiter);
    } while (length == std::u16string_view::npos);
    joined.append(GetRest().substr(0, length));
    cursor += length + delimiter.size();
    return joined;
}

void MMarkupReader::ChangeEncoding(const MString& encoding) {
    if (isEncodingChosen) return;
    isEncodingChosen = true;
    if (!reader.ChangeCodec(encoding)) return;
    const auto tagEnds = std::count(line.GetUnits(), cursor, u'>');
    line = reader.DecodeTailAgain('>', static_cast<int32_t>(tagEnds));
    BeginLine();
}
