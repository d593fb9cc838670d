#include "ui/drawing/MPixelRowTemplate.h"
#include "ui/drawing/MPixelsPlain.h"

namespace {

constexpr MPixelRowSet MakePlainSet() {
    MPixelRowSet set = MPixelRowTemplate::MakeSet<MPixelsPlain>();
    set[static_cast<size_t>(MColorOp::Color)] =
        MPixelRowTemplate::Rows<MPixelsPlain, MPixelOperators::Color>::Set;
    return set;
}

}  // namespace

constexpr MPixelRowSet MPixelRowsPlain = MakePlainSet();
