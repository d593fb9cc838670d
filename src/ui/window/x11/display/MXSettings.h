#pragma once

#include "ui/window/x11/display/MXConnection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The user's settings that a desktop tells its programs: those that a settings daemon announces (XSETTINGS
/// of freedesktop.org), else the resources of the root window, else usual ones.
class MXSettings {
public:
    static constexpr int32_t UsualDotsPerInch = 96;
    static constexpr int32_t UsualDoubleClickTime = 500;

    /// Reads them and listens for changes, those of the daemon itself included.
    explicit MXSettings(const MXConnection& connection);

    /// Reads them anew if an event tells that they have changed; false if it is about something else.
    bool Process(const xcb_generic_event_t& event);

    [[nodiscard]] int32_t GetDotsPerInch() const { return dotsPerInch; }
    /// In milliseconds.
    [[nodiscard]] int32_t GetDoubleClickTime() const { return doubleClickTime; }
    /// Whether the desktop's theme is a dark one, by its name or by what programs are asked for; none if no
    /// daemon tells.
    [[nodiscard]] std::optional<bool> PrefersDark() const { return prefersDark; }

    /// The value of a number in the daemon's property, which may hold anything; `otherwise` if there is none.
    /// Of a text: its bytes, which are the property's own; empty if there is none.
    ///
    /// The property: the byte order (a byte, 0 for little-endian), three unused bytes, a serial number and
    /// the count of settings, and for each of them its type (a byte, 0 for a number, 1 for a text, 2 for a
    /// colour), an unused byte, the length of its name (2 bytes), the name, filled up to four bytes, a serial
    /// number and the value: a number of 4 bytes; a length of 4 bytes and a text, filled up; or 8 bytes.
    [[nodiscard]] static int32_t FindNumber(std::string_view property, std::string_view name,
                                            int32_t otherwise);
    [[nodiscard]] static std::string_view FindText(std::string_view property, std::string_view name);
    /// The number behind "name:" on a line of the root's resources, as in "Xft.dpi:\t144".
    [[nodiscard]] static int32_t FindResource(std::string_view resources, std::string_view name,
                                              int32_t otherwise);

private:
    void Read();

    const MXConnection& connection;
    xcb_window_t daemon = XCB_WINDOW_NONE;
    int32_t dotsPerInch = UsualDotsPerInch;
    int32_t doubleClickTime = UsualDoubleClickTime;
    std::optional<bool> prefersDark;
};
