#include "foundation/base/MGuard.h"
#include "ui/control/MControl.h"
#include "ui/window/win32/MMSWindowsWindowDescriptor.h"
#include "ui/window/win32/MWin32DC.h"
#include "ui/window/win32/MWin32Objects.h"
#include "ui/window/win32/MWindowSystemMSWindows.h"

#include <algorithm>

void MWindowSystemMSWindows::DrawDragFrame(MControl&, int32_t x, int32_t y, int32_t width, int32_t height) {
    constexpr int32_t Thickness = 4;
    MGuard("MWindowSystem::DrawDragFrame", [&] {
        const MWin32DC desktop = MWin32DC::OfWindow(nullptr);
        const MWin32Pen pen(MColor{});
        const MWin32Brush hollow;
        const MGDIPreObject selectedPen(desktop, pen);
        const MGDIPreObject selectedBrush(desktop, hollow);
        SetROP2(desktop.GetContext(), R2_NOT);
        for (int32_t i = 0; i < Thickness; ++i)
            Rectangle(desktop.GetContext(), x + i, y + i, x + width - i, y + height - i);
    });
}

void MWindowSystemMSWindows::Invalidate(MControl& root, const MRect& rect) {
    const RECT native = {rect.left, rect.top, rect.right, rect.bottom};
    if (const HWND window = MMSWindowsWindowDescriptor::FindHandle(root))
        InvalidateRect(window, &native, FALSE);
}

void MWindowSystemMSWindows::Update(MControl& root) {
    const HWND window = MMSWindowsWindowDescriptor::FindHandle(root);
    if (!window) return;
    UpdateWindow(window);
    // Long work repaints and does nothing else. Without a look at the queue the system would take the program
    // for hung, and Wine would not show what was painted. No message is in that range.
    MSG message;
    PeekMessageW(&message, window, WM_APP, WM_APP, PM_NOREMOVE);
}

MDrawer* MWindowSystemMSWindows::GetDrawer(MControl& root) {
    const MMSWindowsWindowDescriptor* const descriptor = MMSWindowsWindowDescriptor::Find(root);
    return descriptor ? &descriptor->painter->GetDrawer() : nullptr;
}

bool MWindowSystemMSWindows::CaptureToBitmap(MControl& root, MBitmap& bitmap) {
    const MControlRef alive(&root);
    root.RedrawNow();
    const MMSWindowsWindowDescriptor* const descriptor =
        alive ? MMSWindowsWindowDescriptor::Find(root) : nullptr;
    if (!descriptor || !descriptor->window) return false;
    // What the system has not shown it may not have.
    if (!descriptor->painter->GetBitmap()) return descriptor->painter->TakePicture(root, bitmap);
    const HWND window = descriptor->window;
    RECT area;
    if (!GetClientRect(window, &area)) return false;
    bool isCaptured = false;
    MGuard("MWindowSystem::CaptureToBitmap", [&] {
        MBitmap surface;
        surface.CreateSurface(area.right, area.bottom);
        if (!MWin32DC::OfWindow(window).CopyTo(surface)) return;
        // Windows have no alpha.
        bitmap.CreateOpaque(area.right, area.bottom);
        std::transform(surface.GetPixels(), surface.GetPixels() + int64_t{area.right} * area.bottom,
                       bitmap.EditPixels(), [](MColor color) { return color.WithAlpha(255); });
        isCaptured = true;
    });
    return isCaptured;
}
