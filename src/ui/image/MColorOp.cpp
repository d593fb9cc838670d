#include "ui/image/MColorOp.h"

#include "foundation/base/MRaise.h"
#include "ui/image/MNames.h"

namespace {

constexpr const char* Names[MColorOpCount] = {
    "None",
    "Alphablend",
    "Modulate",
    "Copy",
    "Overlay",
    "Color",
    "Invert",
    "Add",
    "Subtract",
    "Lighten",
    "Darken",
    "Difference",
    "IncContrast",
    "DecContrast",
    "LightenByContrast",
    "DarkenByContrast",
    "AddAndOverflow",
};

}  // namespace

MColorOp MParseColorOp(const MString& text) {
    if (text.IsEmpty()) return MColorOp::None;
    const int32_t index = MFindName(Names, text);
    if (index < 0) MRaise(MExceptionGeneral, "Invalid MColorOp identifier to parse ({0}).", text);
    return static_cast<MColorOp>(index);
}

MString MGetColorOpName(MColorOp operation) {
    return Names[static_cast<int32_t>(operation)];
}
