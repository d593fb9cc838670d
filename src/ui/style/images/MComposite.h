#pragma once

#include "ui/image/MBitmap.h"
#include "ui/image/MColorOp.h"

/// Lays a picture over another one of the same size, both with alpha: by the mode, or exactly, as the "over"
/// of Porter and Duff (Compositing Digital Images, 1984), for `None`, `Alphablend` and `Overlay`.
void MComposite(MBitmap& bitmap, const MBitmap& layer, MColorOp mode);

/// The picture in another size: each pixel is the mean of what it covers, weighted by alpha. In whole numbers.
[[nodiscard]] MBitmap MResample(const MBitmap& bitmap, MPoint size);
