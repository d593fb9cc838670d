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

bool IsProgram(const MString& target) {
    return MFile::IsFile(target) && access(MNativePath(target).c_str(), X_OK) == 0;
}

/// What is no program is opened with the program that is there for it, for which arguments mean nothing.
MList<MString> GetCommand(const MString& target, const MString& arguments) {
    MList<MString> words;
    const bool isProgram = IsProgram(target);
    if (!isProgram) words.Add("xdg-open");
    words.Add(target);
    if (!isProgram) return words;
    for (const MString& argument : MSplitCommandLine(arguments)) words.Add(argument);
    return words;
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
    const MString name = MFile::GetBaseName(path);
    MDesktopEntry entry(name);
    if (!(description == name)) entry.SetDescription(description);
    entry.SetCommand(GetCommand(target, arguments), MFile::GetDirectory(target));
    const std::string& text = entry.GetText();

    MOutputFile file(path);
    file.Write(text.data(), static_cast<int32_t>(text.size()));
    file.CommitProgram();
    return true;
}

MString MReadShellLinkDirectory(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    MMemoryStream text;
    file.CopyAllTo(text);
    return MPathFromNative(
        MDesktopEntry::ReadDirectory({text.GetBuffer().Get(), static_cast<size_t>(text.GetSize())}));
}
