#pragma once

#include "foundation/base/MList.h"
#include "foundation/events/MERWLock.h"
#include "ui/control/MControlRef.h"
#include "ui/control/MLayout.h"
#include "ui/control/MRenderer.h"
#include "ui/control/MStyle.h"
#include "ui/control/kinds/MModalValue.h"
#include "ui/geometry/MRect.h"
#include "ui/image/MBitmap.h"

#include <cstdint>
#include <deque>
#include <memory>

class MControl;

/// What only the root of a tree has. Whoever lets handlers run while the lock is held or the renderer paints
/// shares it for so long, since the root may end in them.
struct MControlRoot : std::enable_shared_from_this<MControlRoot> {
    std::unique_ptr<MStyle> style;  ///< of this window alone; null for that of all
    std::unique_ptr<MRenderer> renderer;
    MERWLock lock;

    /// Other roots that hear of what nobody here has consumed. Not owned.
    MList<MControl, MListPointers> overlayWindows;
    MControlRef windowParent;  ///< the root that this one was opened over
    MModalValue modalResult = MModalValue::None;

    MControl* focusedControl = nullptr;
    MControl* hover = nullptr;     ///< the deepest control that the mouse is in
    MControl* captured = nullptr;  ///< the one that has the mouse
    bool isTabOrderValid = false;
    bool isFocusAway = false;  ///< the window is inactive, and the focused control knows it

    // What is to be painted, in window coordinates. Under the paint lock.
    MRect windowDirtyRect;
    bool windowDirtyFlag = false;

    std::deque<MControlRef> resized;  ///< what is to hear of its new size
    MFlexibility flexibility = MFlexibleNone;
    bool hasFirstSizes = false;  ///< whether the window has got the size that its controls had before it
    bool isMaximizedWhenPlaced = false;  ///< the state that was loaded says so
    uint8_t resizeBorderWidth = 6;
    uint8_t resizeBorders = 0;  ///< those that are being dragged
    MPoint dragAnchor;          ///< where the mouse took hold of the window
    MRect windowRectSaved;      ///< the frame to be, while the window is moved or resized
    MBitmap backgroundBitmap;   ///< painted in place of the style's background
};
