// The first byte is a width in steps of 4 pixels; the rest is a document in UTF-8. Measures must be the same when asked
// for again, and the optimal width must keep the height. It is written
// as a page for a browser, too, to its end.

#include "foundation/text/MUnicode.h"
#include "tests/support/MTestDrawer.h"
#include "ui/stml/MSTML.h"
#include "ui/stml/MSTMLHTMLWriter.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

constexpr int32_t Size = 256;

MTestDrawer& GetDrawer() {
    static MBitmap bitmap(Size, Size);
    static MTestDrawer drawer("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 12);
    drawer.SetBitmap(&bitmap);
    return drawer;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    MTestDrawer& drawer = GetDrawer();
    const int32_t width = data[0] * 4;
    const MString markup = MDecodeUTF8Exact({reinterpret_cast<const char*>(data + 1), size - 1});
    MSTML document(markup);
    int32_t needed = 0;
    const int32_t height = document.GetHeightForWidth(drawer, width, needed);
    const int32_t optimal = document.GetOptimalWidth(drawer, width);
    if (height < 0 || needed < 0 || optimal > width || document.Measure(drawer, optimal) > height)
        __builtin_trap();
    if (document.GetMinimalWidth(drawer) < 0 || document.GetMaximalWidth(drawer) < 0) __builtin_trap();
    document.Paint(drawer, MRect::FromSize(3, -5, width, Size), true);
    if (document.Measure(drawer, width) != height) __builtin_trap();
    if (!MSTMLHTMLWriter::Write("", markup).EndsWith("</body></html>\n")) __builtin_trap();
    return 0;
}
