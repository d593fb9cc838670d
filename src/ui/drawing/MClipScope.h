#pragma once

#include "ui/drawing/MDrawer.h"

/// Brings a drawer's clip back at the end of a block.
class MClipScope {
public:
    explicit MClipScope(MDrawer& drawer) : drawer(drawer), clip(drawer.GetClip()) {}
    MClipScope(const MClipScope&) = delete;
    MClipScope& operator=(const MClipScope&) = delete;
    ~MClipScope() { drawer.SetClip(clip); }

    /// Narrows the drawer's clip. True if nothing is left of it.
    bool Intersect(const MRect& rect) {
        const MRect common = drawer.GetClip().Intersected(rect);
        drawer.SetClip(common);
        return common.IsEmpty();
    }

private:
    MDrawer& drawer;
    MRect clip;
};
