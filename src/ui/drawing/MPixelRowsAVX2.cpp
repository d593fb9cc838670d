#include "ui/drawing/MPixelRowTemplate.h"
#include "ui/drawing/MPixelsAVX2.h"

constexpr MPixelRowSet MPixelRowsAVX2 = MPixelRowTemplate::MakeSet<MPixelsAVX2>();
