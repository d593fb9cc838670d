#include "payload/MDownloadNames.h"

#include "foundation/files/MFile.h"

bool MDownloadNames::IsTaken(const MString& component) {
    constexpr int32_t ShortNameLength = 8;
    if (component.StartsWith(State)) return true;
    const MString extension = MFile::GetExtension(component);
    const MString base = MFile::GetBaseName(component);
    return base.StartsWith("do") && base.GetLength() <= ShortNameLength &&
           base.FindChar('~') != MString::NotFound && (extension == "dat" || extension == "unf");
}
