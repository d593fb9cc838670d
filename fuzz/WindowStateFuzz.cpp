// Opens a window with a hostile state file. Whatever the file says, the window has to be a window on the
// screen.

#include "foundation/base/MException.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"
#include "ui/control/MControl.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <cstddef>
#include <cstdint>

namespace {

/// A window with some controls, one of which can be collapsed.
struct Window {
    Window() {
        root.size = {300, 200};
        root.minimalSize = {100, 80};
        panel.Set(MControlFlag::Collapsable);
        root.CreateWindow(nullptr);
    }
    /// Whether a part of it can be taken hold of.
    [[nodiscard]] bool IsReachable(MWindowSystem& system) {
        const MRect area = system.GetWorkArea(root.position);
        return root.size.x >= 100 && root.size.y >= 80 && area.Contains(root.position);
    }

    MControl root{nullptr, "main"};
    MControl panel{&root, "panel"};
    MControl inner{&panel, "inner"};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MXMLItem state;
    try {
        MMemoryStream stream(data, static_cast<int32_t>(size));
        state.Load(stream);
    } catch (const MException&) {
        // What was read so far counts.
    }
    MWindows windows(std::make_unique<MWindowSystemHeadless>());
    Window window;
    window.root.LoadState(state);
    if (!window.IsReachable(windows.GetSystem())) __builtin_trap();
    MXMLItem saved("ControlState");
    if (!window.root.SaveState(saved)) __builtin_trap();
    Window again;
    again.root.LoadState(saved);
    if (again.root.position != window.root.position || again.root.size != window.root.size) __builtin_trap();
    return 0;
}
