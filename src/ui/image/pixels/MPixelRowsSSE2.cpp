#include "ui/image/pixels/MPixelRowTemplate.h"
#include "ui/image/pixels/MPixelsSSE2.h"

namespace {

template <class Operator>
using RowsOf = MPixelRowTemplate::Rows<MPixelsSSE2, Operator>;

}  // namespace

constexpr MPixelRowSet MPixelRowsSSE2 = MMakePixelRowSet<RowsOf>();
