#include "tests/support/MTestText.h"
#include "tests/ui/window/x11/MTestXServer.h"
#include "ui/window/x11/selections/MXDragTarget.h"
#include "ui/window/x11/selections/MXSelectionOwner.h"

#include <atomic>
#include <cstring>
#include <thread>

namespace {

xcb_window_t MakeWindow(const MXConnection& connection) {
    const xcb_window_t window = xcb_generate_id(connection);
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, 0, window, connection.GetRoot(), 0, 0, 9, 9, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    connection.Synchronize();
    return window;
}

/// Another program from which things are dragged, on a thread of its own.
class DragSource {
public:
    /// Drags over a window and drops there; `answers` are then the action of the status and of the end.
    DragSource(const MTestXServer& server, xcb_window_t target, MXAtom form, const std::string& content)
        : connection(server.GetName()), thread([=, this] { Run(target, form, content); }) {}
    DragSource(const DragSource&) = delete;
    DragSource& operator=(const DragSource&) = delete;
    ~DragSource() { thread.join(); }

    [[nodiscard]] bool IsDone() const { return isDone; }
    [[nodiscard]] const std::string& GetAnswers() const { return answers; }

private:
    void Run(xcb_window_t target, MXAtom form, const std::string& content) {
        MXEventQueue queue(connection);
        const xcb_window_t window = MakeWindow(connection);
        MXSelectionOwner owner(connection, window, connection[MXAtom::XdndSelection]);
        MBuffer data(static_cast<int32_t>(content.size()));
        std::memcpy(data.EditBlock(), content.data(), content.size());
        EXPECT_TRUE(owner.Offer({{connection[form], data}}, XCB_CURRENT_TIME));
        constexpr uint32_t Version = 5 << 24;
        connection.SendToClient(target, MXAtom::XdndEnter, {window, Version, connection[form]});
        connection.SendToClient(target, MXAtom::XdndPosition, {window, 0, 30 << 16 | 40});
        // Like most, this source goes on even where it is not welcome.
        for (int count = 0; count < 2;) {
            queue.Wait(1000);
            while (const MXEvent event = queue.Take()) {
                owner.Process(*event);
                if (MXKindOf(*event) != XCB_CLIENT_MESSAGE) continue;
                const auto& message = MXAs<xcb_client_message_event_t>(*event);
                const uint32_t action =
                    message.data.data32[message.type == connection[MXAtom::XdndStatus] ? 4 : 2];
                answers += connection.GetText(message.type) + " " + connection.GetText(action) + "|";
                if (++count == 1)
                    connection.SendToClient(target, MXAtom::XdndDrop, {window, 0, XCB_CURRENT_TIME});
            }
        }
        isDone = true;
    }

    MXConnection connection;
    std::string answers;
    std::atomic<bool> isDone = false;
    std::thread thread;
};

}  // namespace

TEST(XDragTargetTest, FilesAreTakenAndOtherThingsAreDeclined) {
    struct Case {
        MXAtom form;
        const char* answers;
        const char* dropped;
    };
    const Case cases[] = {
        {MXAtom::TextUriList, "XdndStatus XdndActionCopy|XdndFinished XdndActionCopy|", "/a b at 30,40|"},
        {MXAtom::TextPlain, "XdndStatus |XdndFinished |", ""},
    };
    const MTestXServer server;
    const MXConnection connection(server.GetName());
    MXEventQueue queue(connection);
    const xcb_window_t window = MakeWindow(connection);
    for (const Case& one : cases) {
        std::string dropped;
        const MXSelectionReader reader(connection, queue, window);
        MXDragTarget target(
            connection, reader, [&](xcb_window_t over) { return over == window; },
            [&](xcb_window_t, const MList<MString>& files, MPoint point) {
                dropped +=
                    Text(files[0]) + " at " + std::to_string(point.x) + "," + std::to_string(point.y) + "|";
                return true;
            });
        const DragSource source(server, window, one.form, "file:///a%20b\r\n");
        for (; !source.IsDone(); queue.Wait(20)) {
            while (const MXEvent event = queue.Take()) {
                const bool isMessage = MXKindOf(*event) == XCB_CLIENT_MESSAGE;
                EXPECT_TRUE(!isMessage || target.Process(MXAs<xcb_client_message_event_t>(*event)));
            }
        }
        EXPECT_EQ(source.GetAnswers(), one.answers);
        EXPECT_EQ(dropped, one.dropped);
    }
}

TEST(XDragTargetTest, ListsOfAddressesGiveTheFilesOfThisMachine) {
    const MList<MString> files = MXDragTarget::ParseFiles(
        "# files\r\nfile:///tmp/a%20b%C3%A4.txt\r\nfile://localhost/c\r\nfile:/d\r\n"
        "file://elsewhere.example/e\r\nhttps://host/f\r\nfile:///bad%2\r\nfile:///zero%00\r\nfile://\r\n"
        "file:relative\nfile:///last");
    std::string paths;
    for (const MString& path : files) paths += Text(path) + "|";
    EXPECT_EQ(paths, "/tmp/a b\u00E4.txt|/c|/d|/last|");
}
