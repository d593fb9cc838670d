#include "ui/window/x11/selections/MXClipboard.h"

#include "foundation/base/MException.h"
#include "foundation/text/MUnicode.h"
#include "ui/control/windows/MWindowSystem.h"

#include <cstring>
#include <initializer_list>

namespace {

MBuffer ToBuffer(std::string_view bytes) {
    MBuffer buffer(static_cast<int32_t>(bytes.size()));
    if (!bytes.empty()) std::memcpy(buffer.EditBlock(), bytes.data(), bytes.size());
    return buffer;
}

std::string_view ToBytes(const MBuffer& buffer) {
    return {static_cast<const char*>(buffer.GetBlock()), static_cast<size_t>(buffer.GetSize())};
}

/// The text of ISO 8859-1, as STRING is by ICCCM; what it lacks becomes a question mark.
MBuffer ToLatin1(std::string_view utf8) {
    const MString text = MDecodeUTF8Exact(utf8);
    std::string bytes;
    for (int32_t index = 0; index < text.GetLength();) {
        const char32_t point = MTakeCodePoint(text, index);
        bytes += point < 0x100 ? static_cast<char>(point) : '?';
    }
    return ToBuffer(bytes);
}

MBuffer FromLatin1(std::string_view bytes) {
    MString text;
    for (const char byte : bytes) text.Append(MChar(static_cast<char16_t>(static_cast<uint8_t>(byte))));
    return ToBuffer(MEncodeUTF8Exact(text));
}

}  // namespace

MXClipboard::MXClipboard(const MXConnection& connection, MXEventQueue& queue)
    : connection(connection),
      queue(queue),
      window(MakeWindow()),
      reader(connection, queue, window),
      clipboard(connection, window, connection[MXAtom::Clipboard]),
      primary(connection, window, connection[MXAtom::Primary]) {}

MXClipboard::~MXClipboard() {
    HandOver();
    xcb_destroy_window(connection, window);
}

xcb_window_t MXClipboard::MakeWindow() const {
    const xcb_window_t made = xcb_generate_id(connection);
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, 0, made, connection.GetRoot(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    return made;
}

// An empty change of a property brings an event with the time.
xcb_timestamp_t MXClipboard::GetServerTime() {
    const xcb_atom_t name = connection[MXAtom::CorvanthServerTime];
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, window, name, XCB_ATOM_INTEGER, 32, 0, nullptr);
    const MXEvent event = queue.WaitFor(
        [&](const xcb_generic_event_t& one) {
            return MXKindOf(one) == XCB_PROPERTY_NOTIFY &&
                   MXAs<xcb_property_notify_event_t>(one).window == window &&
                   MXAs<xcb_property_notify_event_t>(one).atom == name;
        },
        MXSelectionReader::Patience);
    return event ? MXAs<xcb_property_notify_event_t>(*event).time : xcb_timestamp_t{XCB_CURRENT_TIME};
}

xcb_atom_t MXClipboard::GetForm(const MString& format) const {
    if (format == MWindowSystem::TextFormat) return connection[MXAtom::UTF8String];
    return connection.Intern(MEncodeUTF8Exact(format));
}

void MXClipboard::Set(const MString& format, const MBuffer& data, xcb_timestamp_t time) {
    if (time == XCB_CURRENT_TIME) time = GetServerTime();
    std::vector<MXSelectionOwner::Form> forms = {{GetForm(format), data}};
    if (format == MWindowSystem::TextFormat) {
        forms.push_back({connection[MXAtom::TextPlainUTF8], data});
        forms.push_back({connection[MXAtom::String], ToLatin1(ToBytes(data))});
        (void)primary.Offer(forms, time);
    }
    if (!clipboard.Offer(std::move(forms), time))
        MRaise(MExceptionGeneral, "Error opening system clipboard. ");
}

// Programs from before Unicode offer their texts as STRING only.
xcb_atom_t MXClipboard::FindOffered(const MString& format, xcb_timestamp_t time) const {
    const xcb_atom_t form = GetForm(format);
    const auto offered = reader.Read(connection[MXAtom::Clipboard], connection[MXAtom::Targets], time);
    if (!offered) return XCB_ATOM_NONE;
    const std::basic_string_view<uint32_t> forms = offered->GetWords();
    const auto isOffered = [&](xcb_atom_t one) { return forms.find(one) != std::string::npos; };
    if (isOffered(form)) return form;
    const xcb_atom_t plain = connection[MXAtom::String];
    if (format == MWindowSystem::TextFormat && isOffered(plain)) return plain;
    return XCB_ATOM_NONE;
}

bool MXClipboard::Has(const MString& format, xcb_timestamp_t time) const {
    if (clipboard.IsOwner()) return clipboard.Find(GetForm(format)) != nullptr;
    return FindOffered(format, time) != XCB_ATOM_NONE;
}

// Some programs answer every question with text, of a type that tells it.
MBuffer MXClipboard::Get(const MString& format, xcb_timestamp_t time) const {
    if (clipboard.IsOwner()) {
        if (const MBuffer* const own = clipboard.Find(GetForm(format))) return *own;
        MRaise(MExceptionGeneral, "No data present in clipboard. ");
    }
    const xcb_atom_t form = FindOffered(format, time);
    if (form == XCB_ATOM_NONE) MRaise(MExceptionGeneral, "No data present in clipboard. ");
    const auto content = reader.Read(connection[MXAtom::Clipboard], form, time);
    if (!content || content->type != form) MRaise(MExceptionGeneral, "Error accessing clipboard. ");
    return form == connection[MXAtom::String] ? FromLatin1(content->bytes) : ToBuffer(content->bytes);
}

bool MXClipboard::Process(const xcb_generic_event_t& event) {
    return clipboard.Process(event) || primary.Process(event);
}

// The manager asks for the content by the same requests as everybody else, and then tells that it has it.
void MXClipboard::HandOver() {
    if (!clipboard.IsOwner() || !connection.IsAlive()) return;
    const xcb_atom_t manager = connection[MXAtom::ClipboardManager];
    const MXReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, manager), nullptr));
    if (!owner || owner->owner == XCB_WINDOW_NONE) return;
    const xcb_timestamp_t time = GetServerTime();
    xcb_convert_selection(connection, window, manager, connection[MXAtom::SaveTargets],
                          connection[MXAtom::CorvanthSelection], time);
    const auto isPart = [&](const xcb_generic_event_t& event) {
        const uint8_t kind = MXKindOf(event);
        return kind == XCB_SELECTION_NOTIFY || kind == XCB_SELECTION_REQUEST || kind == XCB_PROPERTY_NOTIFY;
    };
    const int64_t end = MXMilliseconds() + HandOverTime;
    for (int64_t left = HandOverTime; left > 0; left = end - MXMilliseconds()) {
        const MXEvent event = queue.WaitFor(isPart, left);
        if (!event || MXKindOf(*event) == XCB_SELECTION_NOTIFY) return;
        (void)Process(*event);
    }
}
