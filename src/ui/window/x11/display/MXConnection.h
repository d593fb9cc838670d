#pragma once

#include "ui/window/x11/display/MXAtom.h"
#include "ui/window/x11/display/MXLibraries.h"
#include "ui/window/x11/display/MXReply.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <xcb/xcb.h>

/// What an extension of the server answers to; a missing one is not there.
struct MXExtension {
    bool isPresent = false;
    uint8_t majorOpcode = 0;
    uint8_t firstEvent = 0;
};

/// The content of a property: items of 8, 16 or 32 bits; the latter two in this machine's byte order.
struct MXProperty {
    xcb_atom_t type = XCB_ATOM_NONE;  ///< none where the property is missing
    uint8_t format = 0;
    std::string bytes;

    /// The 32-bit items; none if it has others.
    [[nodiscard]] std::basic_string_view<uint32_t> GetWords() const;
};

/// The connection to a display, and what all who use it ask for: its screen, names and extensions. Passes for
/// the connection of xcb in calls. A connection whose server has died goes on to be used without harm:
/// requests go nowhere and replies are null.
///
/// Belongs to one thread, but for `IsAlive` and what others write to sockets of their own.
class MXConnection {
public:
    /// Opens a display, that of the environment if the name is empty. Raises what `MLoadXLibraries` raises,
    /// and "The display \"{0}\" could not be opened. Please start this program in a desktop session, or run
    /// it without windows." (0).
    explicit MXConnection(const std::string& name = std::string());
    MXConnection(const MXConnection&) = delete;
    MXConnection& operator=(const MXConnection&) = delete;
    ~MXConnection();

    operator xcb_connection_t*() const { return connection; }
    [[nodiscard]] bool IsAlive() const;
    [[nodiscard]] const xcb_screen_t& GetScreen() const { return *screen; }
    [[nodiscard]] xcb_window_t GetRoot() const { return screen->root; }

    [[nodiscard]] const xcb_atom_t& operator[](MXAtom atom) const { return atoms[static_cast<size_t>(atom)]; }
    /// The atom of any other name; asks the server. The other way round, empty where there is no such atom.
    [[nodiscard]] xcb_atom_t Intern(std::string_view text) const;
    [[nodiscard]] std::string GetText(xcb_atom_t atom) const;

    /// Of those that a library of MXLibrary is for. Missing too where the library is.
    [[nodiscard]] const MXExtension& GetExtension(MXLibrary library) const {
        return extensions[static_cast<size_t>(library)];
    }

    /// Waits until a request that was sent as checked is done; false if the server has refused it.
    [[nodiscard]] bool Succeeds(xcb_void_cookie_t request) const;
    /// Waits until the server has done all that was asked.
    void Synchronize() const;

    /// Reads a property whole; `andDelete` takes it away as well.
    [[nodiscard]] MXProperty GetProperty(xcb_window_t window, xcb_atom_t name) const {
        return ReadProperty(window, name, false);
    }
    [[nodiscard]] MXProperty TakeProperty(xcb_window_t window, xcb_atom_t name) const {
        return ReadProperty(window, name, true);
    }
    void SetWords(xcb_window_t window, MXAtom name, xcb_atom_t type,
                  std::basic_string_view<uint32_t> words) const;
    void SetBytes(xcb_window_t window, MXAtom name, xcb_atom_t type, std::string_view bytes) const;
    /// Sends a message of five words: about a window to the clients of the root that manage windows, or to
    /// the client of the window itself.
    void SendToManager(xcb_window_t window, MXAtom type, const std::array<uint32_t, 5>& words) const;
    void SendToClient(xcb_window_t window, MXAtom type, const std::array<uint32_t, 5>& words) const;

private:
    void InternAtoms();
    void QueryExtensions();
    [[nodiscard]] MXProperty ReadProperty(xcb_window_t window, xcb_atom_t name, bool takesAway) const;

    xcb_connection_t* connection = nullptr;
    const xcb_screen_t* screen = nullptr;
    std::array<xcb_atom_t, static_cast<size_t>(MXAtom::Count)> atoms{};
    std::array<MXExtension, MXLibraryCount> extensions{};
};
