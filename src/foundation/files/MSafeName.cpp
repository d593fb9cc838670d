#include "foundation/files/MSafeName.h"

namespace {

bool IsSeparator(MChar character) {
    return character == u'/' || character == u'\\';
}

}  // namespace

bool MIsSafeName(const MString& name) {
    const bool isDrive = name.GetLength() > 1 && name[0].IsLetter() && name[1] == u':';
    if (isDrive || (!name.IsEmpty() && IsSeparator(name[0]))) return false;
    if (!name.Contains("..")) return true;
    int32_t start = 0;
    for (int32_t i = 0; i <= name.GetLength(); ++i) {
        if (i < name.GetLength() && !IsSeparator(name[i])) continue;
        if (name.Substring(start, i - start).IsExactly("..")) return false;
        start = i + 1;
    }
    return true;
}

bool MIsSafeFileName(const MString& name) {
    for (int32_t i = 0; i < name.GetLength(); ++i)
        if (IsSeparator(name[i]) || name[i] == u':' || name[i] == 0) return false;
    return !name.IsEmpty() && !name.IsExactly(".") && MIsSafeName(name);
}
