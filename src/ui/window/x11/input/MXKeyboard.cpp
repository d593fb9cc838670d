#include "ui/window/x11/input/MXKeyboard.h"

#include "foundation/base/MException.h"
#include "foundation/text/MUnicode.h"
#include "ui/window/x11/display/MXEventQueue.h"
#include "ui/window/x11/input/MXKeyboardHeaders.h"
#include "ui/window/x11/input/MXVirtualKey.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace {

template <class T, void (*unreference)(T*)>
struct Unreference {
    void operator()(T* object) const { unreference(object); }
};
template <class T, void (*unreference)(T*)>
using Reference = std::unique_ptr<T, Unreference<T, unreference>>;

using Context = Reference<xkb_context, xkb_context_unref>;
using Keymap = Reference<xkb_keymap, xkb_keymap_unref>;
using KeyState = Reference<xkb_state, xkb_state_unref>;
using ComposeTable = Reference<xkb_compose_table, xkb_compose_table_unref>;
using ComposeState = Reference<xkb_compose_state, xkb_compose_state_unref>;

/// The parts that the events of the extension have in common.
struct KeyboardEvent {
    uint8_t responseType;
    uint8_t kind;
    uint16_t sequence;
    xcb_timestamp_t time;
    uint8_t device;
};

constexpr uint16_t SelectedEvents =
    XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
constexpr uint16_t SelectedMapParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                      XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_EXPLICIT_COMPONENTS |
                                      XCB_XKB_MAP_PART_KEY_ACTIONS | XCB_XKB_MAP_PART_VIRTUAL_MODS |
                                      XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;

/// Sequences are told by the locale; a plain one in UTF-8 has those of most languages.
ComposeState MakeComposeState(xkb_context* context) {
    const char* own = nullptr;
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        own = std::getenv(variable);
        if (own && *own) break;
    }
    for (const char* locale : {own, "C.UTF-8", "en_US.UTF-8"}) {
        if (!locale || !*locale) continue;
        const ComposeTable table(
            xkb_compose_table_new_from_locale(context, locale, XKB_COMPOSE_COMPILE_NO_FLAGS));
        if (table) return ComposeState(xkb_compose_state_new(table.get(), XKB_COMPOSE_STATE_NO_FLAGS));
    }
    return nullptr;
}

bool IsLetterOrDigit(int32_t key) {
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

}  // namespace

struct MXKeyboard::State {
    Context context;
    Keymap keymap;
    KeyState keys;
    ComposeState compose;
    int32_t device = -1;
};

MXKeyboard::MXKeyboard(const MXConnection& connection)
    : connection(connection), state(std::make_unique<State>()) {
    state->context.reset(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const bool isThere =
        state->context &&
        xkb_x11_setup_xkb_extension(connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                    XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr);
    // Locales without sequences would be told on the console.
    if (isThere) xkb_context_set_log_level(state->context.get(), XKB_LOG_LEVEL_CRITICAL);
    if (isThere) state->device = xkb_x11_get_core_keyboard_device_id(connection);
    if (state->device < 0 || !ReadKeymap())
        MRaise(MExceptionGeneral, "The keyboard of the display could not be read.");
    state->compose = MakeComposeState(state->context.get());

    constexpr uint32_t Repeat = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto request =
        xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, Repeat, Repeat, 0, 0, 0);
    const MXReply<xcb_xkb_per_client_flags_reply_t> reply(
        xcb_xkb_per_client_flags_reply(connection, request, nullptr));
    xcb_xkb_select_events(connection, XCB_XKB_ID_USE_CORE_KBD, SelectedEvents, 0, SelectedEvents,
                          SelectedMapParts, SelectedMapParts, nullptr);
}

MXKeyboard::~MXKeyboard() = default;

bool MXKeyboard::ReadKeymap() {
    Keymap keymap(xkb_x11_keymap_new_from_device(state->context.get(), connection, state->device,
                                                 XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap) return false;
    KeyState keys(xkb_x11_state_new_from_device(keymap.get(), connection, state->device));
    if (!keys) return false;
    state->keys = std::move(keys);
    state->keymap = std::move(keymap);
    return true;
}

bool MXKeyboard::Process(const xcb_generic_event_t& event) {
    if (MXKindOf(event) != connection.GetExtension(MXLibrary::Xkb).firstEvent) return false;
    switch (MXAs<KeyboardEvent>(event).kind) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY: (void)ReadKeymap(); break;
    case XCB_XKB_STATE_NOTIFY: {
        const auto& change = MXAs<xcb_xkb_state_notify_event_t>(event);
        xkb_state_update_mask(state->keys.get(), change.baseMods, change.latchedMods, change.lockedMods,
                              static_cast<uint32_t>(change.baseGroup),
                              static_cast<uint32_t>(change.latchedGroup), change.lockedGroup);
        break;
    }
    default: break;
    }
    return true;
}

// First what the layout in use gives, then letters and digits of any layout, those above shift included, as
// the digits of French are.
int32_t MXKeyboard::GetVirtualKey(xcb_keycode_t key) const {
    xkb_keymap* const keymap = state->keymap.get();
    const auto at = [&](xkb_layout_index_t layout, xkb_level_index_t level) {
        const xkb_keysym_t* symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap, key, layout, level, &symbols);
        return count == 1 ? MXVirtualKey(*symbols) : 0;
    };
    const xkb_keysym_t symbol = xkb_state_key_get_one_sym(state->keys.get(), key);
    const int32_t own = MXVirtualKey(symbol);
    const xkb_layout_index_t layout = xkb_state_key_get_layout(state->keys.get(), key);
    // The keypad and what else has no text depend on the lock of numbers.
    if (symbol > 0xFF00 && symbol < 0x10000 && own != 0) return own;
    if (IsLetterOrDigit(at(layout, 0))) return at(layout, 0);
    const xkb_layout_index_t count = xkb_keymap_num_layouts_for_key(keymap, key);
    for (xkb_level_index_t level = 0; level < 2; ++level)
        for (xkb_layout_index_t i = 0; i < count; ++i)
            if (const int32_t number = at((layout + i) % count, level);
                level == 0 ? IsLetterOrDigit(number) : number >= '0' && number <= '9')
                return number;
    for (xkb_layout_index_t i = 0; i < count; ++i)
        if (const int32_t number = at((layout + i) % count, 0)) return number;
    return own;
}

MString MXKeyboard::TypeKey(xcb_keycode_t key) {
    std::array<char, 64> bytes{};
    const xkb_keysym_t symbol = xkb_state_key_get_one_sym(state->keys.get(), key);
    if (state->compose && xkb_compose_state_feed(state->compose.get(), symbol) == XKB_COMPOSE_FEED_ACCEPTED) {
        switch (xkb_compose_state_get_status(state->compose.get())) {
        case XKB_COMPOSE_COMPOSING:
        case XKB_COMPOSE_CANCELLED: return {};
        case XKB_COMPOSE_COMPOSED:
            xkb_compose_state_get_utf8(state->compose.get(), bytes.data(), bytes.size());
            return MDecodeUTF8Exact(bytes.data());
        default: break;
        }
    }
    if (xkb_state_mod_name_is_active(state->keys.get(), XKB_MOD_NAME_ALT, XKB_STATE_MODS_EFFECTIVE) > 0)
        return {};
    xkb_state_key_get_utf8(state->keys.get(), key, bytes.data(), bytes.size());
    constexpr std::string_view DeleteCharacter = "\x7F";
    return bytes.data() == DeleteCharacter ? MString() : MDecodeUTF8Exact(bytes.data());
}

void MXKeyboard::ForgetSequence() {
    if (state->compose) xkb_compose_state_reset(state->compose.get());
}

MKeyModifiers MXKeyboard::GetModifiers(uint16_t mask) {
    const auto take = [&](uint16_t bit, MKeyModifiers modifier) {
        return mask & bit ? modifier : MModifierNone;
    };
    return take(XCB_KEY_BUT_MASK_BUTTON_1, MModifierLeftButton) |
           take(XCB_KEY_BUT_MASK_BUTTON_2, MModifierMiddleButton) |
           take(XCB_KEY_BUT_MASK_BUTTON_3, MModifierRightButton) |
           take(XCB_KEY_BUT_MASK_CONTROL, MModifierControl) | take(XCB_KEY_BUT_MASK_MOD_1, MModifierAlt) |
           take(XCB_KEY_BUT_MASK_SHIFT, MModifierShift);
}
