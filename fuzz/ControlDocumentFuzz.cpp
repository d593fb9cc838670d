// A document of controls: it is loaded into a window, which is measured, arranged and painted in two sizes.

#include "examples/windows/MPlainStyle.h"
#include "foundation/base/MGuard.h"
#include "streams/basic/MMemoryStream.h"
#include "ui/control/windows/MWindows.h"
#include "ui/loader/MStandardCreators.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <cstddef>
#include <cstdint>

namespace {

MWindows& GetWindows() {
    static MWindows windows(std::make_unique<MWindowSystemHeadless>());
    if (!windows.GetStyle()) {
        windows.SetStyle(std::make_unique<MPlainStyle>(&windows, "/usr/share/fonts/truetype"));
        MControl::MXmlLoader::SetFiller(&MAddStandardCreators);
    }
    return windows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MWindows& windows = GetWindows();
    MMemoryStream stream(data, static_cast<int32_t>(size));
    MXMLItem document;
    MControl root(nullptr, "root");
    root.SetControlType(MControlType::Window);
    // A damaged document leaves what was made before, which has to be a window all the same. That a control cannot do
    // what a document wants it to comes out when the window is measured.
    MGuard("document", [&] {
        document.Load(stream);
        root.LoadFromXml(document);
    });
    // Whatever the document wants, the picture has to fit into the memory.
    root.Set(MControlFlag::AdaptSize, false);
    root.Set(MControlFlag::FullScreen, false);
    root.maximalSize = {4000, 4000};
    MGuard("window", [&] {
        root.size = {200, 150};
        root.CreateWindow(nullptr);
        root.ShowModeless(nullptr);
        root.RedrawNow();
        windows.GetSystem().Resize(root, {90, 60});
        root.RedrawNow();
    });
    return 0;
}
