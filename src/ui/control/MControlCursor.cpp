#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

namespace {

/// That of dragging borders: across, up and down, or a corner.
MStdCursor GetBorderCursor(uint8_t borders) {
    const bool isAcross = borders & (MBorderLeft | MBorderRight);
    const bool isUpDown = borders & (MBorderTop | MBorderBottom);
    if (isAcross) return isUpDown ? MStdCursor::Size : MStdCursor::ArrowLR;
    return isUpDown ? MStdCursor::ArrowUD : MStdCursor::Arrow;
}

}  // namespace

MStdCursor MControl::GetCursorAt(MPoint point) {
    const MWindows* const windows = MWindows::GetInstance();
    if (windows && windows->dragSource) return MStdCursor::Move;
    if (IsRoot()) {
        if (const uint8_t borders = HitTestWindowBorder(point)) return GetBorderCursor(borders);
    }
    if (Is(MControlFlag::LinkCursor)) return MStdCursor::Link;
    if (Is(MControlFlag::CursorFromParent) && parent)
        return parent->GetCursorAt(parent->GetOwnPoint(GetWindowPoint(point)));
    return MStdCursor::Arrow;
}

void MControl::UpdateCursor(MPoint ownPoint) {
    MWindows* const windows = GetWindows();
    MStyle* const style = GetStyle();
    if (!windows || !style) return;
    MStdCursor cursor = MStdCursor::Arrow;
    if (windows->forcedCursor >= 0)
        cursor = static_cast<MStdCursor>(windows->forcedCursor);
    else if (root->Is(MControlFlag::WindowResizing))
        cursor = GetBorderCursor(GetRootState().resizeBorders);
    else if (!windows->IsBlocked(*root))
        cursor = GetCursorAt(ownPoint);
    windows->GetSystem().SetCursor(*root, style->GetCursor(cursor, *this, GetDrawState()));
}

void MControl::RefreshCursor() {
    if (!GetWindows()) return;
    const MPoint point = GetMousePoint();
    MControl& target = GetRootState().captured ? *GetRootState().captured : root->FindControlAt(point);
    target.UpdateCursor(target.GetOwnPoint(point));
}
