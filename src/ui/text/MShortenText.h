#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

class MFont;

/// The text with an ellipsis in place of the end of each line that is wider than so many pixels. Where not
/// even that has room, the line is the ellipsis alone.
[[nodiscard]] MString MShortenText(MFont& font, const MString& text, int32_t width);
/// The line with an ellipsis in place of what is too much in its middle, of which more of the end is kept
/// than of the beginning, as of paths.
[[nodiscard]] MString MShortenMiddle(MFont& font, const MString& line, int32_t width);
