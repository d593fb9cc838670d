#include "ui/window/x11/display/MXMonitors.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>
#include <xcb/randr.h>

namespace {

/// The words of _NET_WM_STRUT_PARTIAL: how wide the reserved strips are, and from where to where they go.
enum StrutWord {
    Left,
    Right,
    Top,
    Bottom,
    LeftStart,
    LeftEnd,
    RightStart,
    RightEnd,
    TopStart,
    TopEnd,
    BottomStart,
    BottomEnd,
    StrutWordCount
};

void Reserve(MList<MXMonitor>& monitors, const MRect& root, std::basic_string_view<uint32_t> words) {
    const auto at = [&](StrutWord word) { return static_cast<int32_t>(std::min(words[word], 0x3FFFFFFFu)); };
    const MRect left{0, at(LeftStart), at(Left) - 1, at(LeftEnd)};
    const MRect right{root.right - at(Right) + 1, at(RightStart), root.right, at(RightEnd)};
    const MRect top{at(TopStart), 0, at(TopEnd), at(Top) - 1};
    const MRect bottom{at(BottomStart), root.bottom - at(Bottom) + 1, at(BottomEnd), root.bottom};
    for (MXMonitor& monitor : monitors) {
        MRect area = monitor.workArea;
        const auto touches = [&](const MRect& strip) { return !strip.Intersected(monitor.frame).IsEmpty(); };
        if (touches(left)) area.left = std::max(area.left, left.right + 1);
        if (touches(right)) area.right = std::min(area.right, right.left - 1);
        if (touches(top)) area.top = std::max(area.top, top.bottom + 1);
        if (touches(bottom)) area.bottom = std::min(area.bottom, bottom.top - 1);
        // A strip that begins at the far edge of the root goes across the monitors before its own.
        if (!area.IsEmpty()) monitor.workArea = area;
    }
}

int64_t GetDistance(const MRect& rect, MPoint point) {
    const int64_t x = point.x - std::clamp(point.x, rect.left, rect.right);
    const int64_t y = point.y - std::clamp(point.y, rect.top, rect.bottom);
    return x * x + y * y;
}

}  // namespace

MList<MXMonitor> MXReadMonitors(const MXConnection& connection) {
    MList<MXMonitor> monitors;
    MRect root = MRect::FromSize(0, 0, connection.GetScreen().width_in_pixels,
                                 connection.GetScreen().height_in_pixels);
    const MXReply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, connection.GetRoot()), nullptr));
    if (geometry) root = MRect::FromSize(0, 0, geometry->width, geometry->height);
    if (connection.GetExtension(MXLibrary::RandR).isPresent) {
        const auto request = xcb_randr_get_monitors(connection, connection.GetRoot(), 1);
        const MXReply<xcb_randr_get_monitors_reply_t> reply(
            xcb_randr_get_monitors_reply(connection, request, nullptr));
        if (reply) {
            auto monitor = xcb_randr_get_monitors_monitors_iterator(reply.get());
            for (; monitor.rem > 0; xcb_randr_monitor_info_next(&monitor)) {
                const MRect frame = MRect::FromSize(monitor.data->x, monitor.data->y, monitor.data->width,
                                                    monitor.data->height);
                if (!frame.IsEmpty())
                    monitors.Insert(monitor.data->primary ? 0 : monitors.GetCount(), {frame, frame});
            }
        }
    }
    if (monitors.IsEmpty()) monitors.Add({root, root});

    const MXProperty clients =
        connection.GetProperty(connection.GetRoot(), connection[MXAtom::NetClientList]);
    std::vector<xcb_get_property_cookie_t> requests;
    for (const xcb_window_t client : clients.GetWords())
        requests.push_back(xcb_get_property(connection, 0, client, connection[MXAtom::NetWMStrutPartial],
                                            connection[MXAtom::Cardinal], 0, StrutWordCount));
    for (const xcb_get_property_cookie_t request : requests) {
        const MXReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, request, nullptr));
        if (reply && reply->format == 32 && reply->value_len == StrutWordCount)
            Reserve(monitors, root,
                    {static_cast<const uint32_t*>(xcb_get_property_value(reply.get())), StrutWordCount});
    }
    return monitors;
}

const MXMonitor& MXMonitorAt(const MList<MXMonitor>& monitors, MPoint point) {
    return *std::min_element(monitors.begin(), monitors.end(),
                             [&](const MXMonitor& one, const MXMonitor& other) {
                                 return GetDistance(one.frame, point) < GetDistance(other.frame, point);
                             });
}
