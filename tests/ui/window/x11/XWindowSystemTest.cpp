#include "examples/windows/MPlainStyle.h"
#include "tests/support/MTestText.h"
#include "tests/ui/window/x11/MTestXServer.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRef.h"
#include "ui/control/windows/MWindows.h"
#include "ui/image/MAlphaMask.h"
#include "ui/window/MNativeWindowSystem.h"
#include "ui/window/headless/MWindowSystemHeadless.h"
#include "ui/window/x11/MWindowSystemX11.h"
#include "ui/window/x11/MXWindow.h"

#include <chrono>
#include <cstring>
#include <functional>
#include <semaphore>
#include <thread>

namespace {

/// A window that tells what reaches it.
class Window final : public MControl {
public:
    Window(const char* name, std::string& log) : MControl(nullptr, name), log(log) {
        SetControlType(MControlType::Window);
        for (const MControlFlag flag : {MControlFlag::AdaptSize, MControlFlag::MoveToScreenCenter})
            Set(flag, false);
        for (const MControlFlag flag : {MControlFlag::AcceptsFiles, MControlFlag::InTaskbar}) Set(flag);
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    ~Window() noexcept override = default;

    void Open(MPoint at, MPoint of, MControl* owner = nullptr) {
        position = at;
        size = of;
        CreateWindow(owner);
        ShowModeless(owner);
    }
    bool ProcessEvent(const MSystemEvent& event) override {
        static constexpr const char* Names[] = {"down",
                                                "right down",
                                                "middle down",
                                                "up",
                                                "right up",
                                                "middle up",
                                                "double",
                                                "right double",
                                                "middle double",
                                                "move",
                                                "wheel",
                                                "enter",
                                                "leave",
                                                "key",
                                                "key up",
                                                "char",
                                                "focus",
                                                "blur",
                                                "activation",
                                                "",
                                                "",
                                                ""};
        const MString told = MString::Print("%s", Names[static_cast<size_t>(event.type)]);
        log += Text(GetName()) + " " + Text(told);
        if (event.HasPosition())
            log += " " + std::to_string(event.point.x) + "," + std::to_string(event.point.y);
        if (event.type == MEventType::Wheel) log += " " + std::to_string(event.wheelDelta);
        if (event.type == MEventType::KeyDown) log += " " + std::to_string(event.key);
        if (event.type == MEventType::Character) log += " " + std::to_string(event.character);
        if (event.type == MEventType::Activation) log += event.flag ? " on" : " off";
        if (event.modifiers != 0) log += " +" + std::to_string(event.modifiers);
        log += "|";
        const MControlRef self(this);
        if (onEvent) onEvent(event);
        return !self || MControl::ProcessEvent(event);
    }
    void OnMouseLeave() override {
        log += Text(GetName()) + " left|";
        MControl::OnMouseLeave();
    }

    std::function<void(const MSystemEvent&)> onEvent;

private:
    std::string& log;
};

/// Puts something of every kind into a window.
void Fill(MControl& root, std::vector<std::unique_ptr<MControl>>& children) {
    const MControlType types[] = {MControlType::Button, MControlType::Edit, MControlType::Panel,
                                  MControlType::ListBox};
    for (int32_t i = 0; i < 4; ++i) {
        MControl& child = *children.emplace_back(std::make_unique<MControl>(&root));
        child.SetControlType(types[i]);
        child.SetCaption(MString::Copy(u"\u00C4 caption"), MCaptionType::Normal);
        child.Set(MControlFlag::OverlayControl);
        child.Set(MControlFlag::AdaptSize, false);
        child.position = {10 + i * 60, 20 + i * 30};
        child.size = {90, 40};
    }
}

/// The part of a screen that a window covers.
MBitmap Cut(const MBitmap& screen, const MRect& frame) {
    MBitmap part(frame.GetWidth(), frame.GetHeight());
    for (int32_t y = 0; y < part.GetHeight(); ++y)
        std::copy_n(screen.GetRow(frame.top + y) + frame.left, part.GetWidth(), part.EditRow(y));
    return part;
}

bool AreEqual(const MBitmap& left, const MBitmap& right) {
    return left.GetRect() == right.GetRect() &&
           std::equal(left.GetPixels(), left.GetPixels() + left.GetWidth() * left.GetHeight(),
                      right.GetPixels());
}

class XWindowSystemTest : public testing::Test {
protected:
    XWindowSystemTest() { UseWindows(MCreateNativeWindowSystem(Heap(server.GetName().c_str()))); }
    ~XWindowSystemTest() noexcept override {
        if (!manager.empty()) server.Run("kill " + manager);
    }

    void UseWindows(std::unique_ptr<MWindowSystem> newSystem) {
        windows.reset();
        windows = std::make_unique<MWindows>(std::move(newSystem));
        windows->SetStyle(std::make_unique<MPlainStyle>(windows.get(), SYSTEM_FONTS));
    }

    [[nodiscard]] MWindowSystemX11& GetSystem() {
        return static_cast<MWindowSystemX11&>(windows->GetSystem());
    }
    /// Lets a user do something by xdotool, and gives what came of it: until nothing more comes for a
    /// moment, and, for what a window manager does as well, something is true.
    std::string Do(
        const std::string& deeds, const std::function<bool()>& isDone = [] { return true; }) {
        log.clear();
        if (!deeds.empty()) server.Run("xdotool " + deeds);
        const int64_t end = MXMilliseconds() + 5000;
        for (int quiet = 0; quiet < 20 || (!isDone() && MXMilliseconds() < end); ++quiet) {
            if (GetSystem().ProcessPending() > 0) quiet = 0;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return log;
    }
    /// Starts a window manager. It overlooks windows that appear before it has come to rest.
    void StartManager() {
        manager = server.Run("openbox >/dev/null 2>&1 & echo $!; until xprop -root _NET_SUPPORTING_WM_CHECK |"
                             " grep -q '#'; do :; done; sleep 0.5");
    }
    [[nodiscard]] std::string GetHints(const char* window, const std::string& names) const {
        return server.Run("xprop -id $(xdotool search --name '^" + std::string(window) + "$') " + names);
    }

    std::string log;
    std::string manager;  ///< the number of its process
    MTestXServer server{"800x600x24"};
    std::unique_ptr<MWindows> windows;
};

}  // namespace

TEST_F(XWindowSystemTest, TheScreenShowsWhatIsCapturedAndSendsNoMoreThanChanges) {
    MBitmap captured;
    {
        Window root("main", log);
        std::vector<std::unique_ptr<MControl>> children;
        Fill(root, children);
        root.Open({40, 30}, {300, 200});
        Do("mousemove 700 500");
        ASSERT_TRUE(GetSystem().CaptureToBitmap(root, captured));
        EXPECT_TRUE(AreEqual(Cut(server.TakePicture(), GetSystem().GetFrame(root)), captured));

        const MXPresenter& presenter = MXWindow::Of(root)->GetPresenter();
        const int64_t before = presenter.GetCopiedBytes();
        root.InvalidateRect(MRect::FromSize(15, 150, 100, 20));
        Do("");
        EXPECT_GE(presenter.GetCopiedBytes() - before, 100 * 20 * 4);
        EXPECT_LE(presenter.GetCopiedBytes() - before, 100 * 20 * 4 * 2);
    }
    UseWindows(std::make_unique<MWindowSystemHeadless>());
    Window root("main", log);
    std::vector<std::unique_ptr<MControl>> children;
    Fill(root, children);
    root.Open({40, 30}, {300, 200});
    MBitmap inMemory;
    ASSERT_TRUE(windows->GetSystem().CaptureToBitmap(root, inMemory));
    EXPECT_TRUE(AreEqual(inMemory, captured));
}

TEST_F(XWindowSystemTest, OtherWindowsWaitWhileOneIsFlushed) {
    Window first("first", log);
    Window second("second", log);
    first.Open({40, 30}, {200, 100});
    second.Open({300, 30}, {200, 100});
    Do("mousemove 700 500");
    windows->messageFilter = &second;
    const std::string told = Do("mousemove 50 40 click 1 mousemove 310 40 click 1");
    EXPECT_THAT(told, testing::HasSubstr("second down"));
    EXPECT_THAT(told, testing::Not(testing::HasSubstr("first")));
    windows->messageFilter = nullptr;
    EXPECT_THAT(Do(""), testing::HasSubstr("first down"));
}

TEST_F(XWindowSystemTest, ShapesCutWindowsAndDragFramesLieOverThem) {
    // Without a colour of its own the desktop keeps what was there.
    server.Run("xsetroot -solid '#204060'");
    Window root("main", log);
    root.Open({40, 30}, {300, 200});
    Do("mousemove 700 500");
    const MBitmap before = server.TakePicture();
    MAlphaMask mask(300, 200);
    for (int32_t y = 0; y < 200; ++y) std::fill_n(mask.EditRow(y), y < 100 ? 150 : 0, uint8_t{1});
    GetSystem().SetShape(root, mask);
    Do("");
    const MBitmap shaped = server.TakePicture();
    const MColor desktop = MColor::FromRGB(0x20, 0x40, 0x60);
    for (const MPoint point : {MPoint{45, 35}, MPoint{189, 129}, MPoint{190, 129}, MPoint{189, 130}}) {
        const bool isInside = point.x < 40 + 150 && point.y < 30 + 100;
        EXPECT_EQ(shaped.GetPixel(point.x, point.y), isInside ? before.GetPixel(point.x, point.y) : desktop);
    }
    GetSystem().DrawDragFrame(root, 10, 20, 100, 50);
    Do("");
    const MBitmap framed = server.TakePicture();
    for (const MPoint corner : {MPoint{11, 21}, MPoint{108, 68}})
        EXPECT_EQ(framed.GetPixel(corner.x, corner.y), MColor::FromRGB(255, 255, 255));
    EXPECT_EQ(framed.GetPixel(60, 45), shaped.GetPixel(60, 45));
    GetSystem().DrawDragFrame(root, 10, 20, 100, 50);
    Do("");
    EXPECT_TRUE(AreEqual(server.TakePicture(), shaped));
}

TEST_F(XWindowSystemTest, MouseAndKeyboardReachTheWindow) {
    Window root("main", log);
    root.Open({40, 30}, {300, 200});
    Do("mousemove 140 130");
    struct Case {
        const char* deeds;
        const char* told;
    };
    const Case cases[] = {
        {"click 1", "main down 100,100 +1|main up 100,100|"},
        {"sleep 0.6 click --repeat 3 --delay 30 1",
         "main down 100,100 +1|main up 100,100|main double 100,100 +1|main down 100,100 +1|main up 100,100|"
         "main down 100,100 +1|main up 100,100|"},
        {"click 3", "main right down 100,100 +4|main right up 100,100|"},
        {"click 2", "main middle down 100,100 +2|main middle up 100,100|"},
        {"click 4 click 5", "main wheel 100,100 1|main wheel 100,100 -1|"},
        {"key a", "main key 65|main char 97|main key up|"},
        {"key ctrl+Page_Up", "main key 17 +16|main key 33 +16|main key up|main key up|"},
        // The button keeps the mouse outside of the window as well.
        {"mousedown 1 mousemove 500 400 mouseup 1",
         "main down 100,100 +1|main move 460,370 +1|main up 460,370|main left|main leave|"},
    };
    for (const Case& one : cases) EXPECT_EQ(Do(one.deeds), one.told) << one.deeds;
}

TEST_F(XWindowSystemTest, PressesBesideAPopupCloseIt) {
    Window root("main", log);
    Window popup("popup", log);
    popup.Set(MControlFlag::CloseOnDeactivate);
    popup.position = {100, 60};
    popup.size = {80, 50};
    popup.CreateWindow(&root);
    root.Open({40, 30}, {300, 200});
    MModalValue result = MModalValue::None;
    root.onEvent = [&](const MSystemEvent& event) {
        if (event.type == MEventType::RightDown) result = popup.RunModal(&root);
    };
    // A thread acts while the popup's own loop runs.
    const auto open = [&](const std::string& deeds) {
        result = MModalValue::None;
        std::thread user([&] { server.Run("sleep 0.3; xdotool " + deeds); });
        const std::string told = Do("mousemove 60 50 click 3");
        user.join();
        return told + Do("");
    };
    struct Case {
        const char* deeds;
        const char* told;
    };
    for (const char* place : {"700 500", "300 200"}) {
        const std::string told =
            open(std::string("key x mousemove 110 70 click 1 mousemove ") + place + " click 1");
        EXPECT_EQ(result, MModalValue::Cancel);
        // Keys go to the popup, and the press that closes it to nobody.
        EXPECT_THAT(told, testing::AllOf(testing::HasSubstr("popup key 88|popup char 120|popup key up|"),
                                         testing::HasSubstr("popup down 10,10 +1|popup up 10,10|"),
                                         testing::HasSubstr("popup activation off|"),
                                         testing::Not(testing::HasSubstr("main down"))));
        EXPECT_EQ(Do("key y"), "main key 89|main char 121|main key up|");
    }
}

TEST_F(XWindowSystemTest, OtherThreadsShowAndHideAndAnIdleLoopSleeps) {
    Window root("main", log);
    root.position = {40, 30};
    root.size = {100, 100};
    root.CreateWindow(nullptr);
    std::thread([&] { GetSystem().Show(root); }).join();
    EXPECT_FALSE(GetSystem().IsVisible(root));
    Do("mousemove 700 500");
    EXPECT_TRUE(GetSystem().IsVisible(root));

    const int64_t before = GetSystem().CountWakeUps();
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        GetSystem().Hide(root);
        server.Kill();
    });
    // The death of the server ends every loop.
    GetSystem().RunLoop(root);
    other.join();
    EXPECT_FALSE(GetSystem().IsVisible(root));
    EXPECT_LE(GetSystem().CountWakeUps() - before, 4);
}

TEST_F(XWindowSystemTest, AWindowManagerPutsWindowsWhereTheyBelongAndHasItsSay) {
    StartManager();
    Window root("main", log);
    Window dialog("dialog", log);
    root.SetCaption("main", MCaptionType::Normal);
    dialog.SetCaption("dialog", MCaptionType::Normal);
    const auto isActive = [&] { return GetSystem().GetActiveRoot() == &root; };
    const auto isAt = [&](const MRect& frame) {
        const std::string geometry = "Position: " + std::to_string(frame.left) + "," +
                                     std::to_string(frame.top) +
                                     " (screen: 0)\n  Geometry: " + std::to_string(frame.GetWidth()) + "x" +
                                     std::to_string(frame.GetHeight());
        return GetSystem().GetFrame(root) == frame &&
               server.Run("xdotool search --name '^main$' getwindowgeometry").find(geometry) !=
                   std::string::npos;
    };
    root.Open({-20, 30}, {300, 200});
    EXPECT_EQ(Do("mousemove 700 500", isActive), "main activation on|");
    EXPECT_TRUE(isAt(MRect::FromSize(-20, 30, 300, 200)));
    const MRect moved = MRect::FromSize(100, 60, 300, 200);
    Do("search --name ^main$ windowmove 100 60", [&] { return isAt(moved); });
    EXPECT_EQ(root.position, moved.GetTopLeft());
    GetSystem().Maximize(root);
    Do("", [&] { return isAt(MRect::FromSize(0, 0, 800, 600)); });
    GetSystem().Restore(root);
    Do("", [&] { return isAt(moved); });
    EXPECT_TRUE(isAt(moved));

    GetSystem().Minimize(root);
    EXPECT_EQ(Do("", [&] { return !isActive(); }), "main blur|main activation off|");
    EXPECT_TRUE(GetSystem().IsMinimized(root));
    GetSystem().Restore(root);
    EXPECT_EQ(Do("", isActive), "main focus|main activation on|");
    EXPECT_FALSE(GetSystem().IsMinimized(root));

    std::string hints;
    std::thread user([&] {
        server.Run("timeout 5 xdotool search --sync --onlyvisible --name '^dialog$'; sleep 0.3");
        hints = GetHints("dialog", "_NET_WM_STATE WM_TRANSIENT_FOR");
        // A modal window keeps the keyboard when the user presses on that behind it. A manager that is busy may
        // give it to that for a moment.
        server.Run(
            "xdotool mousemove 110 70 click 1; sleep 0.3; xdotool key x; "
            "while xdotool search --onlyvisible --name '^dialog$'; do xdotool key alt+F4; sleep 0.5; done");
    });
    dialog.position = {150, 100};
    dialog.size = {100, 80};
    dialog.CreateWindow(&root);
    log.clear();
    EXPECT_EQ(dialog.RunModal(&root), MModalValue::Cancel);
    user.join();
    EXPECT_THAT(hints,
                testing::AllOf(testing::HasSubstr("_NET_WM_STATE_MODAL"), testing::HasSubstr("window id")));
    EXPECT_THAT(log, testing::AllOf(testing::HasSubstr("dialog char 120"),
                                    testing::Not(testing::HasSubstr("main down"))));
    Do("", isActive);
    EXPECT_EQ(Do("key y"), "main key 89|main char 121|main key up|");
}
