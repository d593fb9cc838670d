#pragma once

#include "ui/text/MFont.h"
#include "ui/text/MTextMeasure.h"

/// Goes along a line of text, in one font after another, and tells where its glyphs stand. Between two of
/// them are the space between characters of the second one's font and the pixel by which hinting has moved
/// them together or apart; nothing is added behind the last one, nor beside what is no text. The fonts
/// outlive the pen and keep their sizes.
class MTextPen {
public:
    /// A pen without a font takes no characters.
    MTextPen() = default;
    explicit MTextPen(MFont& font) : font(&font) {}

    /// The font of the characters that follow.
    void SetFont(MFont& newFont) { font = &newFont; }

    /// Goes back to the beginning of a line.
    void Restart() {
        last = nullptr;
        origin = end = 0;
    }
    /// The glyph of the next character, which stands at `GetOrigin`; null for one that takes no part in a
    /// text.
    const MGlyph* Take(char32_t character) {
        if (MIsInvisible(character)) return nullptr;
        const MGlyph& glyph = font->GetGlyph(character);
        if (last) end = MAddPixels(end, font->GetCharacterSpace() + GetHintedSpace(*last, glyph));
        origin = end;
        end = MAddPixels(end, glyph.advance);
        last = &glyph;
        return last;
    }

    /// Goes past something that is no text, as a picture in the line; `GetOrigin` is where it begins.
    void TakeObject(int32_t width) {
        origin = end;
        end = MAddPixels(end, width);
        last = nullptr;
    }

    /// Pixels from the beginning of the line to the origin of what was taken last.
    [[nodiscard]] int32_t GetOrigin() const { return origin; }
    /// Pixels from the beginning of the line to its end so far.
    [[nodiscard]] int32_t GetEnd() const { return end; }

private:
    /// The rule that FreeType's reference gives beside `lsb_delta`.
    [[nodiscard]] static int32_t GetHintedSpace(const MGlyph& left, const MGlyph& right) {
        const int32_t excess = left.rightDelta - right.leftDelta;
        return excess > 32 ? -1 : excess < -31 ? 1 : 0;
    }

    MFont* font = nullptr;
    const MGlyph* last = nullptr;
    int32_t origin = 0;
    int32_t end = 0;
};
