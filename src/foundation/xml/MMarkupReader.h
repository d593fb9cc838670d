#pragma once

#include "foundation/text/MString.h"
#include "foundation/text/encodings/MEncodingReader.h"

#include <string>
#include <string_view>

/// Takes mark-up apart into the pieces that `MMLParser` puts together. The dialect:
///
///     document = { text | tag }
///     tag      = "<" name { attribute } ( ">" | "/>" ) | "</" name ">"
///              | "<?" name { attribute } "?>" | "<!-" ... "-->" | "<![CDATA[" ... "]]>" | "<!" ... ">"
///     attribute = name "=" ( '"' ... '"' | text up to a blank or the end of the tag )
///
/// A name ends at a blank or at one of < > " / ! = and blanks may stand between any two pieces. The
/// input is read line by line; a line end in text and in a quoted value is a space, and the blanks
/// around one in text belong to it.
///
/// Views that are handed out stay valid until the next call. Failures raise "Invalid file contents. "
/// with what is wrong (0x100).
class MMarkupReader {
public:
    MMarkupReader(MStream& stream, const MString& encoding) : reader(stream, encoding) {}

    /// The line of the piece last taken, from 1; 0 before the first.
    [[nodiscard]] int32_t GetLine() const { return lineNumber; }

    /// Takes the text up to the next "<" or the end of data, and the "<"; false at the end of data.
    bool TakeText(std::u16string_view& text);
    /// Goes to the next character that is no blank. Raises "No ending delimiter found.".
    void SkipBlanks();
    /// Takes the character if it comes next on this line.
    bool TakeCharacter(char16_t character);
    /// Takes the text if it comes next on this line, ignoring case.
    bool TakeLetters(std::string_view lowerCaseText);
    /// May be empty. A `closer` that stands before the tag's ">" is left.
    [[nodiscard]] std::u16string_view TakeWord(char16_t closer);
    [[nodiscard]] std::u16string_view TakeUnquoted(char16_t closer);
    /// Takes what is left of a quoted value and its closing quote. Raises "No ending delimiter found.".
    [[nodiscard]] std::u16string_view TakeQuoted() { return TakeThrough(u"\"", u' '); }
    /// Takes all up to a delimiter, and the delimiter, with `lineEnd` between the lines.
    /// Raises "No ending delimiter found.".
    [[nodiscard]] std::u16string_view TakeThrough(std::u16string_view delimiter, char16_t lineEnd);

    /// Decodes all that follows the ">" just taken by another encoding. Only the first call counts.
    /// Raises "No codec found for encoding {0}." (0).
    void ChangeEncoding(const MString& encoding);

    [[noreturn]] static void RaiseInvalid(const char* detail);

private:
    bool ReadLine();
    void BeginLine();
    [[nodiscard]] std::u16string_view GetRest() const { return {cursor, static_cast<size_t>(end - cursor)}; }
    std::u16string_view TakeFront(size_t count, char16_t closer);
    bool AppendTextLines();

    MEncoding::Reader reader;
    MString line;
    const char16_t* cursor = nullptr;
    const char16_t* end = nullptr;
    int32_t lineNumber = 0;
    bool isEncodingChosen = false;
    std::u16string joined;
};
