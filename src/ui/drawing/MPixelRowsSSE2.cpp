#include "ui/drawing/MPixelRowTemplate.h"
#include "ui/drawing/MPixelsSSE2.h"

constexpr MPixelRowSet MPixelRowsSSE2 = MPixelRowTemplate::MakeSet<MPixelsSSE2>();
