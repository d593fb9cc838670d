#include "ui/widgets/menus/MPopupPlace.h"

#include "ui/control/windows/MWindows.h"

#include <algorithm>

MRect MGetPopupRoom(const MRect& anchor) {
    MWindows* const windows = MWindows::GetInstance();
    return windows ? windows->GetSystem().GetWorkArea(anchor.GetTopLeft()) : MRect();
}

MPoint MPlacePopup(MPoint size, const MRect& anchor, MPopupSide side) {
    const MRect room = MGetPopupRoom(anchor);
    const auto place = [&](MAxis axis, int32_t first, int32_t second) {
        const int32_t low = room.GetLow(axis);
        const int32_t last = room.GetHigh(axis) - size[axis] + 1;
        if (first >= low && first <= last) return first;
        if (second >= low && second <= last) return second;
        return std::max(std::min(first, last), low);
    };
    if (side == MPopupSide::Below)
        return {place(MAxis::X, anchor.left, anchor.right - size.x + 1),
                place(MAxis::Y, anchor.bottom + 1, anchor.top - size.y)};
    return {place(MAxis::X, anchor.right + 1, anchor.left - size.x),
            place(MAxis::Y, anchor.top, anchor.bottom - size.y + 1)};
}
