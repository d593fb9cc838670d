#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"

#include <cstdint>

struct FT_FaceRec_;

/// What is known of a font without opening it.
class MFontDescriptor : public MObject {
public:
    enum Flag : uint8_t { Bold = 1, Italic = 2 };

    MFontDescriptor() = default;
    MFontDescriptor(const MString& family, const MString& path, bool isBold, bool isItalic);

    /// Takes family and flags of a face; the path stays. A style that is not "Regular", "Italic" or "Bold" is
    /// part of the family's name, as in "DejaVu Sans Condensed". Raises "Invalid font family name." (0).
    virtual void SetFromFace(FT_FaceRec_& face);

    [[nodiscard]] const MString& GetFamily() const { return family; }
    /// Of the file; empty for a font that is in memory.
    [[nodiscard]] const MString& GetPath() const { return path; }
    void SetPath(const MString& newPath) { path = newPath; }
    [[nodiscard]] uint8_t GetFlags() const { return flags; }
    [[nodiscard]] bool IsBold() const { return flags & Bold; }
    [[nodiscard]] bool IsItalic() const { return flags & Italic; }
    /// Whether the font belongs to a family, ignoring case: by its name, or by that and a style that says no
    /// more than the flags do, as "Book", "Oblique" or "Bold Italic".
    [[nodiscard]] bool IsOfFamily(const MString& name) const;

    /// The order of a list: by family, ignoring case, then upright before bold before italic, then by path.
    [[nodiscard]] static bool IsBefore(const MFontDescriptor& left, const MFontDescriptor& right);

private:
    MString family;
    MString path;
    uint8_t flags = 0;
};
