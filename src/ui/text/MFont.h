#pragma once

#include "foundation/base/MBuffer.h"
#include "foundation/base/MHashTable.h"
#include "ui/text/MFontDescriptor.h"
#include "ui/text/MGlyph.h"
#include "ui/text/MTextMeasure.h"

#include <array>
#include <cmath>
#include <memory>

class MFontFace;
class MFontSubstitutes;
class MStream;

/// A font of the formats that FreeType reads, but for web fonts, at one size, with the glyphs that it has
/// rendered. Measures are in pixels; texts are measured and painted glyph by glyph (`MTextPen`), without
/// kerning.
///
/// Characters of `MIsInvisible` take no part in a text; a surrogate pair is one character, a surrogate
/// without its pair is U+FFFD. A character that the font does not have is taken from its substitutes; where
/// none has it, it has the font's ".notdef" glyph. One whose outline is damaged has an empty one.
///
/// One line is as high as ascent and descent together, in plain and in rich text. In rich text the next one
/// begins there; lines of a plain text are `GetLineHeight` apart, which is what the font's designer wanted
/// between them.
///
/// Belongs to the thread of the user interface.
class MFont : public MFontDescriptor {
public:
    MFont();
    MFont(const MFont&) = delete;
    MFont& operator=(const MFont&) = delete;
    ~MFont() override;

    /// Replaces the font by the first face in a block, which is shared and kept as long as the font is open;
    /// borrowed memory has to outlive that. Raises "Invalid file contents. " with "Unknown font file format."
    /// or "Invalid font file format." (0), and what `SetFromFace` raises; the font is then closed.
    virtual void Open(const MBuffer& source);
    /// Opens what the stream holds from its position to its end. Also raises what reading raises.
    virtual void LoadFromStream(MStream& stream);
    /// Also raises what opening a file raises.
    virtual void LoadFromFile(const MString& path);
    virtual void Close();
    [[nodiscard]] virtual bool IsOpen() const;
    /// Height and width of the square that the letters are designed in: in points of 1/72 inch at 72 dots per
    /// inch, or in whole pixels if either is negative. A width of 0 follows the height. Both are multiplied
    /// by the scale. Forgets all glyphs. Raises "Unable to accept required font size." (0); the font then has
    /// no size, as before the first call, and all its glyphs are empty.
    virtual void SetSize(double height, double width = 0);
    /// Fills a record, without looking into the cache.
    virtual void RenderGlyph(char32_t character, MGlyph& glyph);

    /// The picture of a character, rendered on first use. Valid until the size changes or the font closes.
    [[nodiscard]] const MGlyph& GetGlyph(char32_t character) {
        if (isUpperCase && character < TableSize)
            character = MChar(static_cast<char16_t>(character)).ToUpper();
        if (character < TableSize && table[character].isLoaded) return table[character];
        return FindGlyph(character);
    }

    /// Where characters come from that the font lacks; null, as at first, for nowhere. They outlive the font.
    /// Forgets all glyphs.
    void SetSubstitutes(MFontSubstitutes* newSubstitutes);
    /// A number that no font has had before, after each change by which texts may take another room.
    [[nodiscard]] uint32_t GetRevision() const { return revision; }

    /// Whether the font has a picture of its own for a character. False for a font that is not open.
    [[nodiscard]] bool HasGlyph(char32_t character) const;

    /// From baseline to baseline, at least 1, with the vertical space.
    [[nodiscard]] int32_t GetLineHeight() const { return MAddPixels(lineHeight, verticalSpace); }
    /// Above the baseline and below it, where letters usually reach.
    [[nodiscard]] int32_t GetAscent() const { return ascent; }
    [[nodiscard]] int32_t GetDescent() const { return descent; }
    /// The width of a part of a text that is one line. There is no space between characters behind the last
    /// one, so the widths of two parts may be more or less than that of both together.
    [[nodiscard]] int32_t GetTextWidth(const MString& text, int32_t start = 0,
                                       int32_t count = MString::MaximumLength);
    /// The unit at which the character begins whose cell holds `x`, counted from the left edge of a line: 0
    /// left of the first one, the length right of the last one.
    [[nodiscard]] int32_t GetIndexAt(const MString& text, int32_t x);

    /// What `SetSize` multiplies sizes with, from the next call on.
    void SetScale(double horizontal, double vertical);
    /// How much lower than the baseline of the line letters stand.
    void SetVerticalShift(int32_t pixels) {
        verticalShift = pixels;
        Renew();
    }
    [[nodiscard]] int32_t GetVerticalShift() const { return verticalShift; }
    /// What is added to each line.
    void SetVerticalSpace(int32_t pixels) {
        verticalSpace = pixels;
        Renew();
    }
    /// What is added between two characters. Glyphs stand at whole pixels, so a fraction is rounded to the
    /// nearest pixel, a half away from 0.
    void SetCharacterSpace(double pixels) {
        characterSpace = MAddPixels(std::llround(std::clamp(pixels, -1e9, 1e9)), 0);
        Renew();
    }
    [[nodiscard]] int32_t GetCharacterSpace() const { return characterSpace; }
    /// Whether lower-case ASCII letters show as upper-case ones.
    void SetUpperCase(bool newIsUpperCase) {
        isUpperCase = newIsUpperCase;
        Renew();
    }

    /// See MSystemFonts.h.
    [[nodiscard]] static MFontDescriptor GetSystemFontDescriptor(const MString& name, bool isBold,
                                                                 bool isItalic, bool isRequired);
    static void ReScanSystemFonts();

private:
    static constexpr char32_t TableSize = 256;

    const MGlyph& FindGlyph(char32_t character);
    void ForgetSize();
    void ForgetGlyphs();
    void ReadMetrics();
    void Renew();

    std::unique_ptr<MFontFace> face;
    MFontSubstitutes* substitutes = nullptr;
    uint32_t revision = 0;
    bool hasSize = false;
    double height = 0;  ///< that was given to the face
    double width = 0;
    double horizontalScale = 1;
    double verticalScale = 1;
    int32_t lineHeight = 1;
    int32_t ascent = 0;
    int32_t descent = 0;
    int32_t verticalShift = 0;
    int32_t verticalSpace = 0;
    int32_t characterSpace = 0;
    bool isUpperCase = false;
    std::array<MGlyph, TableSize> table;
    MHashTable<uint32_t, std::shared_ptr<MGlyph>> otherGlyphs;
};
