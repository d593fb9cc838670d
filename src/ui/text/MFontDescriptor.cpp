#include "ui/text/MFontDescriptor.h"

#include "foundation/base/MException.h"
#include "foundation/base/MList.h"

#include <algorithm>
#include <ft2build.h>
#include FT_FREETYPE_H

namespace {

bool IsPlainStyle(const MString& style) {
    return style.IsEmpty() || style == "regular" || style == "italic" || style == "bold";
}

/// What faces call the styles of the flags, and the lack of any.
bool IsPlainWord(const MString& word) {
    constexpr const char* Words[] = {"regular", "book", "normal", "roman", "bold", "italic", "oblique"};
    return std::ranges::any_of(Words, [&](const char* plain) { return word == plain; });
}

}  // namespace

MFontDescriptor::MFontDescriptor(const MString& family, const MString& path, bool isBold, bool isItalic)
    : family(family),
      path(path),
      flags(static_cast<uint8_t>((isBold ? Bold : 0) | (isItalic ? Italic : 0))) {}

void MFontDescriptor::SetFromFace(FT_FaceRec_& face) {
    MString name = MString::Copy(face.family_name);
    if (name.IsEmpty()) MRaise(MExceptionGeneral, "Invalid font family name.");
    const MString style = MString::Copy(face.style_name);
    if (!IsPlainStyle(style)) name += " " + style;
    *this = MFontDescriptor(name, path, face.style_flags & FT_STYLE_FLAG_BOLD,
                            face.style_flags & FT_STYLE_FLAG_ITALIC);
}

bool MFontDescriptor::IsOfFamily(const MString& name) const {
    const int32_t length = name.GetLength();
    if (family.CompareNoCase(name, length) != 0) return false;
    if (family.GetLength() == length) return true;
    const MList<MString> words = family.Substring(length + 1).Split(' ');
    return family[length] == ' ' && std::ranges::all_of(words, IsPlainWord);
}

bool MFontDescriptor::IsBefore(const MFontDescriptor& left, const MFontDescriptor& right) {
    if (const int32_t difference = left.family.CompareNoCase(right.family)) return difference < 0;
    if (left.IsBold() != right.IsBold()) return right.IsBold();
    if (left.IsItalic() != right.IsItalic()) return right.IsItalic();
    return left.path.Compare(right.path) < 0;
}
