#include "ui/window/x11/input/MXCursors.h"

#include "foundation/base/MException.h"

#include <algorithm>
#include <xcb/render.h>

namespace {

/// The glyphs of the font "cursor" for the kinds, in their order.
constexpr uint16_t Glyphs[] = {68, 150, 34, 152, 60, 24, 86, 40, 130, 52, 120, 116, 108, 24};

constexpr xcb_render_directformat_t AlphaColors = {16, 0xFF, 8, 0xFF, 0, 0xFF, 24, 0xFF};

bool IsSame(const xcb_render_directformat_t& left, const xcb_render_directformat_t& right) {
    return left.red_shift == right.red_shift && left.green_shift == right.green_shift &&
           left.blue_shift == right.blue_shift && left.alpha_shift == right.alpha_shift &&
           left.alpha_mask == right.alpha_mask;
}

uint32_t FindAlphaFormat(const MXConnection& connection) {
    const MXReply<xcb_render_query_pict_formats_reply_t> reply(
        xcb_render_query_pict_formats_reply(connection, xcb_render_query_pict_formats(connection), nullptr));
    if (!reply) return 0;
    const auto* const formats = xcb_render_query_pict_formats_formats(reply.get());
    for (int i = 0; i < xcb_render_query_pict_formats_formats_length(reply.get()); ++i)
        if (formats[i].depth == 32 && formats[i].type == XCB_RENDER_PICT_TYPE_DIRECT &&
            IsSame(formats[i].direct, AlphaColors))
            return formats[i].id;
    return 0;
}

}  // namespace

MXCursors::MXCursors(const MXConnection& connection) : connection(connection) {
    const bool isLittleEndian = xcb_get_setup(connection)->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    if (isLittleEndian && connection.GetExtension(MXLibrary::Render).isPresent)
        alphaFormat = FindAlphaFormat(connection);
}

MXCursors::~MXCursors() {
    FreeAll();
    if (font != XCB_FONT_NONE) xcb_close_font(connection, font);
}

// Windows keep what they show.
void MXCursors::FreeAll() {
    for (const Made& one : made) xcb_free_cursor(connection, one.id);
    made.clear();
}

// Copies share their pixels, and those of a copy that is kept stay where they are.
xcb_cursor_t MXCursors::Get(const MCursor& cursor) {
    const auto found = std::find_if(made.begin(), made.end(), [&](const Made& one) {
        return one.cursor.kind == cursor.kind && one.cursor.bitmap.GetPixels() == cursor.bitmap.GetPixels() &&
               one.cursor.hotSpot == cursor.hotSpot && one.cursor.minalpha == cursor.minalpha;
    });
    if (found != made.end()) return found->id;
    if (made.size() >= MostKept) FreeAll();
    const bool hasPicture = alphaFormat != 0 && !cursor.bitmap.IsEmpty();
    made.push_back({cursor, hasPicture ? MakePicture(cursor) : MakeOfFont(cursor.kind)});
    return made.back().id;
}

xcb_cursor_t MXCursors::MakePicture(const MCursor& cursor) const {
    MBitmap pixels = cursor.bitmap.ToDirect();
    pixels.ChangeColors([](MColor color) {
        const auto multiplied = [&](uint8_t value) {
            return static_cast<uint8_t>((value * color.alpha + 127) / 255);
        };
        return MColor{multiplied(color.blue), multiplied(color.green), multiplied(color.red), color.alpha};
    });
    const auto width = static_cast<uint16_t>(pixels.GetWidth());
    const auto height = static_cast<uint16_t>(pixels.GetHeight());
    const xcb_pixmap_t pixmap = xcb_generate_id(connection);
    const xcb_gcontext_t context = xcb_generate_id(connection);
    const xcb_render_picture_t picture = xcb_generate_id(connection);
    const xcb_cursor_t id = xcb_generate_id(connection);
    xcb_create_pixmap(connection, 32, pixmap, connection.GetRoot(), width, height);
    xcb_create_gc(connection, context, pixmap, 0, nullptr);
    xcb_put_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0, 32,
                  4U * width * height, reinterpret_cast<const uint8_t*>(pixels.GetPixels()));
    xcb_render_create_picture(connection, picture, pixmap, alphaFormat, 0, nullptr);
    const auto clamped = [](int32_t value, uint16_t size) {
        return static_cast<uint16_t>(std::clamp(value, 0, size - 1));
    };
    const auto request = xcb_render_create_cursor_checked(
        connection, id, picture, clamped(cursor.hotSpot.x, width), clamped(cursor.hotSpot.y, height));
    const bool isMade = connection.Succeeds(request);
    xcb_render_free_picture(connection, picture);
    xcb_free_gc(connection, context);
    xcb_free_pixmap(connection, pixmap);
    if (!isMade) MRaise(MExceptionGDI, "Could not create system cursor.");
    return id;
}

xcb_cursor_t MXCursors::MakeOfFont(MStdCursor kind) {
    if (font == XCB_FONT_NONE) {
        constexpr std::string_view Name = "cursor";
        font = xcb_generate_id(connection);
        xcb_open_font(connection, font, Name.size(), Name.data());
    }
    const uint16_t glyph = Glyphs[static_cast<size_t>(kind)];
    const xcb_cursor_t id = xcb_generate_id(connection);
    // Each glyph is followed by its mask.
    const auto request = xcb_create_glyph_cursor_checked(connection, id, font, font, glyph, glyph + 1, 0, 0,
                                                         0, 0xFFFF, 0xFFFF, 0xFFFF);
    if (!connection.Succeeds(request)) MRaise(MExceptionGDI, "Could not create system cursor.");
    return id;
}
