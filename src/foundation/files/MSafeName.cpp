#include "foundation/files/MSafeName.h"

#include <algorithm>
#include <string_view>

namespace {

bool IsSeparator(MChar character) {
    return character == u'/' || character == u'\\';
}

/// Compares unit for unit: the equality of texts would also find devices in names with accents.
bool IsOneOf(const MString& lowerCase, std::initializer_list<const char*> names) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char* name) { return lowerCase.IsExactly(name); });
}

/// Whether the component from `start` to `end` is a device, whatever stands behind its first dot.
bool IsDevice(const MString& name, int32_t start, int32_t end) {
    constexpr int32_t LongestDevice = 7;
    int32_t stemEnd = start;
    while (stemEnd < end && name[stemEnd] != u'.') ++stemEnd;
    while (stemEnd > start && name[stemEnd - 1].IsBlank()) --stemEnd;
    if (stemEnd - start < 3 || stemEnd - start > LongestDevice) return false;
    // Most names are known for none by their first letter.
    if (std::u16string_view(u"acnlpACNLP").find(name[start]) == std::u16string_view::npos) return false;
    MString stem = name.Substring(start, stemEnd - start);
    stem.MakeLower();
    if (IsOneOf(stem, {"con", "prn", "aux", "nul", "conin$", "conout$"})) return true;
    if (stem.GetLength() != 4 || !IsOneOf(stem.Substring(0, 3), {"com", "lpt"})) return false;
    // The superscript digits count as digits.
    return std::u16string_view(u"123456789\u00B9\u00B2\u00B3").find(stem[3]) != std::u16string_view::npos;
}

/// A component of dots and blanks only: Windows drops those at the end, and leaves the directory itself or
/// the one above.
bool IsDotsAndBlanks(const MString& name, int32_t start, int32_t end) {
    for (int32_t i = start; i < end; ++i)
        if (name[i] != u'.' && name[i] != u' ') return false;
    return end - start > 1 || (end > start && name[start] == u' ');
}

}  // namespace

MString MFindNameFault(const MString& name) {
    constexpr const char* LeadsOut = "leads out of its directory";
    const int32_t length = name.GetLength();
    const bool isDrive = length > 1 && name[0].IsLetter() && name[1] == u':';
    if (isDrive || (length > 0 && IsSeparator(name[0]))) return LeadsOut;
    int32_t start = 0;
    for (int32_t i = 0; i <= length; ++i) {
        if (i < length && (name[i] == u':' || name[i] == 0))
            return "contains a character that Windows does not allow in names";
        if (i < length && !IsSeparator(name[i])) continue;
        if (IsDotsAndBlanks(name, start, i)) return LeadsOut;
        if (IsDevice(name, start, i)) return "is reserved by Windows";
        start = i + 1;
    }
    return MString();
}

bool MIsSafeFileName(const MString& name) {
    for (int32_t i = 0; i < name.GetLength(); ++i)
        if (IsSeparator(name[i])) return false;
    return !name.IsEmpty() && !name.IsExactly(".") && MIsSafeName(name);
}
