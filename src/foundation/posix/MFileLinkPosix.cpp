#include "foundation/MFile.h"
#include "foundation/MFileLink.h"
#include "foundation/posix/MNativePath.h"
#include "streams/MStdFileStream.h"

#include <string>

namespace {

/// A value of the entry format: line ends, tabs and backslashes are escaped.
std::string EscapeValue(const std::string& text) {
    std::string value;
    for (const char byte : text) {
        switch (byte) {
        case '\\': value += "\\\\"; break;
        case '\n': value += "\\n"; break;
        case '\t': value += "\\t"; break;
        case '\r': value += "\\r"; break;
        default: value += byte;
        }
    }
    return value;
}

/// An argument of the key Exec in quotes. What the shell would expand is escaped, and a percent sign is
/// doubled since field codes begin with one.
std::string QuoteArgument(const std::string& text) {
    std::string value = "\"";
    for (const char byte : text) {
        if (byte == '"' || byte == '`' || byte == '$' || byte == '\\') value += '\\';
        if (byte == '%') value += '%';
        value += byte;
    }
    return value + '"';
}

/// Arguments as they stand on a command line; only field codes are kept from being expanded.
std::string DoublePercents(const std::string& text) {
    std::string value;
    for (const char byte : text) value.append(byte == '%' ? 2 : 1, byte);
    return value;
}

}  // namespace

MString MShellLinkExtension() {
    return "desktop";
}

bool MWriteShellLink(const MString& path, const MString& target, const MString& arguments,
                     const MString& description) {
    if (!MFile::Exists(target)) return false;
    std::string command = QuoteArgument(MNativePath(target));
    if (!arguments.IsEmpty()) command += ' ' + DoublePercents(MNativePath(arguments));
    const auto escape = [](const MString& text) { return EscapeValue(MNativePath(text)); };
    const std::string entry = "[Desktop Entry]\nType=Application\nName=" + escape(MFile::GetBaseName(path)) +
                              "\nComment=" + escape(description) + "\nExec=" + EscapeValue(command) +
                              "\nPath=" + escape(MFile::GetDirectory(target)) + "\nTerminal=false\n";

    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    file.Write(entry.data(), static_cast<int32_t>(entry.size()));
    file.Close();
    MFile::MakeExecutable(path);
    return true;
}
