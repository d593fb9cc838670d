#include "foundation/files/MFileLink.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MStdFileStream.h"

namespace {

bool IsInternetTarget(const MString& target) {
    return target.Contains("://");
}

bool WriteInternetShortcut(const MString& path, const MString& target) {
    const std::string text = MEncodeUTF8Exact(MString("[InternetShortcut]\nURL=") + target + "\n");
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    file.Write(text.data(), static_cast<int32_t>(text.size()));
    file.Close();
    return true;
}

}  // namespace

void MFile::CreateLink(const MString& link, const MString& target, const MString& arguments,
                       const MString& description) {
    MString reason;
    try {
        const MString& text = description.IsEmpty() ? GetFileName(link) : description;
        if (IsInternetTarget(target)
                ? WriteInternetShortcut(link + ".url", target)
                : MWriteShellLink(link + "." + MShellLinkExtension(), target, arguments, text))
            return;
        reason = MSystemErrorText();
    } catch (const MException& exception) {
        reason = exception.GetMessage();
    }
    MRaise(MExceptionGeneral, "Could not create file link at \"{0}\" to \"{1}\". {2}", link, target, reason);
}

MString MFile::FindLink(const MString& link) {
    for (const MString& extension : {MString("url"), MShellLinkExtension()}) {
        const MString file = link + "." + extension;
        if (Exists(file)) return file;
    }
    return MString();
}

MString MFile::GetLinkDirectory(const MString& file) {
    MString directory;
    if (GetExtension(file) == MShellLinkExtension())
        MGuard("MFile::GetLinkDirectory", [&] { directory = MReadShellLinkDirectory(file); });
    return directory;
}

void MFile::DeleteLink(const MString& link) {
    const MString file = FindLink(link);
    Delete(file.IsEmpty() ? link + "." + MShellLinkExtension() : file);
}
