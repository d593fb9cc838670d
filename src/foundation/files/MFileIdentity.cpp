#include "foundation/files/MFileIdentity.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"

namespace {

/// The path without links in it, as far as it exists and the system can tell.
MString Resolve(const MString& path) {
    const MString parent = MFile::GetDirectory(path);
    if (!MFile::Exists(path) && !parent.IsEmpty())
        return MFile::Join(Resolve(parent), MFile::GetFileName(path));
    MString resolved = path;
    MGuard("MIsInside", [&] { resolved = MFile::ResolvePath(path); });
    return resolved;
}

}  // namespace

bool MIsInside(const MString& path, const MString& directory) {
    const std::optional<MFileIdentity> identity = MFindFileIdentity(directory);
    if (!identity) return false;
    MString place = Resolve(path);
    while (MFindFileIdentity(place) != identity) {
        const MString parent = MFile::GetDirectory(place);
        if (parent.IsEmpty() || parent.IsExactly(place)) return false;
        place = parent;
    }
    return true;
}
