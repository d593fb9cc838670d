#include "tests/ui/widgets/files/FileSelectorFixture.h"
#include "ui/widgets/files/MNamePatterns.h"

namespace {

TEST(NamePatternsTest, MatchNames) {
    const struct {
        const char* patterns;
        const char* name;
        bool fits;
    } cases[] = {
        {"", "any", true},
        {"*.*", "any", true},
        {"*.wav", "a.WAV", true},
        {"*.wav", "wav", false},
        {"*.txt; *.w?v", "b.wav", true},
        {"a*b*c", "axxbxxbc", true},
        {"a*b*c", "axxbxxb", false},
        {"?", "", false},
        {"**", "", true},
    };
    for (const auto& test : cases)
        EXPECT_EQ(MNamePatterns(test.patterns).Match(test.name), test.fits)
            << test.patterns << " " << test.name;
    std::string stars;
    for (int32_t i = 0; i < 200; ++i) stars += "*a";
    EXPECT_FALSE(MNamePatterns(MString::Copy((stars + "b").c_str()))
                     .Match(MString::Copy(std::string(2000, 'a').c_str())));
}

TEST_F(FileSelectorTest, GoesThroughFoldersInBothOfItsParts) {
    EXPECT_EQ(GetFiles(), "a b one.txt Two.WAV \xC3\xBC"
                          "ber.txt ");
    selector.SetPatterns("*.txt");
    WaitForFolders();
    EXPECT_EQ(GetFiles(), "a b one.txt \xC3\xBC"
                          "ber.txt ");
    tree.SetFocus();
    for (const int32_t key : {MKeyHome, MKeyDown, MKeyRight}) {
        user.PressKey(key);
        WaitForFolders();
    }
    EXPECT_EQ(GetFolders(), "a* inner b ");
    user.PressKey(MKeyLeft);
    user.PressKey(MKeyLeft);
    WaitForFolders();
    EXPECT_EQ(GetFolders(), "a b ");
    // By the list, and back.
    Choose("a");
    user.PressKey(MKeyEnter);
    WaitForFolders();
    Choose("inner");
    user.PressKey(MKeyEnter);
    WaitForFolders();
    EXPECT_EQ(GetFiles(), "deep.txt ");
    EXPECT_EQ(GetFolders(), "a inner* b ");
    Choose("deep.txt");
    user.PressKey(MKeyEnter);
    EXPECT_EQ(Take(), "accepted:deep.txt");
    for (int32_t i = 0; i < 3; ++i) {
        user.PressKey(MKeyBackspace);
        WaitForFolders();
    }
    EXPECT_TRUE(selector.GetPath().IsExactly(scratch.GetPath()));
    // By the tree.
    tree.SetFocus();
    user.PressKey(MKeyEnd);
    WaitForFolders();
    EXPECT_EQ(GetFolders(), "a inner b* ");
    EXPECT_TRUE(selector.GetPath().IsExactly(scratch.Join("b")));
    // Nowhere.
    Go("missing");
    EXPECT_EQ(Take(), "refused:missing");
    EXPECT_TRUE(selector.GetPath().IsExactly(scratch.Join("b")));
    Go("a/./missing/../inner");
    EXPECT_TRUE(selector.GetPath().IsExactly(scratch.Join("a/inner")));
    EXPECT_EQ(GetFolders(), "a inner* b ");
}

TEST_F(FileSelectorTest, CreatesRenamesAndDeletes) {
    const auto choose = [&](int32_t steps) {
        user.PressKey(MKeyMenu);
        for (int32_t i = 0; i < steps; ++i) user.PressKey(MKeyDown);
        user.PressKey(MKeyEnter);
        WaitForFolders();
    };
    Choose("one.txt");
    answer = "new folder";
    choose(1);
    EXPECT_EQ(asked, "Enter new directory name: ");
    EXPECT_EQ(GetFiles(), "a b new folder one.txt Two.WAV \xC3\xBC"
                          "ber.txt ");
    EXPECT_EQ(GetFolders(), "a b new folder ");
    answer = "three.txt";
    choose(2);
    EXPECT_EQ(asked, "Rename file \"one.txt\" to: one.txt");
    EXPECT_EQ(scratch.ReadFile("three.txt"), "12345");
    // A name that leads elsewhere is none, and one that is there stays.
    Choose("three.txt");
    answer = "../out.txt";
    user.PressKey(MKeyF1 + 1);
    answer = "Two.WAV";
    user.PressKey(MKeyF1 + 1);
    EXPECT_NE(shown.find("Could not rename file"), std::string::npos);
    EXPECT_EQ(scratch.ReadFile("Two.WAV"), "1");
    // The folder that is shown makes way for the one above.
    Go("a");
    tree.SetFocus();
    user.PressKey(MKeyDelete);
    WaitUntil([&] { return !MFile::Exists(scratch.Join("a")); });
    WaitForFolders();
    EXPECT_EQ(GetFiles(), "b new folder three.txt Two.WAV \xC3\xBC"
                          "ber.txt ");
    EXPECT_EQ(GetFolders(), "b new folder ");
    EXPECT_TRUE(MFile::Exists(scratch.GetPath()));
}

TEST_F(FileSelectorTest, KeepsTheOrderOfAFolderInIt) {
    EXPECT_FALSE(MFile::Exists(scratch.Join(".dirsettings")));
    list.SetOrder(MFolderSettings::Order::Size);
    WaitUntil([&] { return !list.IsReading() && MFile::Exists(scratch.Join(".dirsettings")); });
    EXPECT_EQ(GetFiles(), "a b one.txt \xC3\xBC"
                          "ber.txt Two.WAV ");
    Go("b");
    EXPECT_EQ(list.GetOrder(), MFolderSettings::Order::Name);
    Go("");
    EXPECT_EQ(GetFiles(), "a b one.txt \xC3\xBC"
                          "ber.txt Two.WAV ");
    // What is no such document counts as none.
    for (const std::string& content :
         {std::string("<x"), std::string("<d order=\"up\"/>"), std::string(9999, '<')}) {
        scratch.WriteFile(".dirsettings", content);
        Go("");
        EXPECT_EQ(list.GetOrder(), MFolderSettings::Order::Name);
        EXPECT_EQ(list.GetItemCount(), 5);
    }
}

}  // namespace
