#include "builder/checks/MFileNameRules.h"

#include "foundation/base/MList.h"
#include "foundation/files/MSafeName.h"

#include <algorithm>
#include <string_view>

namespace {

/// More than this no file system takes.
constexpr int32_t MaximumNameLength = 255;

constexpr std::u16string_view ForbiddenCharacters = u"<>:\"\\|?*";

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

/// Compares unit for unit: the equality of texts would also find devices in names with accents.
bool IsOneOf(const MString& lowerCase, std::initializer_list<const char*> names) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char* name) { return lowerCase.IsExactly(name); });
}

bool IsDevice(const MString& name) {
    MString stem =
        name.Substring(0, name.FindChar(MChar('.')) >= 0 ? name.FindChar(MChar('.')) : name.GetLength());
    stem.TrimRight();
    stem.MakeLower();
    if (IsOneOf(stem, {"con", "prn", "aux", "nul", "conin$", "conout$"})) return true;
    if (stem.GetLength() != 4 || !IsOneOf(stem.Substring(0, 3), {"com", "lpt"})) return false;
    // The superscript digits count as digits.
    return std::u16string_view(u"123456789\u00B9\u00B2\u00B3").find(stem[3]) != std::u16string_view::npos;
}

MString FindComponentFault(const MString& name) {
    for (int32_t i = 0; i < name.GetLength(); ++i)
        if (IsForbidden(name[i])) return "contains a character that Windows does not allow in names";
    if (IsDevice(name)) return "is reserved by Windows";
    const MChar last = name[name.GetLength() - 1];
    if (last == MChar('.') || last == MChar(' ')) return "ends with a dot or a blank, which Windows drops";
    if (name.GetLength() > MaximumNameLength) return "is longer than 255 characters";
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

MString MFileNameRules::FindFault(const MString& name) {
    if (name.IsEmpty()) return MString();
    if (!MIsSafeName(name)) return "leads out of its directory";
    if (!IsWellFormed(name)) return "is no valid Unicode";
    const MList<MString> components = name.Split(MChar('/'));
    if (components.IsEmpty()) return "leads out of its directory";
    for (const MString& component : components)
        if (const MString fault = FindComponentFault(component); !fault.IsEmpty()) return fault;
    return MString();
}

MString MFileNameRules::FoldCase(const MString& name) {
    MString folded = name;
    for (int32_t i = 0; i < folded.GetLength(); ++i)
        if (const char16_t unit = FoldUnit(folded[i]); unit != folded[i]) folded.SetChar(i, unit);
    return folded;
}
