#include "ui/window/x11/display/MXVisual.h"

#include "foundation/base/MException.h"
#include "ui/window/x11/display/MXConnection.h"

#include <functional>

namespace {

uint8_t GetBytesPerPixel(const xcb_setup_t* setup, uint8_t depth) {
    const xcb_format_t* const formats = xcb_setup_pixmap_formats(setup);
    for (int i = 0; i < xcb_setup_pixmap_formats_length(setup); ++i)
        if (formats[i].depth == depth) return formats[i].bits_per_pixel / 8;
    return 0;
}

/// Takes over the first visual that is accepted; false if there is none.
bool Find(MXVisual& found, const MXConnection& connection,
          const std::function<bool(const MXVisual&)>& accepts) {
    const xcb_setup_t* const setup = xcb_get_setup(connection);
    auto depths = xcb_screen_allowed_depths_iterator(&connection.GetScreen());
    for (; depths.rem > 0; xcb_depth_next(&depths)) {
        const xcb_visualtype_t* const visuals = xcb_depth_visuals(depths.data);
        for (int i = 0; i < xcb_depth_visuals_length(depths.data); ++i) {
            if (visuals[i]._class != XCB_VISUAL_CLASS_TRUE_COLOR) continue;
            found.visual = visuals[i].visual_id;
            found.depth = depths.data->depth;
            found.bytesPerPixel = GetBytesPerPixel(setup, found.depth);
            found.redMask = visuals[i].red_mask;
            found.greenMask = visuals[i].green_mask;
            found.blueMask = visuals[i].blue_mask;
            if (found.bytesPerPixel >= 2 && accepts(found)) return true;
        }
    }
    return false;
}

}  // namespace

MXVisual::MXVisual(const MXConnection& connection) {
    const xcb_screen_t& screen = connection.GetScreen();
    isBigEndian = xcb_get_setup(connection)->image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST;
    const auto isRoots = [&](const MXVisual& one) { return one.visual == screen.root_visual; };
    const auto isDirectRoots = [&](const MXVisual& one) { return isRoots(one) && one.IsDirect(); };
    const auto hasAlpha = [](const MXVisual& one) { return one.depth == 32 && one.IsDirect(); };
    if (!Find(*this, connection, isDirectRoots) && !Find(*this, connection, hasAlpha) &&
        !Find(*this, connection, isRoots))
        MRaise(MExceptionGeneral, "The display shows no true colours.");
    colormap = screen.default_colormap;
    if (visual == screen.root_visual) return;
    colormap = xcb_generate_id(connection);
    xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, colormap, screen.root, visual);
}
