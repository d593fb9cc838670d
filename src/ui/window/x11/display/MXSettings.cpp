#include "ui/window/x11/display/MXSettings.h"

#include "ui/window/x11/display/MXEventQueue.h"

#include <algorithm>
#include <charconv>

namespace {

/// Takes bytes of the daemon's property off its front; once it has ended, everything is 0 or empty.
class PropertyReader {
public:
    explicit PropertyReader(std::string_view bytes) : bytes(bytes) {}

    [[nodiscard]] bool HasEnded() const { return hasEnded; }
    void UseBigEndian(bool isOn) { isBigEndian = isOn; }
    std::string_view TakeBytes(size_t count) {
        hasEnded = hasEnded || count > bytes.size();
        if (hasEnded) return {};
        const std::string_view taken = bytes.substr(0, count);
        bytes.remove_prefix(count);
        return taken;
    }
    std::string_view TakeFilledUp(size_t count) {
        return TakeBytes((count + 3) & ~size_t{3}).substr(0, hasEnded ? 0 : count);
    }
    uint32_t TakeNumber(size_t size) {
        uint32_t number = 0;
        const std::string_view taken = TakeBytes(size);
        for (size_t i = 0; i < taken.size(); ++i) {
            const auto byte = static_cast<uint8_t>(taken[isBigEndian ? i : taken.size() - 1 - i]);
            number = number << 8 | byte;
        }
        return number;
    }

private:
    std::string_view bytes;
    bool isBigEndian = false;
    bool hasEnded = false;
};

enum SettingType : uint32_t { Number, Text, Color };

struct Setting {
    uint32_t number = 0;
    std::string_view text;
};

/// The first setting of a name, if it is of the type.
std::optional<Setting> FindSetting(std::string_view property, std::string_view name, SettingType type) {
    PropertyReader reader(property);
    reader.UseBigEndian(reader.TakeNumber(1) != 0);
    reader.TakeBytes(7);
    uint32_t left = reader.TakeNumber(4);
    for (; left > 0 && !reader.HasEnded(); --left) {
        const uint32_t foundType = reader.TakeNumber(1);
        reader.TakeBytes(1);
        const std::string_view foundName = reader.TakeFilledUp(reader.TakeNumber(2));
        reader.TakeBytes(4);
        Setting setting;
        if (foundType == Number) {
            setting.number = reader.TakeNumber(4);
        } else if (foundType == Text) {
            setting.text = reader.TakeFilledUp(reader.TakeNumber(4));
        } else if (foundType == Color) {
            reader.TakeBytes(8);
        } else {
            break;
        }
        if (foundName == name && foundType == type && !reader.HasEnded()) return setting;
    }
    return std::nullopt;
}

bool IsDarkTheme(std::string_view name) {
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char letter) { return static_cast<char>(letter | 0x20); });
    return lower.find("dark") != std::string::npos;
}

}  // namespace

MXSettings::MXSettings(const MXConnection& connection) : connection(connection) {
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, connection.GetRoot(), XCB_CW_EVENT_MASK, &events);
    Read();
}

bool MXSettings::Process(const xcb_generic_event_t& event) {
    bool isOurs = false;
    switch (MXKindOf(event)) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = MXAs<xcb_property_notify_event_t>(event);
        isOurs =
            (daemon != XCB_WINDOW_NONE && change.window == daemon) ||
            (change.window == connection.GetRoot() && change.atom == connection[MXAtom::ResourceManager]);
        break;
    }
    case XCB_DESTROY_NOTIFY:
        isOurs = daemon != XCB_WINDOW_NONE && MXAs<xcb_destroy_notify_event_t>(event).window == daemon;
        break;
    case XCB_CLIENT_MESSAGE: {
        const auto& message = MXAs<xcb_client_message_event_t>(event);
        isOurs = message.type == connection[MXAtom::Manager] &&
                 message.data.data32[1] == connection[MXAtom::XSettingsS0];
        break;
    }
    default: break;
    }
    if (isOurs) Read();
    return isOurs;
}

void MXSettings::Read() {
    const auto request = xcb_get_selection_owner(connection, connection[MXAtom::XSettingsS0]);
    const MXReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, request, nullptr));
    daemon = owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
    std::string settings;
    if (daemon != XCB_WINDOW_NONE) {
        const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection, daemon, XCB_CW_EVENT_MASK, &events);
        settings = connection.GetProperty(daemon, connection[MXAtom::XSettings]).bytes;
    }
    const std::string resources =
        connection.GetProperty(connection.GetRoot(), connection[MXAtom::ResourceManager]).bytes;
    const int32_t ofResources = FindResource(resources, "Xft.dpi", UsualDotsPerInch);
    constexpr int32_t DotsUnit = 1024;
    dotsPerInch = FindNumber(settings, "Xft/DPI", ofResources * DotsUnit) / DotsUnit;
    if (dotsPerInch < UsualDotsPerInch / 2 || dotsPerInch > UsualDotsPerInch * 8)
        dotsPerInch = UsualDotsPerInch;
    doubleClickTime = FindNumber(settings, "Net/DoubleClickTime", UsualDoubleClickTime);
    const std::string_view theme = FindText(settings, "Net/ThemeName");
    const int32_t asked = FindNumber(settings, "Gtk/ApplicationPreferDarkTheme", -1);
    prefersDark.reset();
    if (!theme.empty() || asked >= 0) prefersDark = asked > 0 || IsDarkTheme(theme);
}

int32_t MXSettings::FindNumber(std::string_view property, std::string_view name, int32_t otherwise) {
    const std::optional<Setting> setting = FindSetting(property, name, Number);
    return setting ? static_cast<int32_t>(setting->number) : otherwise;
}

std::string_view MXSettings::FindText(std::string_view property, std::string_view name) {
    return FindSetting(property, name, Text).value_or(Setting()).text;
}

int32_t MXSettings::FindResource(std::string_view resources, std::string_view name, int32_t otherwise) {
    while (!resources.empty()) {
        const size_t length = std::min(resources.find('\n'), resources.size());
        std::string_view line = resources.substr(0, length);
        resources.remove_prefix(std::min(length + 1, resources.size()));
        if (!line.starts_with(name) || !line.substr(name.size()).starts_with(':')) continue;
        line.remove_prefix(name.size() + 1);
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        int32_t number = otherwise;
        std::from_chars(line.data(), line.data() + line.size(), number);
        return number;
    }
    return otherwise;
}
