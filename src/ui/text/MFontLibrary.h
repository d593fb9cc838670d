#pragma once

#include <memory>

struct FT_LibraryRec_;

/// The one FreeType library of the process, on the library's allocator. Not locked: it belongs to the thread
/// of the user interface.
class MFontLibrary {
public:
    MFontLibrary() = delete;

    /// No single block is larger, in bytes, so that a damaged font cannot take all memory: a glyph of 8192 by
    /// 8192.
    static constexpr long MaximumBlock = 0x4000000;

    /// Made on first use, and ended with the process or with the last face that still holds it. Raises "Could
    /// not initialize FreeType." (0).
    [[nodiscard]] static std::shared_ptr<FT_LibraryRec_> Get();
};
