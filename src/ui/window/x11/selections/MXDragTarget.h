#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"
#include "ui/geometry/MPoint.h"
#include "ui/window/x11/selections/MXSelectionReader.h"

#include <functional>
#include <string_view>

/// Takes files that other programs drag into the windows (XDND, version 5 of freedesktop.org).
class MXDragTarget {
public:
    /// Whether files may be dropped into a window.
    using Accepts = std::function<bool(xcb_window_t)>;
    /// Files were dropped, at a point of the screen; returns whether somebody took them.
    using Drop = std::function<bool(xcb_window_t, const MList<MString>&, MPoint)>;

    MXDragTarget(const MXConnection& connection, const MXSelectionReader& reader, Accepts accepts, Drop drop)
        : connection(connection), reader(reader), accepts(std::move(accepts)), drop(std::move(drop)) {}
    MXDragTarget(const MXDragTarget&) = delete;
    MXDragTarget& operator=(const MXDragTarget&) = delete;

    /// Answers a message of the one who drags; false if it is about something else.
    bool Process(const xcb_client_message_event_t& message);

    /// The canonical paths of this machine's files in a list of addresses (RFC 2483), which may hold
    /// anything; addresses of other kinds and machines are left out.
    [[nodiscard]] static MList<MString> ParseFiles(std::string_view list);

private:
    void OnEnter(const xcb_client_message_event_t& message);
    void OnPosition(const xcb_client_message_event_t& message);
    void OnDrop(const xcb_client_message_event_t& message);

    const MXConnection& connection;
    const MXSelectionReader& reader;
    Accepts accepts;
    Drop drop;
    xcb_window_t source = XCB_WINDOW_NONE;
    bool hasFiles = false;
    MPoint position;  ///< on the screen
};
