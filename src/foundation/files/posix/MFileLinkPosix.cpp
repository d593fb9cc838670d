#include "foundation/files/MFile.h"
#include "foundation/files/MFileLink.h"
#include "foundation/files/posix/MCommandLineWords.h"
#include "foundation/files/posix/MDesktopEntry.h"
#include "foundation/files/posix/MNativePath.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MOutputFile.h"
#include "streams/basic/MStdFileStream.h"

#include <cerrno>
#include <unistd.h>

namespace {

const char* const Opener = "xdg-open";

bool IsProgram(const MString& target) {
    return MFile::IsFile(target) && access(MNativePath(target).c_str(), X_OK) == 0;
}

/// What is no program is opened with the program that is there for it, for which arguments mean nothing.
MList<MString> GetCommand(const MString& target, const MString& arguments) {
    MList<MString> words;
    const bool isProgram = IsProgram(target);
    if (!isProgram) words.Add(Opener);
    words.Add(target);
    if (!isProgram) return words;
    for (const MString& argument : MSplitCommandLine(arguments)) words.Add(argument);
    return words;
}

/// The picture that lies beside a program under its name, else what every icon theme has for its kind.
MString FindIcon(const MString& target) {
    if (!IsProgram(target)) return MFile::IsDirectory(target) ? "folder" : "text-x-generic";
    for (const char* extension : {"svg", "png", "xpm"}) {
        const MString icon = MFile::ChangeExtension(target, extension);
        if (MFile::IsFile(icon)) return icon;
    }
    return "applications-multimedia";
}

MDesktopEntry BeginEntry(const MString& path, const MString& description) {
    const MString name = MFile::GetBaseName(path);
    MDesktopEntry entry(name);
    if (!(description == name)) entry.SetDescription(description);
    return entry;
}

void Save(const MDesktopEntry& entry, const MString& path) {
    const std::string& text = entry.GetText();
    MOutputFile file(path);
    file.Write(text.data(), static_cast<int32_t>(text.size()));
    file.CommitProgram();
}

}  // namespace

MString MShellLinkExtension() {
    return "desktop";
}

bool MWriteShellLink(const MString& path, const MString& target, const MString& arguments,
                     const MString& description) {
    if (target.IsEmpty() || !MFile::Exists(target)) {
        errno = ENOENT;
        return false;
    }
    MDesktopEntry entry = BeginEntry(path, description);
    entry.SetCommand(GetCommand(target, arguments), MFile::GetDirectory(target));
    entry.SetIcon(FindIcon(target));
    Save(entry, path);
    return true;
}

MString MInternetLinkExtension() {
    return "desktop";
}

// An entry of the type Link would say the same, but menus do not show it.
void MWriteInternetLink(const MString& path, const MString& address, const MString& description) {
    MList<MString> words;
    words.Add(Opener);
    words.Add(address);
    MDesktopEntry entry = BeginEntry(path, description);
    entry.SetCommand(words, MString());
    entry.SetIcon("text-html");
    Save(entry, path);
}

MString MReadShellLinkDirectory(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    MMemoryStream text;
    file.CopyAllTo(text);
    return MPathFromNative(
        MDesktopEntry::ReadDirectory({text.GetBuffer().Get(), static_cast<size_t>(text.GetSize())}));
}
