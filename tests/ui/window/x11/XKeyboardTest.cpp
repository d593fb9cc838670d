#include "tests/support/MTestText.h"
#include "tests/support/posix/MTestVariable.h"
#include "tests/ui/window/x11/MTestXServer.h"
#include "ui/window/x11/display/MXEventQueue.h"
#include "ui/window/x11/input/MXKeyboard.h"

#include <vector>

namespace {

/// The numbers of a few keys of a PC, by what they have on an American keyboard.
enum KeyCode : xcb_keycode_t {
    Escape = 9,
    One = 10,
    Minus = 20,
    Equal = 21,
    Tab = 23,
    Q = 24,
    E = 26,
    Enter = 36,
    A = 38,
    Semicolon = 47,
    Keypad7 = 79,
    F5 = 71,
    Left = 113,
    Delete = 119
};

class XKeyboardTest : public testing::Test {
protected:
    ~XKeyboardTest() noexcept override = default;

    /// Changes something of the keyboard by a command, and lets the keyboard hear of it.
    void Change(const std::string& command) {
        server.Run(command);
        connection.Synchronize();
        while (const MXEvent event = queue.Take()) keyboard.Process(*event);
    }

    MTestVariable locale{"LC_ALL", "C.UTF-8"};
    MTestXServer server;
    MXConnection connection{server.GetName()};
    MXEventQueue queue{connection};
    MXKeyboard keyboard{connection};
};

}  // namespace

TEST_F(XKeyboardTest, KeysHaveTheNumbersOfTheirLatinLettersInEveryLayout) {
    struct Case {
        const char* layouts;
        std::vector<xcb_keycode_t> keys;
        std::vector<int32_t> numbers;
    };
    const Case cases[] = {
        {"us", {Q, A, One, Semicolon, Minus}, {'Q', 'A', '1', 186, 189}},
        {"us", {Escape, Tab, Enter, Keypad7, F5, Left, Delete}, {27, 9, 13, 36, 116, 37, 46}},
        {"fr", {Q, A, One}, {'A', 'Q', '1'}},
        {"ru,us", {Q, A, One}, {'Q', 'A', '1'}},
    };
    for (const Case& one : cases) {
        Change(std::string("setxkbmap -layout ") + one.layouts);
        for (size_t i = 0; i < one.keys.size(); ++i)
            EXPECT_EQ(keyboard.GetVirtualKey(one.keys[i]), one.numbers[i]) << one.layouts << i;
    }
    Change("setxkbmap -layout us; xdotool key Num_Lock");
    EXPECT_EQ(keyboard.GetVirtualKey(Keypad7), 103);
}

TEST_F(XKeyboardTest, KeysTypeByLayoutModifiersAndSequences) {
    struct Case {
        const char* layout;
        const char* held;  ///< a key, or none
        std::vector<xcb_keycode_t> keys;
        const char* typed;
    };
    const Case cases[] = {
        {"us", "", {A, Enter, Tab, Escape}, "a\r\t\x1B"},
        {"us", "", {Delete, Left, F5}, ""},
        {"us", "shift", {A, One}, "A!"},
        {"us", "ctrl", {A}, "\x01"},
        {"us", "alt", {A}, ""},
        {"de", "ISO_Level3_Shift", {Q, E}, "@\u20AC"},
        // An accent waits for its letter, or is given up with what does not take it.
        {"de", "", {Equal, E, Equal, Q, A}, "\u00E9a"},
        {"ru", "", {A}, "\u0444"},
    };
    for (const Case& one : cases) {
        Change(std::string("setxkbmap -layout ") + one.layout);
        if (*one.held) Change(std::string("xdotool keydown ") + one.held);
        std::string typed;
        for (const xcb_keycode_t key : one.keys) typed += Text(keyboard.TypeKey(key));
        EXPECT_EQ(typed, one.typed) << one.layout << one.held;
        if (*one.held) Change(std::string("xdotool keyup ") + one.held);
    }
}
