#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/MRenderer.h"
#include "ui/control/windows/MWindows.h"
#include "ui/drawing/MClipScope.h"

bool MRenderer_ToWindow::InvalidateRect(MControl& control, const MRect& rect) {
    const bool isNew = control.RecordDirty(rect);
    MControl& root = control.GetRoot();
    if (isNew && propagateToRoot && &root != &control) root.RecordDirty(rect.Shifted(control.windowOffset));
    return isNew;
}

void MRenderer_ToWindow::Render(MControl& control, const MRect& rect) {
    if (control.GetControlType() == MControlType::Empty) return;
    const std::unique_ptr<MDrawer> drawer = CreateDrawer(control);
    if (!drawer) return;
    MClipScope scope(*drawer);
    if (!scope.Intersect(rect)) control.PaintWith(*drawer);
}

std::unique_ptr<MDrawer> MRenderer_ToWindow::CreateDrawer(MControl& control) {
    MWindows* const windows = MWindows::GetInstance();
    MStyle* const style = control.GetStyle();
    MDrawer* const target = windows ? windows->GetSystem().GetDrawer(control.GetRoot()) : nullptr;
    if (!target || !style) return nullptr;
    auto drawer = std::make_unique<MDrawerUsingStyle<MDrawer>>(*style, control);
    const MPoint size = control.GetShownSize();
    drawer->SetTarget(target);
    drawer->SetTranslation(control.windowOffset.x, control.windowOffset.y);
    drawer->SetSize(size.x, size.y);
    return drawer;
}
