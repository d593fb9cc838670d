#pragma once

#include "foundation/base/MObject.h"
#include "ui/geometry/MRect.h"

#include <memory>

class MControl;
class MDrawer;

/// Decides how the controls of one root reach its window. Rectangles are in the control's own coordinates.
class MRenderer : public MObject {
public:
    virtual void OnControlAttached(MControl& control) = 0;
    /// Records that a part of a control is to be painted. Returns false if that was known already.
    virtual bool InvalidateRect(MControl& control, const MRect& rect) = 0;
    /// Paints a part of a control.
    virtual void Render(MControl& control, const MRect& rect) = 0;
    /// A drawer for a control, as `Render` would use it; null if nothing can be painted.
    [[nodiscard]] virtual std::unique_ptr<MDrawer> CreateDrawer(MControl& control) = 0;
    virtual void DestroyDrawer(std::unique_ptr<MDrawer> drawer) = 0;
    virtual void OnControlHidden(MControl& control) = 0;
    virtual void OnControlDetached(MControl& control) = 0;
};

/// Paints straight into the window's back buffer, where a control covers what lies behind it.
class MRenderer_ToWindow final : public MRenderer {
public:
    void OnControlAttached(MControl& control) override;
    bool InvalidateRect(MControl& control, const MRect& rect) override;
    void Render(MControl& control, const MRect& rect) override;
    [[nodiscard]] std::unique_ptr<MDrawer> CreateDrawer(MControl& control) override;
    void DestroyDrawer(std::unique_ptr<MDrawer> drawer) override;
    void OnControlHidden(MControl& control) override;
    void OnControlDetached(MControl& control) override;

    /// Whether the root paints all that lies in the rectangle too.
    bool propagateToRoot = true;
};

/// Keeps a bitmap of each control, so that what is transparent is painted over what lies behind it without
/// painting that again.
class MRenderer_MBitmap final : public MRenderer {
public:
    void OnControlAttached(MControl& control) override;
    bool InvalidateRect(MControl& control, const MRect& rect) override;
    void Render(MControl& control, const MRect& rect) override;
    [[nodiscard]] std::unique_ptr<MDrawer> CreateDrawer(MControl& control) override;
    void DestroyDrawer(std::unique_ptr<MDrawer> drawer) override;
    void OnControlHidden(MControl& control) override;
    void OnControlDetached(MControl& control) override;
};
