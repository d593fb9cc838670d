#pragma once

#include "ui/geometry/MRect.h"
#include "ui/window/x11/display/MXConnection.h"
#include "ui/window/x11/display/MXVisual.h"

#include <cstdint>
#include <vector>

class MBitmap;

/// Shows parts of a window's buffer in the window, by the shortest way that the server takes: it reads the
/// shared memory of the surface; or it reads a segment of its own making, where it lives apart from this
/// program's System V memory; or the pixels are sent, as over a network. Only the part that is to be shown
/// travels.
class MXPresenter {
public:
    enum class Way { Surface, Segment, Sending };

    /// `bestWay` is the first one that is tried.
    MXPresenter(const MXConnection& connection, const MXVisual& visual, xcb_window_t window,
                Way bestWay = Way::Surface);
    MXPresenter(const MXPresenter&) = delete;
    MXPresenter& operator=(const MXPresenter&) = delete;
    ~MXPresenter();

    /// Shows the part of the picture at its place in the window. The pixels must stay as they are until
    /// `Finish`.
    void Show(const MBitmap& picture, const MRect& part);
    /// Waits until the server has read what `Show` has given it. To be called before the pixels change.
    void Finish();

    [[nodiscard]] Way GetWay() const { return way; }
    /// How many bytes of pixels have been copied on their way since the beginning.
    [[nodiscard]] int64_t GetCopiedBytes() const { return copiedBytes; }

private:
    /// Memory that the server has shared, or has been given.
    struct Segment {
        uint32_t id = 0;  ///< 0 if there is none
        uint8_t* memory = nullptr;
        size_t size = 0;
    };

    [[nodiscard]] bool AttachSurface(const MBitmap& picture);
    [[nodiscard]] bool ReserveSegment(size_t size);
    void Detach();
    /// Writes the pixels of some rows as the visual has them; rows begin at multiples of four bytes.
    void WriteRows(uint8_t* target, const MBitmap& picture, const MRect& rows) const;
    void Send(const MBitmap& picture, const MRect& part);
    void PutShared(int32_t totalWidth, int32_t totalHeight, MPoint source, const MRect& part);
    [[nodiscard]] size_t GetRowSize(const MRect& part) const;

    const MXConnection& connection;
    const MXVisual& visual;
    xcb_window_t window;
    xcb_gcontext_t context;
    Way way;
    Segment segment;
    intptr_t surfaceHandle = 0;  ///< which surface the segment is, if it is one
    xcb_get_input_focus_cookie_t reading{};
    bool isReading = false;
    std::vector<uint8_t> sent;
    int64_t copiedBytes = 0;
};
