#include "ui/window/x11/display/MXConnection.h"

#include "foundation/base/MRaise.h"
#include "foundation/text/MUnicode.h"

#include <cstdlib>
#include <cstring>

namespace {

[[noreturn]] void RaiseNotOpened(const std::string& name) {
    const char* const environment = std::getenv("DISPLAY");
    const std::string display = name.empty() && environment ? environment : name;
    if (display.empty())
        MRaise(
            MExceptionGeneral,
            "There is no display for windows, since DISPLAY is not set. Please start this program in a desktop "
            "session, or run it without windows.");
    MRaise(
        MExceptionGeneral,
        "The display \"{0}\" could not be opened. Please start this program in a desktop session, or run it "
        "without windows.",
        MDecodeUTF8Exact(display));
}

/// Which library is for which extension of the server.
struct ExtensionName {
    MXLibrary library;
    const char* text;
};

constexpr ExtensionName ExtensionNames[] = {
    {MXLibrary::SharedMemory, "MIT-SHM"}, {MXLibrary::RandR, "RANDR"},   {MXLibrary::Shape, "SHAPE"},
    {MXLibrary::Render, "RENDER"},        {MXLibrary::Xkb, "XKEYBOARD"},
};

/// In units of four bytes, as much as one request for a property asks for.
constexpr uint32_t PropertyPiece = 1 << 18;

xcb_client_message_event_t MakeMessage(xcb_window_t window, xcb_atom_t type,
                                       const std::array<uint32_t, 5>& words) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    std::memcpy(message.data.data32, words.data(), sizeof(message.data.data32));
    return message;
}

}  // namespace

std::basic_string_view<uint32_t> MXProperty::GetWords() const {
    if (format != 32) return {};
    return {reinterpret_cast<const uint32_t*>(bytes.data()), bytes.size() / sizeof(uint32_t)};
}

MXConnection::MXConnection(const std::string& name) {
    MLoadXLibraries();
    int screenNumber = 0;
    connection = xcb_connect(name.empty() ? nullptr : name.c_str(), &screenNumber);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        RaiseNotOpened(name);
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screenNumber-- > 0 && screens.rem > 1) xcb_screen_next(&screens);
    screen = screens.data;
    InternAtoms();
    QueryExtensions();
}

MXConnection::~MXConnection() {
    xcb_disconnect(connection);
}

bool MXConnection::IsAlive() const {
    return xcb_connection_has_error(connection) == 0;
}

// All questions first, then all answers: one way to the server and back.
void MXConnection::InternAtoms() {
    std::array<xcb_intern_atom_cookie_t, static_cast<size_t>(MXAtom::Count)> requests;
    for (size_t i = 0; i < requests.size(); ++i) {
        const char* const text = MXAtomText(static_cast<MXAtom>(i));
        requests[i] = xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(text)), text);
    }
    for (size_t i = 0; i < requests.size(); ++i) {
        const MXReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, requests[i], nullptr));
        if (reply) atoms[i] = reply->atom;
    }
}

void MXConnection::QueryExtensions() {
    for (const auto& [library, text] : ExtensionNames) {
        if (!MHasXLibrary(library)) continue;
        const auto request = xcb_query_extension(connection, static_cast<uint16_t>(std::strlen(text)), text);
        const MXReply<xcb_query_extension_reply_t> reply(
            xcb_query_extension_reply(connection, request, nullptr));
        if (reply && reply->present)
            extensions[static_cast<size_t>(library)] = {true, reply->major_opcode, reply->first_event};
    }
}

xcb_atom_t MXConnection::Intern(std::string_view text) const {
    const auto request = xcb_intern_atom(connection, 0, static_cast<uint16_t>(text.size()), text.data());
    const MXReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, request, nullptr));
    if (!reply) return XCB_ATOM_NONE;
    return reply->atom;
}

std::string MXConnection::GetText(xcb_atom_t atom) const {
    const MXReply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(connection, xcb_get_atom_name(connection, atom), nullptr));
    if (!reply) return {};
    return {xcb_get_atom_name_name(reply.get()),
            static_cast<size_t>(xcb_get_atom_name_name_length(reply.get()))};
}

bool MXConnection::Succeeds(xcb_void_cookie_t request) const {
    const MXReply<xcb_generic_error_t> error(xcb_request_check(connection, request));
    return !error && IsAlive();
}

void MXConnection::Synchronize() const {
    const MXReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

// The server takes the property away only with its last piece.
MXProperty MXConnection::ReadProperty(xcb_window_t window, xcb_atom_t name, bool takesAway) const {
    MXProperty property;
    uint32_t offset = 0;
    for (;;) {
        const auto request = xcb_get_property(connection, takesAway, window, name, XCB_GET_PROPERTY_TYPE_ANY,
                                              offset, PropertyPiece);
        const MXReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, request, nullptr));
        if (!reply) return {};
        const int length = xcb_get_property_value_length(reply.get());
        property.type = reply->type;
        property.format = reply->format;
        property.bytes.append(static_cast<const char*>(xcb_get_property_value(reply.get())),
                              static_cast<size_t>(length));
        if (reply->bytes_after == 0 || length == 0) return property;
        offset += static_cast<uint32_t>(length) / 4;
    }
}

void MXConnection::SetWords(xcb_window_t window, MXAtom name, xcb_atom_t type,
                            std::basic_string_view<uint32_t> words) const {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, (*this)[name], type, 32,
                        static_cast<uint32_t>(words.size()), words.data());
}

void MXConnection::SetBytes(xcb_window_t window, MXAtom name, xcb_atom_t type, std::string_view bytes) const {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, (*this)[name], type, 8,
                        static_cast<uint32_t>(bytes.size()), bytes.data());
}

void MXConnection::SendToManager(xcb_window_t window, MXAtom type,
                                 const std::array<uint32_t, 5>& words) const {
    const xcb_client_message_event_t message = MakeMessage(window, (*this)[type], words);
    xcb_send_event(connection, 0, GetRoot(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
}

void MXConnection::SendToClient(xcb_window_t window, MXAtom type,
                                const std::array<uint32_t, 5>& words) const {
    const xcb_client_message_event_t message = MakeMessage(window, (*this)[type], words);
    xcb_send_event(connection, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
}
