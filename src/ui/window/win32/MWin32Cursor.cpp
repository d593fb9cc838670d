#include "ui/window/win32/MWin32Cursor.h"

#include "foundation/base/MException.h"
#include "ui/image/MSysBitmap.h"

#include <type_traits>
#include <vector>

namespace {

struct DeleteBitmap {
    using pointer = HBITMAP;
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteBitmap>;

/// The system's own for the kinds, in their order.
const std::array<const wchar_t*, MEnumNames<MStdCursor>.size()> SystemCursors = {
    IDC_ARROW, IDC_WAIT,  IDC_CROSS,   IDC_IBEAM,    IDC_HAND,   IDC_NO,     IDC_CROSS,
    IDC_CROSS, IDC_CROSS, IDC_SIZEALL, IDC_SIZENWSE, IDC_SIZENS, IDC_SIZEWE, nullptr};

/// Colours with an alpha of 0 or 255. Where nothing has alpha, the system takes the mask.
MBitmap GetColors(const MCursor& cursor) {
    MBitmap colors = cursor.bitmap.ToDirect();
    colors.ChangeColors([&](MColor color) {
        return color.alpha < cursor.minalpha ? MColor{0, 0, 0, 0} : color.WithAlpha(255);
    });
    return colors;
}

/// One bit for each pixel, set where the pointer is transparent; rows are of whole 16-bit words.
BitmapHandle CreateMask(const MBitmap& colors) {
    const int32_t stride = (colors.GetWidth() + 15) / 16 * 2;
    std::vector<uint8_t> bits(static_cast<size_t>(stride) * static_cast<size_t>(colors.GetHeight()));
    for (int32_t y = 0; y < colors.GetHeight(); ++y)
        for (int32_t x = 0; x < colors.GetWidth(); ++x)
            if (colors.GetRow(y)[x].alpha == 0)
                bits[static_cast<size_t>(y * stride + x / 8)] |= static_cast<uint8_t>(0x80 >> x % 8);
    return BitmapHandle(CreateBitmap(colors.GetWidth(), colors.GetHeight(), 1, 1, bits.data()));
}

HCURSOR CreateCursor(const MCursor& cursor) {
    MBitmap colors = GetColors(cursor);
    const BitmapHandle mask = CreateMask(colors);
    ICONINFO description{};
    description.fIcon = FALSE;
    description.xHotspot = static_cast<DWORD>(cursor.hotSpot.x);
    description.yHotspot = static_cast<DWORD>(cursor.hotSpot.y);
    description.hbmMask = mask.get();
    description.hbmColor = reinterpret_cast<HBITMAP>(colors.CreateSystemBitmap().GetHandle());
    return CreateIconIndirect(&description);
}

}  // namespace

MWin32Cursor::MWin32Cursor(const MCursor& cursor) : isShared(cursor.bitmap.IsEmpty()) {
    const wchar_t* const name = SystemCursors.at(static_cast<size_t>(cursor.kind));
    if (isShared && !name) return;
    const HCURSOR native = isShared ? LoadCursorW(nullptr, name) : CreateCursor(cursor);
    if (!native) MRaise(MExceptionGDI, "Could not create system cursor.");
    handle = reinterpret_cast<intptr_t>(native);
}

MWin32Cursor::~MWin32Cursor() {
    if (isShared) return;
    if (::GetCursor() == GetCursor()) SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    DestroyCursor(GetCursor());
}

HCURSOR MWin32Cursors::Get(const MCursor& cursor) {
    Entry& entry = entries.at(static_cast<size_t>(cursor.kind));
    const MCursor& known = entry.source;
    if (!entry.cursor || known.bitmap.GetPixels() != cursor.bitmap.GetPixels() ||
        known.hotSpot != cursor.hotSpot || known.minalpha != cursor.minalpha) {
        entry.cursor = std::make_unique<MWin32Cursor>(cursor);
        entry.source = cursor;
    }
    return entry.cursor->GetCursor();
}
