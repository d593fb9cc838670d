#pragma once

#include "ui/geometry/MRect.h"

enum class MPopupSide { Below, Beside };

/// Where a popup of a size opens at a rectangle of the screen: below it or at its right, else above it or at its left
/// where there is no room, and always inside the free part of the monitor.
[[nodiscard]] MPoint MPlacePopup(MPoint size, const MRect& anchor, MPopupSide side);
/// The free part of the monitor that a popup at a rectangle opens on.
[[nodiscard]] MRect MGetPopupRoom(const MRect& anchor);
