#include "ui/window/MWindowPainter.h"

#include "foundation/base/MGuard.h"
#include "foundation/events/MEmulatedLockGuard.h"
#include "foundation/events/MLockGuard.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

MRect MWindowPainter::PaintWindow(MControl& root, const MRect& rect) {
    MWindows* const windows = MWindows::GetInstance();
    const MPoint size = root.GetShownSize();
    if (!windows || rect.IsEmpty() || size.x < 1 || size.y < 1) return MRect();

    const MControlRef alive(&root);
    const std::shared_ptr<MControlRoot> state = root.GetRootState().shared_from_this();
    const MEmulatedLockGuard treeGuard(&state->lock, MERWLock::Read);
    const MLockGuard paintGuard(&windows->GetPaintLock());
    const MRect whole = MRect::FromSize(0, 0, size.x, size.y);
    MRect shown = rect.Intersected(whole);
    bool isKept = false;
    // A window that is too large for the memory stays without a picture.
    if (!MGuard("MWindowPainter::PaintWindow", [&] { isKept = BeginPaint(size); })) return MRect();
    if (!isKept) {
        root.Invalidate();
        // All of it is painted now, so the platform need not hear of it.
        state->windowDirtyFlag = false;
        state->windowDirtyRect = MRect();
        shown = whole;
    }
    root.PerformPaintDispatch();
    MGuard("MWindowPainter::PaintWindow", [&] { EndPaint(); });
    if (!alive || !root.Is(MControlFlag::HasWindow)) return MRect();
    // A handler may have painted the window in another size.
    return GetBitmap() ? shown.Intersected(GetBitmap()->GetRect()) : shown;
}
