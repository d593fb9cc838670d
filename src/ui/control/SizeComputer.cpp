#include "ui/control/SizeComputer.h"

#include "ui/control/MControl.h"
#include "ui/control/MStyle.h"
#include "ui/geometry/MLength.h"

#include <algorithm>

namespace {

int32_t AddBorder(const MControl& control, MAxis axis, int32_t length) {
    return MClampLength(MClampLength(length) + int64_t{2} * SizeComputer::GetBorder(control, axis));
}

int32_t GetMinimal(const MControl& control, MAxis axis) {
    const int32_t minimal = control.minimalSize[axis];
    const bool isFixed = control.layoutRatio[axis] <= 0 && !control.Is(MControlFlag::Plastic);
    return AddBorder(control, axis, isFixed ? std::max(minimal, control.size[axis]) : minimal);
}

int32_t GetCurrent(const MControl& control, MAxis axis) {
    const bool isPlastic = control.Is(MControlFlag::Plastic);
    return AddBorder(control, axis, isPlastic ? control.minimalSize[axis] : control.GetShownSize()[axis]);
}

int32_t GetScaled(const MControl& control, MAxis axis, int32_t length) {
    MStyle* const style = control.GetStyle();
    if (!style || length <= 0) return MClampLength(length);
    return MClampLength(axis == MAxis::X ? style->ScaleX(length) : style->ScaleY(length));
}

}  // namespace

int32_t SizeComputer::GetBorder(const MControl& control, MAxis axis) {
    return GetScaled(control, axis, control.layoutBorder[axis]);
}

int32_t SizeComputer::GetSpaceAfter(const MControl& control, MAxis axis) {
    return GetScaled(control, axis, control.layoutSpaceAfter);
}

int32_t MinimalSizeComputer::GetX(MControl& control) const {
    return GetMinimal(control, MAxis::X);
}

int32_t MinimalSizeComputer::GetY(MControl& control) const {
    const bool isCollapsed = control.Is(MControlFlag::Collapsed) && control.collapsedSize.y != 0;
    return isCollapsed ? AddBorder(control, MAxis::Y, control.collapsedSize.y)
                       : GetMinimal(control, MAxis::Y);
}

int32_t CurrentSizeComputer::GetX(MControl& control) const {
    return GetCurrent(control, MAxis::X);
}

int32_t CurrentSizeComputer::GetY(MControl& control) const {
    return GetCurrent(control, MAxis::Y);
}

int32_t StripSizeComputer::GetX(MControl& control) const {
    return std::max(computer.GetX(control), GetCurrent(control, MAxis::X));
}

int32_t StripSizeComputer::GetY(MControl& control) const {
    return std::max(computer.GetY(control), GetCurrent(control, MAxis::Y));
}
