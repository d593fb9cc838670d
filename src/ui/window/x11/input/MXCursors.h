#pragma once

#include "ui/control/MCursor.h"
#include "ui/window/x11/display/MXConnection.h"

#include <vector>

/// The mouse pointers of a display, made when they are first needed.
class MXCursors {
public:
    explicit MXCursors(const MXConnection& connection);
    MXCursors(const MXCursors&) = delete;
    MXCursors& operator=(const MXCursors&) = delete;
    ~MXCursors();

    /// Gives the same pointer for the same picture. One without a picture, or for a display that takes none,
    /// is that of the display for its kind. Raises "Could not create system cursor." (0x300).
    [[nodiscard]] xcb_cursor_t Get(const MCursor& cursor);

private:
    /// What was made, with the picture that it was made from, whose pixels are kept for comparison.
    struct Made {
        MCursor cursor;
        xcb_cursor_t id = XCB_CURSOR_NONE;
    };

    /// A style has one for each kind; one that makes its pictures anew each time shall not fill the server.
    static constexpr size_t MostKept = 64;

    void FreeAll();
    [[nodiscard]] xcb_cursor_t MakePicture(const MCursor& cursor) const;
    [[nodiscard]] xcb_cursor_t MakeOfFont(MStdCursor kind);

    const MXConnection& connection;
    uint32_t alphaFormat = 0;  ///< of pictures with 8 bits for each channel; 0 if there are none
    xcb_font_t font = XCB_FONT_NONE;
    std::vector<Made> made;
};
