#include "ui/window/x11/display/MXPresenter.h"

#include "ui/image/MBitmap.h"
#include "ui/image/MSysBitmap.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>
#include <xcb/shm.h>

namespace {

/// As much as one request sends, where the server takes more: its other clients want their turn.
constexpr size_t LargestBand = 1 << 20;
constexpr size_t RequestHeader = sizeof(xcb_put_image_request_t) + 4;

/// The highest bits of a channel, at the place of the mask.
uint32_t Place(uint8_t channel, uint32_t mask) {
    const int shift = 24 - std::countl_zero(mask);
    return (shift < 0 ? uint32_t{channel} >> -shift : uint32_t{channel} << shift) & mask;
}

void WriteRow(uint8_t* target, const MColor* pixels, int32_t count, const MXVisual& visual) {
    const int size = visual.bytesPerPixel;
    for (const MColor* pixel = pixels; pixel != pixels + count; ++pixel, target += size) {
        const uint32_t word = Place(pixel->red, visual.redMask) | Place(pixel->green, visual.greenMask) |
                              Place(pixel->blue, visual.blueMask);
        for (int i = 0; i < size; ++i)
            target[visual.isBigEndian ? size - 1 - i : i] = static_cast<uint8_t>(word >> 8 * i);
    }
}

}  // namespace

MXPresenter::MXPresenter(const MXConnection& connection, const MXVisual& visual, xcb_window_t window,
                         Way bestWay)
    : connection(connection),
      visual(visual),
      window(window),
      context(xcb_generate_id(connection)),
      way(bestWay) {
    const uint32_t noExposures = 0;
    xcb_create_gc(connection, context, window, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
    if (!connection.GetExtension(MXLibrary::SharedMemory).isPresent) way = Way::Sending;
    if (way == Way::Surface && !visual.IsDirect()) way = Way::Segment;
}

MXPresenter::~MXPresenter() {
    Finish();
    Detach();
    xcb_free_gc(connection, context);
}

void MXPresenter::Show(const MBitmap& picture, const MRect& part) {
    const MRect shown = part.Intersected(picture.GetRect());
    if (shown.IsEmpty()) return;
    Finish();
    if (way == Way::Surface && !AttachSurface(picture)) way = Way::Segment;
    if (way == Way::Segment && !ReserveSegment(GetRowSize(shown) * static_cast<size_t>(shown.GetHeight())))
        way = Way::Sending;
    copiedBytes += static_cast<int64_t>(GetRowSize(shown)) * shown.GetHeight();
    switch (way) {
    case Way::Surface: PutShared(picture.GetWidth(), picture.GetHeight(), shown.GetTopLeft(), shown); break;
    case Way::Segment:
        WriteRows(segment.memory, picture, shown);
        PutShared(shown.GetWidth(), shown.GetHeight(), {}, shown);
        break;
    case Way::Sending: Send(picture, shown); break;
    }
    xcb_flush(connection);
}

void MXPresenter::Finish() {
    if (!isReading) return;
    const MXReply<xcb_get_input_focus_reply_t> done(xcb_get_input_focus_reply(connection, reading, nullptr));
    isReading = false;
}

// A surface in plain memory could get shared memory later, but the server that refuses to attach one segment
// refuses them all.
bool MXPresenter::AttachSurface(const MBitmap& picture) {
    const MSysBitmap* const shared = picture.GetSharedMemory();
    if (!shared) return false;
    if (segment.id && surfaceHandle == shared->GetHandle()) return true;
    Detach();
    const uint32_t id = xcb_generate_id(connection);
    const auto request =
        xcb_shm_attach_checked(connection, id, static_cast<uint32_t>(shared->GetHandle()), 1);
    if (!connection.Succeeds(request)) return false;
    segment.id = id;
    surfaceHandle = shared->GetHandle();
    return true;
}

bool MXPresenter::ReserveSegment(size_t size) {
    if (segment.memory && segment.size >= size) return true;
    Detach();
    const size_t rounded = std::bit_ceil(size);
    const uint32_t id = xcb_generate_id(connection);
    const MXReply<xcb_shm_create_segment_reply_t> reply(xcb_shm_create_segment_reply(
        connection, xcb_shm_create_segment(connection, id, static_cast<uint32_t>(rounded), 1), nullptr));
    if (!reply || reply->nfd != 1) return false;
    const int descriptor = *xcb_shm_create_segment_reply_fds(connection, reply.get());
    void* const memory = mmap(nullptr, rounded, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    close(descriptor);
    segment = {id, static_cast<uint8_t*>(memory), rounded};
    if (memory != MAP_FAILED) return true;
    segment.memory = nullptr;
    Detach();
    return false;
}

void MXPresenter::Detach() {
    if (segment.id) xcb_shm_detach(connection, segment.id);
    if (segment.memory) munmap(segment.memory, segment.size);
    segment = {};
}

size_t MXPresenter::GetRowSize(const MRect& part) const {
    return (static_cast<size_t>(part.GetWidth()) * visual.bytesPerPixel + 3) & ~size_t{3};
}

void MXPresenter::WriteRows(uint8_t* target, const MBitmap& picture, const MRect& rows) const {
    const size_t rowSize = GetRowSize(rows);
    for (int32_t y = rows.top; y <= rows.bottom; ++y, target += rowSize) {
        const MColor* const source = picture.GetRow(y) + rows.left;
        if (visual.IsDirect())
            std::memcpy(target, source, rowSize);
        else
            WriteRow(target, source, rows.GetWidth(), visual);
    }
}

// The answer to a question that follows tells that the server has read the pixels.
void MXPresenter::PutShared(int32_t totalWidth, int32_t totalHeight, MPoint source, const MRect& part) {
    xcb_shm_put_image(connection, window, context, static_cast<uint16_t>(totalWidth),
                      static_cast<uint16_t>(totalHeight), static_cast<uint16_t>(source.x),
                      static_cast<uint16_t>(source.y), static_cast<uint16_t>(part.GetWidth()),
                      static_cast<uint16_t>(part.GetHeight()), static_cast<int16_t>(part.left),
                      static_cast<int16_t>(part.top), visual.depth, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, segment.id,
                      0);
    reading = xcb_get_input_focus(connection);
    isReading = true;
}

void MXPresenter::Send(const MBitmap& picture, const MRect& part) {
    const size_t rowSize = GetRowSize(part);
    const size_t limit = size_t{xcb_get_maximum_request_length(connection)} * 4 - RequestHeader;
    const auto bandHeight = static_cast<int32_t>(std::max<size_t>(std::min(limit, LargestBand) / rowSize, 1));
    for (MRect band = part; band.top <= part.bottom; band.top += bandHeight) {
        band.bottom = std::min(band.top + bandHeight - 1, part.bottom);
        sent.resize(rowSize * static_cast<size_t>(band.GetHeight()));
        WriteRows(sent.data(), picture, band);
        xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, context,
                      static_cast<uint16_t>(band.GetWidth()), static_cast<uint16_t>(band.GetHeight()),
                      static_cast<int16_t>(band.left), static_cast<int16_t>(band.top), 0, visual.depth,
                      static_cast<uint32_t>(sent.size()), sent.data());
    }
}
