// Reads hostile lists of updates against an installation, and shows what they offer in a list like the update
// manager's.

#include "examples/windows/MPlainStyle.h"
#include "foundation/base/MException.h"
#include "setup/wizard/MUpdateInstallerWindow.h"
#include "streams/basic/MMemoryStream.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <cstddef>
#include <cstdint>

namespace {

struct Window {
    Window() {
        root.SetControlType(MControlType::Window);
        root.SetClientControl(&list);
        root.Set(MControlFlag::AdaptSize, false);
        root.size = {500, 300};
        root.CreateWindow(nullptr);
        root.ShowWindow();
    }
    /// All rows, and once more with another width.
    void Paint() {
        for (const int32_t width : {500, 240}) {
            root.size.x = width;
            root.RedrawNow();
            for (int32_t i = 0; i < list.GetItemCount() && i < 16; ++i) {
                list.SelectRow(i);
                root.RedrawNow();
            }
        }
    }

    MControl root;
    MUpdateInstallerWindow::ListBoxType& list = *new MUpdateInstallerWindow::ListBoxType(&root, "list");
};

MWindows& OpenSystem() {
    static MWindows windows(std::make_unique<MWindowSystemHeadless>());
    windows.SetStyle(std::make_unique<MPlainStyle>(&windows, "/usr/share/fonts/truetype"));
    return windows;
}

void ShowOffers(MStream& reply) {
    MXMLItem state;
    state.SetAttribute("time", "2026-03-01 12:00:00");
    state.AddSubItem("package")->SetAttribute("time", "2026-01-01 08:00:00");
    MUpdateOffers offers;
    offers.Read(reply, state);
    Window window;
    for (const MUpdateOffers::List& list : {offers.GetUpdates(), offers.GetPackages()})
        for (const MXMLItem* offer : list) {
            if (("/" + offer->GetAttribute("filename", "")).Contains("/../")) __builtin_trap();
            window.list.AddOffer(*offer);
        }
    window.Paint();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    [[maybe_unused]] static const MWindows& windows = OpenSystem();
    MMemoryStream reply(data, static_cast<int32_t>(size));
    try {
        ShowOffers(reply);
    } catch (const MException&) {
        // What cannot be read is not shown.
    }
    return 0;
}
