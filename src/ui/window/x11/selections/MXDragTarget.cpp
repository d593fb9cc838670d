#include "ui/window/x11/selections/MXDragTarget.h"

#include "foundation/files/posix/MNativePath.h"

#include <algorithm>
#include <cstring>
#include <unistd.h>

namespace {

int GetDigit(char character) {
    constexpr std::string_view Digits = "0123456789abcdef";
    const char lower = character >= 'A' && character <= 'F' ? static_cast<char>(character + 32) : character;
    const size_t digit = Digits.find(lower);
    return digit == std::string_view::npos ? -1 : static_cast<int>(digit);
}

/// Resolves "%" with two digits; empty for what no path can hold.
std::string Unescape(std::string_view escaped) {
    std::string path;
    for (size_t i = 0; i < escaped.size(); ++i) {
        char byte = escaped[i];
        if (byte == '%') {
            if (i + 2 >= escaped.size()) return {};
            const int high = GetDigit(escaped[i + 1]);
            const int low = GetDigit(escaped[i + 2]);
            if (high < 0 || low < 0) return {};
            byte = static_cast<char>(high * 16 + low);
            i += 2;
        }
        if (byte == '\0') return {};
        path += byte;
    }
    return path;
}

bool IsThisMachine(std::string_view host) {
    char name[256] = {};
    gethostname(name, sizeof(name) - 1);
    return host.empty() || host == "localhost" || host == name;
}

}  // namespace

bool MXDragTarget::Process(const xcb_client_message_event_t& message) {
    if (message.type == connection[MXAtom::XdndEnter]) {
        OnEnter(message);
    } else if (message.type == connection[MXAtom::XdndPosition]) {
        OnPosition(message);
    } else if (message.type == connection[MXAtom::XdndDrop]) {
        OnDrop(message);
    } else if (message.type == connection[MXAtom::XdndLeave]) {
        source = XCB_WINDOW_NONE;
    } else {
        return false;
    }
    xcb_flush(connection);
    return true;
}

// Up to three forms stand in the message; if there are more, all stand in a property.
void MXDragTarget::OnEnter(const xcb_client_message_event_t& message) {
    const auto& words = message.data.data32;
    source = words[0];
    const bool hasMore = (words[1] & 1) != 0;
    const xcb_atom_t files = connection[MXAtom::TextUriList];
    hasFiles = std::find(words + 2, words + 5, files) != words + 5;
    if (!hasMore) return;
    const MXProperty forms = connection.GetProperty(source, connection[MXAtom::XdndTypeList]);
    hasFiles = forms.GetWords().find(files) != std::string::npos;
}

void MXDragTarget::OnPosition(const xcb_client_message_event_t& message) {
    const auto& words = message.data.data32;
    if (words[0] != source) return;
    position = {static_cast<int16_t>(words[2] >> 16), static_cast<int16_t>(words[2] & 0xFFFF)};
    const bool isWelcome = hasFiles && accepts(message.window);
    // Without a rectangle, every further move is told.
    constexpr uint32_t Accepted = 1;
    constexpr uint32_t TellAllMoves = 2;
    const uint32_t action = isWelcome ? connection[MXAtom::XdndActionCopy] : xcb_atom_t{XCB_ATOM_NONE};
    connection.SendToClient(source, MXAtom::XdndStatus,
                            {message.window, (isWelcome ? Accepted : 0) | TellAllMoves, 0, 0, action});
}

void MXDragTarget::OnDrop(const xcb_client_message_event_t& message) {
    const auto& words = message.data.data32;
    if (words[0] != source) return;
    bool isTaken = false;
    if (hasFiles && accepts(message.window)) {
        const xcb_atom_t form = connection[MXAtom::TextUriList];
        const auto list = reader.Read(connection[MXAtom::XdndSelection], form, words[2]);
        const MList<MString> files = list && list->type == form ? ParseFiles(list->bytes) : MList<MString>();
        isTaken = !files.IsEmpty() && drop(message.window, files, position);
    }
    const uint32_t action = isTaken ? connection[MXAtom::XdndActionCopy] : xcb_atom_t{XCB_ATOM_NONE};
    connection.SendToClient(source, MXAtom::XdndFinished, {message.window, isTaken, action});
    source = XCB_WINDOW_NONE;
}

MList<MString> MXDragTarget::ParseFiles(std::string_view list) {
    constexpr std::string_view Scheme = "file:";
    MList<MString> files;
    while (!list.empty()) {
        const size_t length = std::min(list.find_first_of("\r\n"), list.size());
        std::string_view address = list.substr(0, length);
        list.remove_prefix(std::min(length + 1, list.size()));
        if (!address.starts_with(Scheme)) continue;
        address.remove_prefix(Scheme.size());
        if (address.starts_with("//")) {
            address.remove_prefix(2);
            const size_t path = std::min(address.find('/'), address.size());
            if (!IsThisMachine(address.substr(0, path))) continue;
            address.remove_prefix(path);
        }
        const std::string path = Unescape(address);
        if (path.starts_with('/')) files.Add(MPathFromNative(path));
    }
    return files;
}
