#pragma once

#include "foundation/base/MList.h"
#include "ui/geometry/MRect.h"
#include "ui/window/x11/display/MXConnection.h"

/// A screen that the user sees, in the coordinates of the root.
struct MXMonitor {
    MRect frame;
    MRect workArea;  ///< without what docks and panels have reserved for themselves
};

/// The monitors of a display, the primary one first, with their work areas: those that RandR tells, less what
/// the windows in the manager's list have reserved at the edges of the root (EWMH, _NET_WM_STRUT_PARTIAL).
/// `_NET_WORKAREA` cannot serve, since it is one rectangle for all. Never empty.
[[nodiscard]] MList<MXMonitor> MXReadMonitors(const MXConnection& connection);

/// The monitor at a point, or the nearest one.
[[nodiscard]] const MXMonitor& MXMonitorAt(const MList<MXMonitor>& monitors, MPoint point);
