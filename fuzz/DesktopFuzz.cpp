// Reads the input as what other programs of a desktop give: the property of a settings daemon, resources of
// the root window, and a list of dropped files.

#include "ui/window/x11/display/MXSettings.h"
#include "ui/window/x11/selections/MXDragTarget.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    (void)MXSettings::FindNumber(bytes, "Xft/DPI", 0);
    (void)MXSettings::FindText(bytes, "Net/ThemeName");
    (void)MXSettings::FindResource(bytes, "Xft.dpi", 0);
    for (const MString& path : MXDragTarget::ParseFiles(bytes))
        if (path.IsEmpty() || path[0] != u'/') __builtin_trap();
    return 0;
}
