#pragma once

#include "foundation/values/MValueEnum.h"
#include "ui/geometry/MPoint.h"
#include "ui/image/MBitmap.h"

/// What a mouse pointer says. A style has a picture for each.
enum class MStdCursor : int8_t {
    Arrow,
    Wait,
    Cross,
    IBeam,
    Link,
    No,
    Pen,
    Eraser,
    Selection,
    Move,
    Size,
    ArrowUD,
    ArrowLR,
    Hollow,
};

inline constexpr const char* MStdCursorNames[] = {"arrow", "wait",    "cross",   "ibeam",     "link",
                                                  "no",    "pen",     "eraser",  "selection", "move",
                                                  "size",  "arrowud", "arrowlr", "hollow"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MStdCursor> = MStdCursorNames;

/// The picture of a mouse pointer: colours with alpha, and the pixel that points. Where pointers have no
/// alpha, pixels below `minalpha` are transparent and the others opaque. One without a picture is the
/// platform's own for its kind.
struct MCursor {
    MStdCursor kind = MStdCursor::Arrow;
    MBitmap bitmap;
    MPoint hotSpot;
    uint8_t minalpha = 128;
};
