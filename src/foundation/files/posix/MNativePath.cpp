#include "foundation/files/posix/MNativePath.h"

#include "foundation/text/MUnicode.h"

std::string MNativePath(const MString& path) {
    return MEncodeUTF8Exact(path);
}

MString MPathFromNative(std::string_view path) {
    MString text = MDecodeUTF8Exact(path);
    text.ReplaceChar('\\', MString::Copy(&MRawBackslash, 1));
    return text;
}
