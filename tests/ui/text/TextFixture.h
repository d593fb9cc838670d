#pragma once

#include "foundation/files/MFile.h"
#include "tests/support/MTestText.h"
#include "ui/text/MFont.h"

#include <string>
#include <string_view>

/// A font file of Debian's packages, as "liberation/LiberationSans-Regular.ttf".
inline MString SystemFont(const MString& name) {
    return MFile::Join(SYSTEM_FONTS, name);
}

/// Bytes in memory, as a font is opened from.
inline MBuffer MakeBuffer(std::string_view bytes) {
    MBuffer buffer;
    buffer.Resize(static_cast<int32_t>(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), static_cast<char*>(buffer.EditBlock()));
    return buffer;
}

/// A mask as rows of characters: blank, "." for some coverage and "#" for more than half.
inline std::string Drawing(const MAlphaMask* mask) {
    if (!mask) return "nothing";
    std::string rows;
    for (int32_t y = 0; y < mask->GetHeight(); ++y) {
        for (int32_t x = 0; x < mask->GetWidth(); ++x) {
            const uint8_t coverage = mask->GetRow(y)[x];
            rows += coverage == 0 ? ' ' : coverage < 128 ? '.' : '#';
        }
        rows += '\n';
    }
    return rows;
}
