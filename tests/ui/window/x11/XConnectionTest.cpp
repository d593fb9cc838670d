#include "tests/support/MTestText.h"
#include "tests/support/posix/MTestVariable.h"
#include "tests/ui/window/x11/MTestXServer.h"
#include "ui/window/x11/display/MXEventQueue.h"
#include "ui/window/x11/display/MXMonitors.h"
#include "ui/window/x11/display/MXSettings.h"

#include <chrono>
#include <thread>

using namespace std::string_literals;

namespace {

std::string RectText(const MRect& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) +
           "," + std::to_string(rect.bottom);
}

/// A property of a settings daemon: the settings as their documentation has them, in one of two byte orders.
std::string DaemonProperty(bool isBigEndian, const std::string& theme = "Dawn.") {
    const auto number = [&](uint32_t value, int size) {
        std::string bytes;
        for (int i = 0; i < size; ++i)
            bytes += static_cast<char>(value >> 8 * (isBigEndian ? size - 1 - i : i));
        return bytes;
    };
    const auto name = [&](const std::string& text) {
        return std::string(1, '\0') + number(static_cast<uint32_t>(text.size()), 2) + text +
               std::string(-text.size() % 4, '\0') + number(7, 4);
    };
    return std::string(1, isBigEndian) + std::string(3, '\0') + number(1, 4) + number(3, 4) + "\1" +
           name("Net/ThemeName") + number(static_cast<uint32_t>(theme.size()), 4) + theme +
           std::string(-theme.size() % 4, '\0') + "\2" + name("Some/Color") + number(1, 4) + number(2, 4) +
           std::string(1, '\0') + name("Xft/DPI") + number(144 * 1024, 4);
}

}  // namespace

TEST(XConnectionTest, ADisplayThatIsNotThereIsNamed) {
    const std::string failure = FailureOf([] { const MXConnection connection(":4711"); });
    EXPECT_EQ(failure, "0: The display \":4711\" could not be opened. Please start this program in a desktop "
                       "session, or run it without windows.");
    const MTestVariable variable("DISPLAY", "nowhere:3");
    EXPECT_THAT(FailureOf([] { const MXConnection connection; }), testing::HasSubstr("\"nowhere:3\""));
}

TEST(XConnectionTest, NamesAndLongPropertiesComeBack) {
    const MTestXServer server;
    const MXConnection connection(server.GetName());
    for (size_t i = 0; i < static_cast<size_t>(MXAtom::Count); ++i)
        EXPECT_EQ(connection.GetText(connection[static_cast<MXAtom>(i)]), MXAtomText(static_cast<MXAtom>(i)));
    // More than one request for a property brings.
    std::string bytes(5 << 20, 'a');
    for (size_t i = 0; i < bytes.size(); i += 999) bytes[i] = static_cast<char>(i);
    const xcb_atom_t name = connection[MXAtom::Incr];
    connection.SetBytes(connection.GetRoot(), MXAtom::Incr, XCB_ATOM_STRING, bytes);
    EXPECT_EQ(connection.TakeProperty(connection.GetRoot(), name).bytes, bytes);
    EXPECT_EQ(connection.GetProperty(connection.GetRoot(), name).type, XCB_ATOM_NONE);
}

TEST(XConnectionTest, WaitingEndsByEventWakeUpTimeAndTheDeathOfTheServer) {
    MTestXServer server;
    const MXConnection connection(server.GetName());
    MXEventQueue queue(connection);
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection, connection.GetRoot(), XCB_CW_EVENT_MASK, &events);

    // An event that was read while an answer was awaited does not come to the descriptor any more.
    connection.SetBytes(connection.GetRoot(), MXAtom::Incr, XCB_ATOM_STRING, "x");
    connection.Synchronize();
    queue.Wait(MXEventQueue::Forever);
    EXPECT_EQ(MXKindOf(*queue.Take()), XCB_PROPERTY_NOTIFY);

    const int64_t before = MXMilliseconds();
    queue.Wait(50);
    EXPECT_GE(MXMilliseconds() - before, 50);
    EXPECT_FALSE(queue.Take());

    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        queue.Wake();
    });
    queue.Wait(MXEventQueue::Forever);
    other.join();

    server.Kill();
    queue.Wait(MXEventQueue::Forever);
    EXPECT_FALSE(queue.Take());
    EXPECT_FALSE(connection.IsAlive());
    EXPECT_EQ(connection.GetProperty(connection.GetRoot(), connection[MXAtom::Incr]).bytes, "");
}

TEST(XMonitorsTest, DocksCutTheMonitorThatTheyLieOn) {
    const MTestXServer server("1280x800x24");
    server.Run("xrandr --setmonitor L 640/160x800/200+0+0 screen --setmonitor R 640/160x800/200+640+0 none");
    const MXConnection connection(server.GetName());
    // A panel along the top of the left monitor, and a dock at the right edge.
    const uint32_t panel[] = {0, 0, 30, 0, 0, 0, 0, 0, 0, 639, 0, 0};
    const uint32_t dock[] = {0, 60, 0, 0, 0, 0, 100, 700, 0, 0, 0, 0};
    std::basic_string<uint32_t> clients;
    for (const auto& strut : {panel, dock}) {
        clients += xcb_generate_id(connection);
        xcb_create_window(connection, 0, clients.back(), connection.GetRoot(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        connection.SetWords(clients.back(), MXAtom::NetWMStrutPartial, XCB_ATOM_CARDINAL, {strut, 12});
    }
    connection.SetWords(connection.GetRoot(), MXAtom::NetClientList, XCB_ATOM_WINDOW, clients);
    const MList<MXMonitor> monitors = MXReadMonitors(connection);
    ASSERT_EQ(monitors.GetCount(), 2);
    const MPoint onLeft{100, 100};
    const MPoint farRight{5000, -20};
    EXPECT_EQ(RectText(MXMonitorAt(monitors, onLeft).workArea), "0,30,639,799");
    EXPECT_EQ(RectText(MXMonitorAt(monitors, farRight).workArea), "640,0,1219,799");
    EXPECT_EQ(RectText(MXMonitorAt(monitors, farRight).frame), "640,0,1279,799");
}

TEST(XSettingsTest, NumbersAreFoundInWhatADaemonAnnouncesAndDamageIsNot) {
    for (const bool isBigEndian : {false, true}) {
        const std::string property = DaemonProperty(isBigEndian);
        EXPECT_EQ(MXSettings::FindNumber(property, "Xft/DPI", 1), 144 * 1024);
        EXPECT_EQ(MXSettings::FindNumber(property, "Net/ThemeName", 1), 1);
        EXPECT_EQ(MXSettings::FindText(property, "Net/ThemeName"), "Dawn.");
        EXPECT_EQ(MXSettings::FindText(property, "Xft/DPI"), "");
        for (size_t size = 0; size < property.size(); ++size)
            EXPECT_EQ(MXSettings::FindNumber(property.substr(0, size), "Xft/DPI", 1), 1) << size;
    }
    const std::string resources = "Xft.dpiX:\t7\nXft.antialias:\t1\nXft.dpi:\t144\nlast";
    EXPECT_EQ(MXSettings::FindResource(resources, "Xft.dpi", 96), 144);
    EXPECT_EQ(MXSettings::FindResource(resources, "last", 96), 96);
    EXPECT_EQ(MXSettings::FindResource("Xft.dpi: many", "Xft.dpi", 96), 96);
}

TEST(XSettingsTest, ChangesOfTheDesktopAreHeard) {
    const MTestXServer server;
    const MXConnection connection(server.GetName());
    MXEventQueue queue(connection);
    MXSettings settings(connection);
    EXPECT_EQ(settings.GetDotsPerInch(), 96);
    server.Run("xprop -root -f RESOURCE_MANAGER 8s -set RESOURCE_MANAGER 'Xft.dpi:\t192'");
    EXPECT_TRUE(
        queue.WaitFor([&](const xcb_generic_event_t& event) { return settings.Process(event); }, 2000));
    EXPECT_EQ(settings.GetDotsPerInch(), 192);
    EXPECT_EQ(settings.PrefersDark(), std::nullopt);

    const MXConnection daemon(server.GetName());
    const xcb_window_t window = xcb_generate_id(daemon);
    xcb_create_window(daemon, 0, window, daemon.GetRoot(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(daemon, window, daemon[MXAtom::XSettingsS0], XCB_CURRENT_TIME);
    const xcb_atom_t atom = daemon[MXAtom::XSettings];
    for (const auto& [theme, isDark] : {std::pair{"Meadow", false}, {"Meadow-Dark", true}}) {
        const std::string property = DaemonProperty(false, theme);
        xcb_change_property(daemon, XCB_PROP_MODE_REPLACE, window, atom, atom, 8,
                            static_cast<uint32_t>(property.size()), property.data());
        (void)daemon.GetProperty(window, atom);
        const MXSettings announced(connection);
        EXPECT_EQ(announced.PrefersDark(), isDark);
        EXPECT_EQ(announced.GetDotsPerInch(), 144);
    }
}
