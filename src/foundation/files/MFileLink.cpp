#include "foundation/files/MFileLink.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"

namespace {

bool IsInternetTarget(const MString& target) {
    return target.Contains("://");
}

}  // namespace

void MFile::CreateLink(const MString& link, const MString& target, const MString& arguments,
                       const MString& description) {
    MString reason;
    try {
        const MString& text = description.IsEmpty() ? GetFileName(link) : description;
        if (IsInternetTarget(target))
            return MWriteInternetLink(link + "." + MInternetLinkExtension(), target, text);
        if (MWriteShellLink(link + "." + MShellLinkExtension(), target, arguments, text)) return;
        reason = MSystemErrorText();
    } catch (const MException& exception) {
        reason = exception.GetMessage();
    }
    MRaise(MExceptionGeneral, "Could not create file link at \"{0}\" to \"{1}\". {2}", link, target, reason);
}

MString MFile::FindLink(const MString& link) {
    // Where internet shortcuts are another kind of file now, earlier versions have left these.
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
