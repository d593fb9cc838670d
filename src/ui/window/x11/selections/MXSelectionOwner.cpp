#include "ui/window/x11/selections/MXSelectionOwner.h"

#include <algorithm>
#include <utility>

bool MXSelectionOwner::Offer(std::vector<Form> newForms, xcb_timestamp_t time) {
    forms = std::move(newForms);
    ownedSince = time;
    xcb_set_selection_owner(connection, window, selection, time);
    const auto request = xcb_get_selection_owner(connection, selection);
    const MXReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, request, nullptr));
    if (owner && owner->owner == window) return true;
    forms.clear();
    return false;
}

const MBuffer* MXSelectionOwner::Find(xcb_atom_t form) const {
    const auto found = std::ranges::find(forms, form, &Form::name);
    return found == forms.end() ? nullptr : &found->data;
}

bool MXSelectionOwner::Process(const xcb_generic_event_t& event) {
    switch (MXKindOf(event)) {
    case XCB_SELECTION_REQUEST: {
        const auto& request = MXAs<xcb_selection_request_event_t>(event);
        if (request.selection != selection) return false;
        Answer(request);
        return true;
    }
    case XCB_SELECTION_CLEAR:
        if (MXAs<xcb_selection_clear_event_t>(event).selection != selection) return false;
        forms.clear();
        return true;
    case XCB_PROPERTY_NOTIFY: return WriteNextPiece(MXAs<xcb_property_notify_event_t>(event));
    default: return false;
    }
}

void MXSelectionOwner::Answer(const xcb_selection_request_event_t& request) {
    ForgetOldTransfers();
    // Programs from before ICCCM name no property.
    const xcb_atom_t property = request.property == XCB_ATOM_NONE ? request.target : request.property;
    const bool isKnown = request.target == connection[MXAtom::Multiple]
                             ? WriteMultiple(request.requestor, property)
                             : Write(request.requestor, property, request.target);
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = request.time;
    answer.requestor = request.requestor;
    answer.selection = request.selection;
    answer.target = request.target;
    answer.property = isKnown ? property : xcb_atom_t{XCB_ATOM_NONE};
    xcb_send_event(connection, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&answer));
    xcb_flush(connection);
}

bool MXSelectionOwner::Write(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t form) {
    if (!IsOwner()) return false;
    if (form == connection[MXAtom::Targets]) {
        std::basic_string<uint32_t> names = {form, connection[MXAtom::Timestamp],
                                             connection[MXAtom::Multiple]};
        for (const Form& one : forms) names += one.name;
        WriteWords(requestor, property, XCB_ATOM_ATOM, names);
        return true;
    }
    if (form == connection[MXAtom::Timestamp]) {
        WriteWords(requestor, property, XCB_ATOM_INTEGER, {&ownedSince, 1});
        return true;
    }
    const MBuffer* const data = Find(form);
    if (!data) return false;
    if (data->GetSize() <= LargestPiece) {
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, requestor, property, form, 8,
                            static_cast<uint32_t>(data->GetSize()), data->GetBlock());
        return true;
    }
    Listen(requestor, true);
    const auto size = static_cast<uint32_t>(data->GetSize());
    WriteWords(requestor, property, connection[MXAtom::Incr], {&size, 1});
    transfers.push_back({requestor, property, {form, *data}, 0, MXMilliseconds() + Patience});
    return true;
}

// The property holds pairs of a form and the property for it; those that fail are set to none.
bool MXSelectionOwner::WriteMultiple(xcb_window_t requestor, xcb_atom_t property) {
    const MXProperty asked = connection.GetProperty(requestor, property);
    std::basic_string<uint32_t> pairs(asked.GetWords());
    if (pairs.size() < 2) return false;
    for (size_t i = 0; i + 1 < pairs.size(); i += 2)
        if (!Write(requestor, pairs[i + 1], pairs[i])) pairs[i + 1] = XCB_ATOM_NONE;
    WriteWords(requestor, property, connection[MXAtom::AtomPair], pairs);
    return true;
}

void MXSelectionOwner::WriteWords(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                                  std::basic_string_view<uint32_t> words) const {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, requestor, property, type, 32,
                        static_cast<uint32_t>(words.size()), words.data());
}

bool MXSelectionOwner::WriteNextPiece(const xcb_property_notify_event_t& change) {
    if (change.state != XCB_PROPERTY_DELETE) return false;
    const auto found = std::ranges::find_if(transfers, [&](const Transfer& one) {
        return one.requestor == change.window && one.property == change.atom;
    });
    if (found == transfers.end()) return false;
    const MBuffer& data = found->form.data;
    const int32_t size = std::min(data.GetSize() - found->offset, LargestPiece);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, found->requestor, found->property,
                        found->form.name, 8, static_cast<uint32_t>(size),
                        static_cast<const char*>(data.GetBlock()) + found->offset);
    xcb_flush(connection);
    found->offset += size;
    found->deadline = MXMilliseconds() + Patience;
    if (size > 0) return true;
    const xcb_window_t requestor = found->requestor;
    transfers.erase(found);
    Listen(requestor, false);
    return true;
}

void MXSelectionOwner::ForgetOldTransfers() {
    const int64_t now = MXMilliseconds();
    std::erase_if(transfers, [&](const Transfer& one) { return one.deadline < now; });
}

void MXSelectionOwner::Listen(xcb_window_t requestor, bool isOn) const {
    const bool isStillNeeded =
        std::ranges::find(transfers, requestor, &Transfer::requestor) != transfers.end();
    const uint32_t events = isOn || isStillNeeded ? XCB_EVENT_MASK_PROPERTY_CHANGE : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(connection, requestor, XCB_CW_EVENT_MASK, &events);
}
