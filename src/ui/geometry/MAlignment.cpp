#include "ui/geometry/MAlignment.h"

#include "foundation/base/MRaise.h"

#include <iterator>

namespace {

/// In the order of the values; two of them have no meaning.
constexpr const char* Names[] = {"center,center", "left,center", "right,center", "yyy",
                                 "center,top",    "left,top",    "right,top",    "xxx",
                                 "center,bottom", "left,bottom", "right,bottom"};

}  // namespace

MAlignment MParseAlignment(const MString& name) {
    for (uint8_t value = 0; value < std::size(Names); ++value)
        if (name == Names[value]) return static_cast<MAlignment>(value);
    if (name == "All") return MAlignFill;
    MRaise(MExceptionGeneral, "Invalid MAlignment identifier to parse ({0}).", name);
}

MRect MAlignInside(const MRect& rect, MPoint size, MAlignment alignment) {
    if (alignment & MAlignFill) return rect;
    const auto getStart = [alignment](int32_t low, int32_t room, MAlignment atLow, MAlignment atHigh) {
        if (room <= 0 || alignment & atLow) return low;
        return low + (alignment & atHigh ? room : room / 2);
    };
    return MRect::FromSize(getStart(rect.left, rect.GetWidth() - size.x, MAlignLeft, MAlignRight),
                           getStart(rect.top, rect.GetHeight() - size.y, MAlignTop, MAlignBottom), size.x,
                           size.y);
}
