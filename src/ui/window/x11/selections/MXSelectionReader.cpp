#include "ui/window/x11/selections/MXSelectionReader.h"

std::optional<MXProperty> MXSelectionReader::Read(xcb_atom_t selection, xcb_atom_t form,
                                                  xcb_timestamp_t time) const {
    const xcb_atom_t name = connection[MXAtom::CorvanthSelection];
    const auto isAnswer = [&](const xcb_generic_event_t& event) {
        const auto& answer = MXAs<xcb_selection_notify_event_t>(event);
        return MXKindOf(event) == XCB_SELECTION_NOTIFY && answer.requestor == window &&
               answer.selection == selection;
    };
    // An answer that came too late for an earlier question would be taken for the one to this.
    queue.Drop(isAnswer);
    xcb_delete_property(connection, window, name);
    xcb_convert_selection(connection, window, selection, form, name, time);
    const MXEvent event = queue.WaitFor(isAnswer, Patience);
    if (!event || MXAs<xcb_selection_notify_event_t>(*event).property == XCB_ATOM_NONE) return std::nullopt;
    MXProperty whole = connection.TakeProperty(window, name);
    if (whole.type == connection[MXAtom::Incr]) return ReadPieces();
    if (whole.type == XCB_ATOM_NONE) return std::nullopt;
    return whole;
}

// Taking a piece away asks for the next one; an empty one is the last.
std::optional<MXProperty> MXSelectionReader::ReadPieces() const {
    const xcb_atom_t name = connection[MXAtom::CorvanthSelection];
    const auto isPiece = [&](const xcb_generic_event_t& event) {
        const auto& change = MXAs<xcb_property_notify_event_t>(event);
        return MXKindOf(event) == XCB_PROPERTY_NOTIFY && change.window == window && change.atom == name &&
               change.state == XCB_PROPERTY_NEW_VALUE;
    };
    MXProperty whole;
    while (queue.WaitFor(isPiece, Patience)) {
        const MXProperty piece = connection.TakeProperty(window, name);
        // What announced the pieces was such a change itself.
        if (piece.type == XCB_ATOM_NONE) continue;
        whole.type = piece.type;
        whole.format = piece.format;
        if (piece.bytes.empty()) return whole;
        if (piece.bytes.size() > LargestSize - whole.bytes.size()) break;
        whole.bytes += piece.bytes;
    }
    return std::nullopt;
}
