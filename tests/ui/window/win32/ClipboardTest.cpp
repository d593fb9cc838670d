#include "tests/ui/window/win32/Win32WindowFixture.h"

#include <cstring>
namespace {

using ClipboardTest = Win32WindowTest;

MBuffer BufferOf(const std::string& bytes) {
    MBuffer buffer(static_cast<int32_t>(bytes.size()));
    if (!bytes.empty()) std::memcpy(buffer.EditBlock(), bytes.data(), bytes.size());
    return buffer;
}

std::string BytesOf(const MBuffer& buffer) {
    return {static_cast<const char*>(buffer.GetBlock()), static_cast<size_t>(buffer.GetSize())};
}

/// As another program would do it.
void PutNativeText(const std::wstring& text, size_t excess) {
    const HGLOBAL memory =
        GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + excess) * sizeof(wchar_t));
    std::memcpy(GlobalLock(memory), text.data(), text.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

std::wstring GetNativeText() {
    if (!OpenClipboard(nullptr)) return L"";
    const std::wstring text = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
    CloseClipboard();
    return text;
}

}  // namespace

TEST_F(ClipboardTest, TextsHaveTheSystemsFormOutside) {
    system.SetClipboard(MWindowSystem::TextFormat, BufferOf("a\nb\r\n\xF0\x9F\x98\x80\n"));
    EXPECT_EQ(GetNativeText(), L"a\r\nb\r\n\xD83D\xDE00\r\n");
    // The memory may be larger than the text.
    for (const size_t excess : {1, 100}) {
        PutNativeText(L"x\r\n\r\ny\rz\xD83D\xDE00\xD83D", excess);
        EXPECT_EQ(BytesOf(system.GetClipboard(MWindowSystem::TextFormat)),
                  "x\n\ny\rz\xF0\x9F\x98\x80\xEF\xBF\xBD");
    }
}

TEST_F(ClipboardTest, AnythingComesBackAsItWas) {
    std::string text;
    while (text.size() < 1 << 20) text += "line \xF0\x9F\x98\x80\xC3\xBC of many\n";
    const std::pair<const char*, std::string> cases[] = {{MWindowSystem::TextFormat, text},
                                                         {MWindowSystem::TextFormat, ""},
                                                         {"Corvanth item", std::string("a\0\n\xFF", 4)}};
    for (const auto& [format, bytes] : cases) {
        system.SetClipboard(format, BufferOf(bytes));
        EXPECT_TRUE(BytesOf(system.GetClipboard(format)) == bytes) << format;
    }
    EXPECT_FALSE(system.HasClipboard(MWindowSystem::TextFormat)) << "the last one replaces the others";
    EXPECT_EQ(FailureOf([&] { (void)system.GetClipboard(MWindowSystem::TextFormat); }),
              "0: No data present in clipboard. ");
}
