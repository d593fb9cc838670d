#pragma once

#include "foundation/base/MBuffer.h"
#include "ui/text/MCharacterSet.h"

#include <cstdint>
#include <memory>

class MStream;
struct FT_FaceRec_;
struct FT_LibraryRec_;
struct FT_Open_Args_;
struct FT_StreamRec_;
struct MGlyph;

/// An open face of FreeType, with all that has to live as long. Measures are in pixels and lie within plus
/// and minus 2^15, whatever the font says.
class MFontFace {
public:
    /// The first face in a block, which is shared and kept. Raises "Invalid file contents. " with "Unknown
    /// font file format." or "Invalid font file format." (0). The packed fonts of web pages are unknown.
    explicit MFontFace(const MBuffer& source);
    /// The same from a whole stream, which can seek and outlives the face; only what is needed is read. Also
    /// raises what reading its beginning raises.
    explicit MFontFace(MStream& source);
    MFontFace(const MFontFace&) = delete;
    MFontFace& operator=(const MFontFace&) = delete;
    ~MFontFace();

    [[nodiscard]] FT_FaceRec_& GetRecord() const { return *face; }

    /// As `MFont::SetSize`, without scale.
    void SetSize(double height, double width);
    /// All characters of the Unicode that the face has, ascending; none if it is a face of symbols.
    [[nodiscard]] MCharacterSet GetCharacters() const;
    /// As `MFont::HasGlyph`.
    [[nodiscard]] bool HasGlyph(char32_t character) const;
    /// As `MFont::RenderGlyph`; a size has to be set.
    void Render(char32_t character, MGlyph& glyph) const;

    [[nodiscard]] int32_t GetLineHeight() const;
    [[nodiscard]] int32_t GetAscent() const;
    [[nodiscard]] int32_t GetDescent() const;

private:
    void Open(FT_Open_Args_& arguments);

    std::shared_ptr<FT_LibraryRec_> library;
    MBuffer block;
    std::unique_ptr<FT_StreamRec_> stream;
    FT_FaceRec_* face = nullptr;
};
