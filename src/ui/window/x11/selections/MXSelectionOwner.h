#pragma once

#include "foundation/base/MBuffer.h"
#include "ui/window/x11/display/MXConnection.h"
#include "ui/window/x11/display/MXEventQueue.h"

#include <vector>

/// Gives other programs what this one offers by a selection (ICCCM 2.2): in several forms, several at once
/// (MULTIPLE), and large things piece by piece (INCR). Whoever stops asking for pieces is forgotten.
class MXSelectionOwner {
public:
    static constexpr int32_t LargestPiece = 256 << 10;  ///< in bytes
    static constexpr int64_t Patience = 10'000;

    /// A form, and the bytes in it; they are of the type of the same name, unless that is STRING.
    struct Form {
        xcb_atom_t name;
        MBuffer data;
    };

    MXSelectionOwner(const MXConnection& connection, xcb_window_t window, xcb_atom_t selection)
        : connection(connection), window(window), selection(selection) {}
    MXSelectionOwner(const MXSelectionOwner&) = delete;
    MXSelectionOwner& operator=(const MXSelectionOwner&) = delete;

    /// Takes the selection; false if that failed. `time` is when the user asked for it.
    [[nodiscard]] bool Offer(std::vector<Form> newForms, xcb_timestamp_t time);
    /// The form that this program offers; null if another one has the selection, or for another form.
    [[nodiscard]] const MBuffer* Find(xcb_atom_t form) const;
    [[nodiscard]] bool IsOwner() const { return !forms.empty(); }
    /// Answers an event that is for this selection; false if it is about something else.
    bool Process(const xcb_generic_event_t& event);

private:
    /// A large thing on its way.
    struct Transfer {
        xcb_window_t requestor;
        xcb_atom_t property;
        Form form;
        int32_t offset;
        int64_t deadline;
    };

    void Answer(const xcb_selection_request_event_t& request);
    /// Writes a form into a property of the requestor; false if there is no such form.
    bool Write(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t form);
    bool WriteMultiple(xcb_window_t requestor, xcb_atom_t property);
    void WriteWords(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                    std::basic_string_view<uint32_t> words) const;
    bool WriteNextPiece(const xcb_property_notify_event_t& change);
    void ForgetOldTransfers();
    void Listen(xcb_window_t requestor, bool isOn) const;

    const MXConnection& connection;
    xcb_window_t window;
    xcb_atom_t selection;
    xcb_timestamp_t ownedSince = XCB_CURRENT_TIME;
    std::vector<Form> forms;  ///< none while another program has the selection
    std::vector<Transfer> transfers;
};
