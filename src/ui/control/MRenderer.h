#pragma once

#include "foundation/base/MObject.h"
#include "ui/drawing/MDrawer.h"

#include <memory>

class MControl;

/// Decides how the controls of one root reach its window. Rectangles are in the control's own coordinates.
class MRenderer : public MObject {
public:
    virtual void OnControlAttached(MControl&) {}
    /// Records that a part of a control is to be painted (`MControl::RecordDirty`). Returns false if that was
    /// known already. Under the paint lock.
    virtual bool InvalidateRect(MControl& control, const MRect& rect) = 0;
    /// Paints a part of a control. The control may end in it.
    virtual void Render(MControl& control, const MRect& rect) = 0;
    /// A drawer for a control, as `Render` would use it; null if nothing can be painted. The control outlives
    /// it.
    [[nodiscard]] virtual std::unique_ptr<MDrawer> CreateDrawer(MControl& control) = 0;
    virtual void DestroyDrawer(std::unique_ptr<MDrawer>) {}
    virtual void OnControlHidden(MControl&) {}
    virtual void OnControlDetached(MControl&) {}
};

/// Paints straight into the window's back buffer, where a control covers what lies behind it. Controls of the
/// class `Empty` paint nothing.
class MRenderer_ToWindow final : public MRenderer {
public:
    bool InvalidateRect(MControl& control, const MRect& rect) override;
    void Render(MControl& control, const MRect& rect) override;
    [[nodiscard]] std::unique_ptr<MDrawer> CreateDrawer(MControl& control) override;

    /// Whether the root paints all that lies in the rectangle too.
    bool propagateToRoot = true;
};

/// Keeps a bitmap of each control, so that what is transparent is painted over what lies behind it without
/// painting that again. Controls that paint nothing, as those of the class `Empty`, have none: what they paint all
/// the same lands in that of the nearest control above them. Those that are far larger than a screen have none either,
/// and are painted straight into the back buffer. Each pixel gets into the window once, by the control on top.
class MRenderer_MBitmap final : public MRenderer {
public:
    bool InvalidateRect(MControl& control, const MRect& rect) override;
    void Render(MControl& control, const MRect& rect) override;
    [[nodiscard]] std::unique_ptr<MDrawer> CreateDrawer(MControl& control) override;
    void OnControlHidden(MControl& control) override;
    void OnControlDetached(MControl& control) override;
};
