#include "foundation/files/posix/MDesktopEntry.h"

#include "foundation/base/MRaise.h"
#include "foundation/text/MUnicode.h"

#include <algorithm>
#include <string_view>

namespace {

bool IsControl(char byte) {
    return static_cast<uint8_t>(byte) < ' ' || byte == '\x7F';
}

/// Any value: line ends, tabs, backslashes and the blanks at its ends are escaped. No value may hold other
/// control characters.
std::string EscapeValue(std::string_view text) {
    std::string value;
    for (size_t i = 0; i < text.size(); ++i) {
        switch (text[i]) {
        case '\\': value += "\\\\"; break;
        case '\n': value += "\\n"; break;
        case '\t': value += "\\t"; break;
        case '\r': value += "\\r"; break;
        case ' ': value += i == 0 || i + 1 == text.size() ? "\\s" : " "; break;
        default:
            if (!IsControl(text[i])) value += text[i];
        }
    }
    return value;
}

/// Takes back what `EscapeValue` has done.
std::string UnescapeValue(std::string_view value) {
    constexpr std::string_view letters = "sntr";
    std::string text;
    for (size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        const size_t letter = letters.find(value[++i]);
        text += letter == std::string_view::npos ? value[i] : " \n\t\r"[letter];
    }
    return text;
}

/// A word of a command. What a shell would expand within the quotes is escaped, and a percent sign is doubled
/// since field codes begin with one.
std::string QuoteWord(std::string_view word) {
    std::string quoted = "\"";
    for (const char byte : word) {
        if (byte == '"' || byte == '`' || byte == '$' || byte == '\\') quoted += '\\';
        if (byte == '%') quoted += '%';
        quoted += byte;
    }
    return quoted + '"';
}

std::string QuoteCommand(const MList<MString>& words) {
    std::string command;
    for (const MString& word : words) {
        if (!command.empty()) command += ' ';
        command += QuoteWord(MEncodeUTF8Exact(word));
    }
    return command;
}

/// A program's name may not hold an equals sign, which makes it the setting of a variable, and one with a
/// percent sign is looked for before the doubled ones become single: these are started by way of the shell.
MList<MString> MakeProgramPlain(const MList<MString>& words) {
    if (words[0].FindChar('=') == MString::NotFound && words[0].FindChar('%') == MString::NotFound)
        return words;
    MList<MString> plain;
    for (const char* word : {"/bin/sh", "-c", "exec \"$0\" \"$@\""}) plain.Add(word);
    for (const MString& word : words) plain.Add(word);
    return plain;
}

bool IsEscapable(char byte) {
    return byte == '\n' || byte == '\t' || byte == '\r';
}

void RefuseControls(const MString& text) {
    const std::string bytes = MEncodeUTF8Exact(text);
    if (std::any_of(bytes.begin(), bytes.end(),
                    [](char byte) { return IsControl(byte) && !IsEscapable(byte); }))
        MRaise(MExceptionGeneral, "A desktop entry cannot hold \"{0}\".", text);
}

}  // namespace

MDesktopEntry::MDesktopEntry(const MString& name) : text("[Desktop Entry]\nType=Application\n") {
    if (name.IsEmpty()) MRaise(MExceptionGeneral, "A desktop entry needs a name.");
    AddLine("Name", MEncodeUTF8Exact(name));
}

void MDesktopEntry::SetDescription(const MString& description) {
    AddLine("Comment", MEncodeUTF8Exact(description));
}

void MDesktopEntry::SetCommand(const MList<MString>& words, const MString& directory) {
    for (const MString& word : words) RefuseControls(word);
    RefuseControls(directory);
    AddLine("Exec", QuoteCommand(MakeProgramPlain(words)));
    if (!directory.IsEmpty()) AddLine("Path", MEncodeUTF8Exact(directory));
    AddLine("Terminal", "false");
    AddLine("Categories", "AudioVideo;Audio;");
}

void MDesktopEntry::SetIcon(const MString& icon) {
    AddLine("Icon", MEncodeUTF8Exact(icon));
}

std::string MDesktopEntry::ReadDirectory(std::string_view text) {
    constexpr std::string_view key = "\nPath=";
    const size_t line = text.find(key);
    if (line == std::string_view::npos) return {};
    const size_t start = line + key.size();
    return UnescapeValue(text.substr(start, std::min(text.find('\n', start), text.size()) - start));
}

const std::string& MDesktopEntry::GetText() const {
    if (!MIsUTF8(text)) MRaise(MExceptionGeneral, "A desktop entry cannot hold names that are no UTF-8.");
    return text;
}

void MDesktopEntry::AddLine(const char* key, const std::string& value) {
    text.append(key).append("=").append(EscapeValue(value)).append("\n");
}
