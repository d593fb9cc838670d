#pragma once

#include "ui/image/MBitmap.h"

#include <string>

enum class MJPEGColors { YCC, Grey, CMYK, YCCK };

struct MJPEGOptions {
    MJPEGColors colors = MJPEGColors::YCC;
    /// The rows of blocks between two restart markers; 0 for no markers.
    int32_t restartRows = 0;
    bool isProgressive = false;
    /// Of inks: whether the file has Adobe's marker, with which they stand inverted.
    bool isAdobe = true;
};

/// A JPEG file of a bitmap, whose alpha is dropped, in high quality and without subsampling.
[[nodiscard]] std::string MEncodeJPEG(const MBitmap& bitmap, const MJPEGOptions& options);

/// The bitmap with alpha 255 everywhere.
[[nodiscard]] MBitmap MOpaque(const MBitmap& bitmap);
