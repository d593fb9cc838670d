#include "tests/ui/window/win32/Win32WindowFixture.h"

#include <cstring>
#include <shellapi.h>
#include <shlobj.h>

namespace {

using WindowMessagesTest = Win32WindowTest;

/// What a shell hands over for dropped files.
HDROP MakeDrop(const std::u16string& paths, POINT point) {
    const size_t size = (paths.size() + 1) * sizeof(char16_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(DROPFILES) + size);
    auto* const bytes = static_cast<char*>(GlobalLock(memory));
    const DROPFILES header = {sizeof header, point, FALSE, TRUE};
    std::memcpy(bytes, &header, sizeof header);
    std::memcpy(bytes + sizeof header, paths.c_str(), size);
    GlobalUnlock(memory);
    return static_cast<HDROP>(memory);
}

}  // namespace

TEST_F(WindowMessagesTest, TheMouseBecomesEvents) {
    const struct {
        UINT message;
        WPARAM keys;
        const char* events;
    } cases[] = {
        {WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, "0 -5,7 65\n"},
        {WM_LBUTTONUP, MK_CONTROL, "3 -5,7 16\n"},
        {WM_RBUTTONDOWN, MK_RBUTTON, "1 -5,7 4\n"},
        {WM_RBUTTONUP, 0, "4 -5,7 0\n"},
        {WM_MBUTTONDOWN, MK_MBUTTON, "2 -5,7 2\n"},
        {WM_MBUTTONUP, 0, "5 -5,7 0\n"},
        {WM_MOUSEMOVE, MK_LBUTTON | MK_RBUTTON, "9 -5,7 5\n"},
        // Nobody has taken these, so they are presses too.
        {WM_LBUTTONDBLCLK, MK_LBUTTON, "6 -5,7 1\n0 -5,7 1\n"},
        {WM_RBUTTONDBLCLK, MK_RBUTTON, "7 -5,7 4\n1 -5,7 4\n"},
        {WM_MBUTTONDBLCLK, MK_MBUTTON, "8 -5,7 2\n2 -5,7 2\n"},
        {WM_MOUSELEAVE, 0, "left\n"},
    };
    const HWND handle = Open(window);
    window.logsMoves = true;
    for (const auto& [message, keys, events] : cases) {
        window.TakeLog();
        SendMessageW(handle, message, keys, MAKELPARAM(static_cast<WORD>(-5), 7));
        EXPECT_EQ(window.TakeLog(), events) << message;
    }
    system.SetCursorPosition(window, {20, 30});
    for (const auto& [delta, steps] : {std::pair(240, "2"), std::pair(-120, "-1"), std::pair(-30, "-1")}) {
        window.TakeLog();
        SendMessageW(handle, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
        EXPECT_EQ(window.TakeLog(), std::string("10 20,30 0 ") + steps + "\n");
    }
}

TEST_F(WindowMessagesTest, TheKeyboardBecomesEvents) {
    const HWND handle = Open(window);
    for (const char16_t unit : u"\u00E9\U0001F600")
        if (unit) PostMessageW(handle, WM_CHAR, unit, 0);
    PostMessageW(handle, WM_SYSKEYDOWN, VK_F10, 0);
    PostMessageW(handle, WM_SYSKEYUP, VK_F10, 0);
    PostMessageW(handle, WM_KEYUP, VK_F1, 0);
    EXPECT_TRUE(PumpUntil([&] { return window.log.ends_with("14 112\n"); }));
    EXPECT_EQ(window.TakeLog(), "15 233\n15 55357\n15 56832\n13 121\n14 121\n14 112\n");
    // Otherwise this would wait for the choice from a menu.
    for (const LPARAM key : {LPARAM{0}, LPARAM{'f'}})
        EXPECT_EQ(SendMessageW(handle, WM_SYSCOMMAND, SC_KEYMENU, key), 0);
}

TEST_F(WindowMessagesTest, LosingTheMouseToOthersIsTold) {
    const HWND handle = Open(window);
    system.SetCapture(window, true);
    system.SetCapture(window, true);
    system.SetCapture(window, false);
    EXPECT_EQ(window.TakeLog(), "") << "its own doing is no loss";
    system.SetCapture(window, true);
    EXPECT_EQ(GetCapture(), handle);
    LoggingWindow other("Other");
    Open(other);
    EXPECT_THAT(window.TakeLog(), testing::HasSubstr("capture lost\n"));
    system.SetCapture(other, true);
    system.Hide(other);
    EXPECT_EQ(other.TakeLog().substr(0, 13), "capture lost\n");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(WindowMessagesTest, ActivationIsTold) {
    Open(window);
    MControl* active = nullptr;
    window.onEvent = [&](const MSystemEvent& event) { active = event.other; };
    LoggingWindow other("Other");
    Open(other);
    EXPECT_EQ(window.TakeLog(), "inactive\n");
    EXPECT_EQ(active, &other);
    EXPECT_EQ(system.GetActiveRoot(), &other);
    system.Activate(window);
    EXPECT_EQ(system.GetActiveRoot(), &window);
}

TEST_F(WindowMessagesTest, DroppedFilesArriveWithBackslashes) {
    const HWND handle = Open(window);
    const std::u16string list = std::u16string(u"C:/one/\u00FC.txt\0D:\\two\0", 20) +
                                std::u16string(1025, u'x') + std::u16string(u"\0E:/three\0", 10);
    PostMessageW(handle, WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop(list, {5, 6})), 0);
    EXPECT_TRUE(PumpUntil([&] { return !window.log.empty(); }));
    EXPECT_EQ(window.TakeLog(), "C:\\one\\\u00FC.txt\nD:\\two\nE:\\three\n");
}

TEST_F(WindowMessagesTest, AHandlerMayEndItsWindow) {
    for (const UINT message : {WM_LBUTTONDBLCLK, WM_KEYDOWN, WM_CHAR, WM_KILLFOCUS}) {
        auto doomed = std::make_unique<LoggingWindow>("Doomed");
        const HWND handle = Open(*doomed);
        LoggingWindow* const ended = doomed.get();
        ended->onEvent = [&](const MSystemEvent&) { doomed.reset(); };
        SendMessageW(handle, message, 'A', 0);
        EXPECT_FALSE(IsWindow(handle)) << message;
    }
}
