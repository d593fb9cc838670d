#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/ui/window/x11/MTestXServer.h"
#include "ui/control/windows/MWindowSystem.h"
#include "ui/window/x11/selections/MXClipboard.h"

#include <algorithm>
#include <atomic>
#include <semaphore>
#include <thread>

using namespace std::string_literals;

namespace {

MBuffer ToBuffer(const std::string& bytes) {
    MBuffer buffer(static_cast<int32_t>(bytes.size()));
    std::ranges::copy(bytes, static_cast<char*>(buffer.EditBlock()));
    return buffer;
}

std::string ToBytes(const MBuffer& buffer) {
    return {static_cast<const char*>(buffer.GetBlock()), static_cast<size_t>(buffer.GetSize())};
}

/// Text with characters of all lengths, of at least so many bytes, that has no period.
std::string LongText(size_t size) {
    std::string text;
    for (uint32_t i = 0; text.size() < size; ++i) text += std::to_string(i * i) + "\u00E4\u20AC\U0001F3B9\n";
    return text;
}

class XClipboardTest : public testing::Test {
protected:
    ~XClipboardTest() noexcept override = default;

    /// Runs a command while the clipboard answers it.
    std::string RunServed(const std::string& command) {
        std::string output;
        std::atomic<bool> isDone = false;
        std::thread other([&] {
            output = server.Run(command);
            isDone = true;
            queue.Wake();
        });
        while (!isDone) {
            while (const MXEvent event = queue.Take()) clipboard.Process(*event);
            queue.Wait(MXEventQueue::Forever);
        }
        other.join();
        return output;
    }
    /// Has xclip offer something until somebody else does.
    void Offer(const std::string& bytes, const std::string& options = "") {
        scratch.WriteFile("offered", bytes);
        const xcb_window_t before = GetOwner();
        server.Run("xclip -selection clipboard " + options + " -i " + Text(scratch.Join("offered")) +
                   " >/dev/null 2>&1");
        // It goes to the background before the server knows of it.
        while (GetOwner() == before) std::this_thread::yield();
        while (const MXEvent event = queue.Take()) clipboard.Process(*event);
    }
    xcb_window_t GetOwner() {
        const auto request = xcb_get_selection_owner(connection, connection[MXAtom::Clipboard]);
        return MXReply<xcb_get_selection_owner_reply_t>(
                   xcb_get_selection_owner_reply(connection, request, nullptr))
            ->owner;
    }
    std::string GetText() { return ToBytes(clipboard.Get(MWindowSystem::TextFormat, XCB_CURRENT_TIME)); }

    MScratch scratch;
    MTestXServer server;
    MXConnection connection{server.GetName()};
    MXEventQueue queue{connection};
    MXClipboard clipboard{connection, queue};
};

}  // namespace

TEST_F(XClipboardTest, TextGoesOutShortAndLong) {
    for (const std::string& text : {std::string("\U0001F3B9 short"), LongText(1 << 20), std::string()}) {
        clipboard.Set(MWindowSystem::TextFormat, ToBuffer(text), XCB_CURRENT_TIME);
        EXPECT_EQ(GetText(), text);
        for (const char* selection : {"clipboard", "primary"})
            EXPECT_TRUE(RunServed(std::string("xclip -o -t UTF8_STRING -selection ") + selection) == text);
    }
    clipboard.Set(MWindowSystem::TextFormat, ToBuffer("\u00E4\u20AC"), XCB_CURRENT_TIME);
    EXPECT_EQ(RunServed("xclip -o -selection clipboard -t STRING"), "\xE4?");
    EXPECT_EQ(RunServed("xclip -o -selection clipboard -t TARGETS"),
              "TARGETS\nTIMESTAMP\nMULTIPLE\nUTF8_STRING\ntext/plain;charset=utf-8\nSTRING\n");
}

TEST_F(XClipboardTest, TextComesInShortAndLong) {
    for (const std::string& text : {std::string("\U0001F3B9 short"), LongText(1 << 20)}) {
        Offer(text);
        EXPECT_TRUE(clipboard.Has(MWindowSystem::TextFormat, XCB_CURRENT_TIME));
        EXPECT_TRUE(GetText() == text);
    }
    Offer("\xE4", "-t STRING");
    EXPECT_EQ(GetText(), "\u00E4");
}

TEST_F(XClipboardTest, FormatsOfOnesOwnKeepTheirBytes) {
    const std::string bytes("\0\xFF<item/>\0"s);
    clipboard.Set("Corvanth item", ToBuffer(bytes), XCB_CURRENT_TIME);
    EXPECT_FALSE(clipboard.Has(MWindowSystem::TextFormat, XCB_CURRENT_TIME));
    EXPECT_EQ(RunServed("xclip -o -selection clipboard -t 'Corvanth item'"), bytes);
    Offer(bytes, "-t 'Corvanth item'");
    EXPECT_EQ(ToBytes(clipboard.Get("Corvanth item", XCB_CURRENT_TIME)), bytes);
    // xclip gives its bytes for whatever it is asked for.
    EXPECT_EQ(FailureOf([&] { (void)clipboard.Get("Another item", XCB_CURRENT_TIME); }),
              "0: No data present in clipboard. ");
}

TEST_F(XClipboardTest, OwnersThatAreGoneOrEndInTheMiddleAreNotWaitedFor) {
    const MXConnection others(server.GetName());
    std::atomic<bool> hasOffered = false;
    std::binary_semaphore isForgotten(0);
    EXPECT_FALSE(clipboard.Has(MWindowSystem::TextFormat, XCB_CURRENT_TIME));
    EXPECT_EQ(FailureOf([&] { GetText(); }), "0: No data present in clipboard. ");
    // One that tells what it has, announces the pieces of it, and is not heard of again.
    std::thread other([&] {
        MXEventQueue othersQueue(others);
        MXClipboard othersClipboard(others, othersQueue);
        othersClipboard.Set(MWindowSystem::TextFormat, ToBuffer(LongText(1 << 20)), XCB_CURRENT_TIME);
        hasOffered = true;
        for (int requests = 0; requests < 2;) {
            othersQueue.Wait(MXEventQueue::Forever);
            while (const MXEvent event = othersQueue.Take())
                if (MXKindOf(*event) == XCB_SELECTION_REQUEST && ++requests <= 2)
                    othersClipboard.Process(*event);
        }
        isForgotten.acquire();
    });
    while (!hasOffered) std::this_thread::yield();
    EXPECT_EQ(FailureOf([&] { GetText(); }), "0: Error accessing clipboard. ");
    isForgotten.release();
    other.join();
}
