#pragma once

#include "ui/image/MBitmap.h"

class MFont;

/// The band above the pages, 750 by 64 at 100 percent: the product's name and a waveform. It fades out to the
/// right, where the window's own ground goes on. The font's size is changed.
[[nodiscard]] MBitmap DrawBand(MFont& font, int32_t percent);

/// The picture left of the pages, 132 by 288 at 100 percent: three knobs on a ground of their own.
[[nodiscard]] MBitmap DrawLeftPicture(int32_t percent);
