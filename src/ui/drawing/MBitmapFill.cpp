#include "ui/drawing/MBitmapFill.h"

#include "foundation/base/MRaise.h"
#include "ui/image/MNames.h"

#include <algorithm>

namespace {

constexpr const char* FillNames[] = {"Stretch", "HPattern", "VPattern", "Pattern"};
constexpr const char* AlignmentNames[] = {"Left", "Center", "Right", "Top", "Bottom"};

}  // namespace

MBitmapFill MParseBitmapFill(const MString& text) {
    if (text.IsEmpty()) return MBitmapFill::Stretch;
    const int32_t index = MFindName(FillNames, text);
    if (index < 0) MRaise(MExceptionGeneral, "Invalid MBitmapFill identifier to parse ({0}).", text);
    return static_cast<MBitmapFill>(index);
}

MString MGetBitmapFillName(MBitmapFill fill) {
    return FillNames[static_cast<int32_t>(fill)];
}

MBitmapAlignment MParseBitmapAlignment(const MString& text) {
    return static_cast<MBitmapAlignment>(std::max(MFindName(AlignmentNames, text), 0));
}

MString MGetBitmapAlignmentName(MBitmapAlignment alignment) {
    return AlignmentNames[static_cast<int32_t>(alignment)];
}
