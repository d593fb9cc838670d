#include "ui/layout/MLayoutCorner.h"

#include "foundation/base/MException.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControl.h"
#include "ui/geometry/MLength.h"

#include <algorithm>
#include <cstddef>

void MLayoutCorner::LoadControlParameters(MControl& control, MXMLItem& item) {
    Add(control, static_cast<MCornerTarget>(item.GetInt32Attribute("target", -1)));
}

void MLayoutCorner::Detach(MControl& control) {
    std::replace(corners.begin(), corners.end(), &control, static_cast<MControl*>(nullptr));
    MLayout::Detach(control);
}

void MLayoutCorner::Add(MControl& control, MCornerTarget target) {
    if (target < MCornerTarget::TopLeft || target >= MCornerTarget::Count)
        MRaise(MExceptionGeneral, "Invalid target for corner layout.");
    if (target >= MCornerTarget::Left) {
        MLayoutClient& strip = target == MCornerTarget::Left    ? static_cast<MLayoutClient&>(left)
                               : target == MCornerTarget::Top   ? static_cast<MLayoutClient&>(top)
                               : target == MCornerTarget::Right ? static_cast<MLayoutClient&>(right)
                                                                : bottom;
        strip.defBorderX = defBorderX;
        strip.defBorderY = defBorderY;
        strip.Add(control);
        return;
    }
    Add(control);
    MControl*& corner = corners[static_cast<size_t>(target)];
    if (corner) Detach(*corner);
    corner = &control;
    control.layoutPlacement = static_cast<MAlignment>(control.layoutPlacement & MAlignFill);
}

MRect MLayoutCorner::Arrange(MControl& arranged, const MRect& rect) {
    const int32_t gap = GetStyleSpace();
    const Margins margins = GetMargins(arranged, CurrentSizeComputer());

    for (const End endX : Ends)
        for (const End endY : Ends)
            if (MControl* const corner = GetCorner(MAxis::X, endX, endY)) {
                MRect cell = rect;
                CutTo(cell, MAxis::X, endX, margins.Get(MAxis::X, endX));
                CutTo(cell, MAxis::Y, endY, margins.Get(MAxis::Y, endY));
                arranged.PlaceControl(*corner, cell);
            }

    MRect rest = rect;
    for (const MAxis across : {MAxis::X, MAxis::Y}) {
        const MAxis along = Across(across);
        for (const End end : Ends) {
            const int64_t lengthOfLow =
                int64_t{margins.low[along]} + (GetCorner(across, end, End::Low) ? gap : 0);
            const int64_t lengthOfHigh =
                int64_t{margins.high[along]} + (GetCorner(across, end, End::High) ? gap : 0);
            MRect cell = rect;
            CutTo(cell, across, end, margins.Get(across, end));
            cell.SetLow(along, MClampPlace(rect.GetLow(along) + lengthOfLow));
            cell.SetHigh(along, MClampPlace(rect.GetHigh(along) - lengthOfHigh));
            static_cast<void>(GetStrip(across, end).Arrange(arranged, cell));
        }
        const int64_t low =
            rect.GetLow(across) + (margins.low[across] > 0 ? int64_t{margins.low[across]} + gap : 0);
        const int64_t high =
            rect.GetHigh(across) - (margins.high[across] > 0 ? int64_t{margins.high[across]} + gap : 0);
        rest.SetLow(across, MClampPlace(low));
        rest.SetHigh(across, MClampPlace(std::max(high, low - 1)));
    }
    return rest;
}

void MLayoutCorner::Measure(MControl& measured, MLayoutNeeds& needs, const SizeComputer& computer) {
    const int32_t gap = GetStyleSpace();
    const Margins margins = GetMargins(measured, computer);
    for (const MAxis across : {MAxis::X, MAxis::Y}) {
        const MAxis along = Across(across);
        for (const End end : Ends) {
            MLayoutNeeds strip;
            GetStrip(across, end).Measure(measured, strip, computer);
            const int items = (GetCorner(across, end, End::Low) ? 1 : 0) +
                              (strip.needed == MPoint() ? 0 : 1) +
                              (GetCorner(across, end, End::High) ? 1 : 0);
            needs.Fill(along, MClampLength(int64_t{margins.low[along]} + margins.high[along] +
                                           strip.needed[along] + int64_t{gap} * std::max(items - 1, 0)));
        }
    }
    for (const MAxis axis : {MAxis::X, MAxis::Y})
        for (const End end : Ends)
            if (const int32_t margin = margins.Get(axis, end); margin > 0) needs.Take(axis, margin, gap);
}

MFlexibility MLayoutCorner::GetFlexibility() {
    return ((left.GetFlexibility() | right.GetFlexibility()) & MFlexibleY) |
           ((top.GetFlexibility() | bottom.GetFlexibility()) & MFlexibleX);
}

void MLayoutCorner::SetOwner(MControl& newOwner) {
    MLayout::SetOwner(newOwner);
    left.SetOwner(newOwner);
    right.SetOwner(newOwner);
    top.SetOwner(newOwner);
    bottom.SetOwner(newOwner);
}

MLayoutClient& MLayoutCorner::GetStrip(MAxis across, End end) {
    if (across == MAxis::X) return end == End::Low ? left : right;
    if (end == End::Low) return top;
    return bottom;
}

MControl* MLayoutCorner::GetCorner(MAxis axis, End end, End otherEnd) const {
    const End endX = axis == MAxis::X ? end : otherEnd;
    const End endY = axis == MAxis::X ? otherEnd : end;
    MControl* const corner = corners[(endX == End::High ? 1 : 0) + (endY == End::High ? 2 : 0)];
    return corner && corner->Is(MControlFlag::Visible) ? corner : nullptr;
}

MLayoutCorner::Margins MLayoutCorner::GetMargins(MControl& measured, const SizeComputer& computer) {
    const MinimalSizeComputer minimal;
    Margins margins;
    for (const MAxis across : {MAxis::X, MAxis::Y})
        for (const End end : Ends) {
            MLayoutNeeds strip;
            GetStrip(across, end).Measure(measured, strip, StripSizeComputer(computer));
            int32_t& margin = margins.Get(across, end);
            margin = strip.needed[across];
            for (const End otherEnd : Ends)
                if (MControl* const corner = GetCorner(across, end, otherEnd))
                    margin = std::max(margin, minimal.Get(*corner, across));
        }
    return margins;
}

void MLayoutCorner::CutTo(MRect& rect, MAxis axis, End end, int32_t thickness) {
    if (end == End::Low)
        rect.SetHigh(axis, rect.GetLow(axis) + thickness - 1);
    else
        rect.SetLow(axis, rect.GetHigh(axis) - thickness + 1);
}
