#include "builder/checks/MFileNameRules.h"

#include "foundation/base/MList.h"
#include "foundation/files/MSafeName.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"

#include <string_view>

namespace {

/// More than this no file system takes.
constexpr int32_t MaximumNameSize = 255;

/// The last one is `MRawBackslash`, as which a backslash comes from a disk that allows it in names.
constexpr std::u16string_view ForbiddenCharacters = u"<>:\"\\|?*\uF05C";

bool IsForbidden(MChar character) {
    return character.IsControl() || ForbiddenCharacters.find(character) != std::u16string_view::npos;
}

/// Pairs that stand for bytes of a name that is no UTF-8 (see foundation/text/MUnicode.h).
bool IsRawByte(MChar high, MChar low) {
    constexpr char16_t RawHigh = 0xDBFF;
    constexpr char16_t FirstRawLow = 0xDE80;
    constexpr char16_t LastRawLow = 0xDEFF;
    return high == RawHigh && low >= FirstRawLow && low <= LastRawLow;
}

bool IsWellFormed(const MString& name) {
    for (int32_t i = 0; i < name.GetLength(); ++i) {
        if (name[i].IsLowSurrogate()) return false;
        if (!name[i].IsHighSurrogate()) continue;
        if (i + 1 == name.GetLength() || !name[i + 1].IsLowSurrogate() || IsRawByte(name[i], name[i + 1]))
            return false;
        ++i;
    }
    return true;
}

MString FindComponentFault(const MString& name, int32_t suffixLength) {
    for (int32_t i = 0; i < name.GetLength(); ++i)
        if (IsForbidden(name[i])) return "contains a character that Windows does not allow in names";
    // Readers take it for the mark of an encoding, and leave it out.
    if (name.FindChar(MChar(u'\uFEFF')) >= 0) return "contains U+FEFF, which is lost in XML";
    const MChar last = name[name.GetLength() - 1];
    if (last == MChar('.') || last == MChar(' ')) return "ends with a dot or a blank, which Windows drops";
    // Windows counts characters and Linux bytes, which are never fewer.
    const auto size = static_cast<int64_t>(MEncodeUTF8Exact(name).size());
    if (size + suffixLength > MaximumNameSize)
        return MFormat("is longer than {0} bytes of UTF-8", MaximumNameSize - suffixLength);
    return MString();
}

char16_t FoldUnit(MChar unit) {
    const auto isIn = [unit](char16_t first, char16_t last) { return unit >= first && unit <= last; };
    if (unit.IsUpperLetter() || (isIn(0xC0, 0xDE) && unit != 0xD7)) return unit + 0x20;
    if (isIn(0x391, 0x3A9) || isIn(0x410, 0x42F)) return unit + 0x20;
    if (isIn(0x400, 0x40F)) return unit + 0x50;
    // In these blocks upper and lower case letters take turns.
    const bool isEvenUpper = isIn(0x100, 0x137) || isIn(0x14A, 0x177) || isIn(0x460, 0x4BF);
    const bool isOddUpper = isIn(0x139, 0x148) || isIn(0x179, 0x17E);
    if (isEvenUpper) return unit | 1;
    return isOddUpper ? static_cast<char16_t>((unit + 1) & ~1) : static_cast<char16_t>(unit);
}

}  // namespace

MString MFileNameRules::FindFault(const MString& name, int32_t suffixLength) {
    if (!IsWellFormed(name)) return "is no valid Unicode";
    if (MString fault = MFindNameFault(name); !fault.IsEmpty()) return fault;
    for (const MString& component : name.Split(MChar('/')))
        if (MString fault = FindComponentFault(component, suffixLength); !fault.IsEmpty()) return fault;
    return MString();
}

MString MFileNameRules::FoldCase(const MString& name) {
    MString folded = name;
    for (int32_t i = 0; i < folded.GetLength(); ++i)
        if (const char16_t unit = FoldUnit(folded[i]); unit != folded[i]) folded.SetChar(i, unit);
    return folded;
}
