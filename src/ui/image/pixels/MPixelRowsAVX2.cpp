#include "ui/image/pixels/MPixelRowTemplate.h"
#include "ui/image/pixels/MPixelsAVX2.h"

namespace {

template <class Operator>
using RowsOf = MPixelRowTemplate::Rows<MPixelsAVX2, Operator>;

}  // namespace

constexpr MPixelRowSet MPixelRowsAVX2 = MMakePixelRowSet<RowsOf>();
