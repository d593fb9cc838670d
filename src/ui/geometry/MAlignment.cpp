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
