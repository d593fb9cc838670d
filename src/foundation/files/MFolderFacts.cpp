#include "foundation/files/MFolderFacts.h"

#include "foundation/files/MFile.h"
#include "foundation/files/MFileAccess.h"
#include "foundation/text/MStringFormatter.h"

namespace {

/// What of a path stands: the path itself, else the nearest above it; empty if not even its drive does.
MString FindStanding(const MString& path) {
    MString standing = path;
    while (!MFile::Exists(standing)) standing = MFile::GetDirectory(standing);
    return standing;
}

template <class... Values>
MString Say(const char* text, const Values&... values) {
    return MFormat(MTranslate(text), values...);
}

MString FindFault(const MString& path, const MString& standing, const MVolume& volume) {
    const MString fault = MFindPathFault(path, standing);
    if (!fault.IsEmpty()) return fault;
    if (!MFile::IsDirectory(standing))
        return Say("\"{0}\" stands in the way, and is no folder. Please choose another folder, or give that "
                   "another name.",
                   standing);
    if (volume.isReadOnly)
        return Say("Nothing can be written to where \"{0}\" is. Please choose a folder elsewhere.", standing);
    const MNewEntry first = path.IsExactly(standing) ? MNewEntry::File : MNewEntry::Folder;
    if (!MMayCreate(first, standing))
        return Say("You may not create files in \"{0}\". Please choose another folder, or have it done by "
                   "{1}.",
                   standing, MWhoMayCreate(standing));
    return MString();
}

}  // namespace

MFolderFacts MFindFolderFacts(const MString& path) {
    MFolderFacts facts;
    if (!MFile::IsAbsolute(path)) {
        facts.fault = MTranslate("This is no complete path of a folder. Please choose one.");
        return facts;
    }
    const MString standing = FindStanding(path);
    if (standing.IsEmpty()) {
        facts.fault =
            Say("The drive of \"{0}\" is not there. Please connect it, or choose another folder.", path);
        return facts;
    }
    facts.volume = MFindVolume(MFile::IsDirectory(standing) ? standing : MFile::GetDirectory(standing));
    facts.fault = FindFault(path, standing, facts.volume);
    return facts;
}
