#include "tests/support/MScratch.h"
#include "tests/ui/text/TextFixture.h"
#include "ui/text/MSystemFonts.h"

#include <string>

namespace {

/// A machine with a few fonts, and files that are none.
class SystemFontsTest : public testing::Test {
protected:
    SystemFontsTest() {
        Install("b/regular.ttf", "liberation/LiberationSans-Regular.ttf");
        Install("a/bold.TTF", "liberation/LiberationSans-Bold.ttf");
        Install("a/italic.otf", "liberation/LiberationSans-Italic.ttf");
        Install("mono.ttf", "dejavu/DejaVuSansMono-Bold.ttf");
        Install("hidden.dat", "liberation/LiberationSerif-Regular.ttf");
        std::string cut = MReadTestFile(SystemFont("liberation/LiberationMono-Regular.ttf"));
        scratch.WriteFile("fonts/cut.ttf", cut.substr(0, 5000));
        cut.replace(cut.find("name"), 4, "nbme");
        scratch.WriteFile("fonts/nameless.ttf", cut);
        scratch.WriteFile("fonts/empty.otf", "");
        scratch.WriteFile("fonts/text.ttf", "no font");
        folders.Add(scratch.Join("missing"));
        folders.Add(scratch.Join("fonts"));
        folders.Add("");
    }
    ~SystemFontsTest() noexcept override = default;

    void Install(const MString& name, const char* font) {
        scratch.WriteFile("fonts/" + name, MReadTestFile(SystemFont(font)));
    }
    /// Family, flags and path below the scratch folder, as a run of its own finds it.
    std::string Find(const char* name, bool isBold, bool isItalic, bool isRequired = true) {
        MSystemFonts fonts(folders, cachePath);
        return Describe(fonts.GetDescriptor(name, isBold, isItalic, isRequired));
    }
    std::string Describe(const MFontDescriptor& font) const {
        return Text(font.GetFamily()) + "|" + std::to_string(font.GetFlags()) + "|" +
               Text(MFile::GetRelativePath(font.GetPath(), scratch.GetPath()));
    }

    MScratch scratch;
    MList<MString> folders;
    MString cachePath = scratch.Join("user/SystemFonts.cache");
};

}  // namespace

TEST_F(SystemFontsTest, GoodFontsAreFoundAmongBrokenOnes) {
    MSystemFonts fonts(folders, cachePath);
    std::string list;
    for (const MFontDescriptor& font : fonts.GetFonts()) list += Describe(font) + "\n";
    EXPECT_EQ(list, "DejaVu Sans Mono|1|fonts/mono.ttf\n"
                    "Liberation Sans|0|fonts/b/regular.ttf\n"
                    "Liberation Sans|2|fonts/a/italic.otf\n"
                    "Liberation Sans|1|fonts/a/bold.TTF\n");
}

TEST_F(SystemFontsTest, ARequestIsAnsweredByFamilyAndStyles) {
    EXPECT_EQ(Find("Liberation Sans", false, false), "Liberation Sans|0|fonts/b/regular.ttf");
    EXPECT_EQ(Find("LIBERATION sans", true, false), "Liberation Sans|1|fonts/a/bold.TTF");
    EXPECT_EQ(Find("Liberation Sans", false, true), "Liberation Sans|2|fonts/a/italic.otf");
    EXPECT_EQ(FailureOf([&] { Find("Liberation", false, false); }),
              "0: Font Liberation was not found in the system.");
    EXPECT_EQ(FailureOf([&] { Find("Liberation Sans", true, true); }),
              "0: Font Liberation Sans was not found in the system with correct styles.");
    EXPECT_EQ(Find("DejaVu Sans Mono", false, false, false), "DejaVu Sans Mono|1|fonts/mono.ttf");
}

TEST_F(SystemFontsTest, AnAnswerIsRememberedWithoutASearch) {
    MFile::CreatePath(scratch.Join("user"));
    Find("Liberation Sans", true, false);
    Find("DejaVu Sans Mono", false, false, false);
    const std::string cache = scratch.ReadFile("user/SystemFonts.cache");
    EXPECT_NE(cache.find("<MSystemFontCache DejaVuSansMono00=\""), std::string::npos) << cache;
    EXPECT_NE(cache.find(" LiberationSansB0=\"" + Text(scratch.Join("fonts/a/bold.TTF")) + "\""),
              std::string::npos);
    EXPECT_NE(cache.find("utf-8"), std::string::npos);

    MFile::DeleteTree(scratch.Join("fonts"));
    EXPECT_EQ(Find("liberation sans", true, false), "liberation sans|1|fonts/a/bold.TTF");
    EXPECT_EQ(Find("DejaVu Sans Mono", false, false), "DejaVu Sans Mono|0|fonts/mono.ttf");
    EXPECT_EQ(FailureOf([&] { Find("Liberation Sans", false, false); }),
              "0: Font Liberation Sans was not found in the system.");
    EXPECT_EQ(scratch.ReadFile("user/SystemFonts.cache"), cache);
    MFont font;
    EXPECT_EQ(FailureOf([&] { font.LoadFromFile(scratch.Join("fonts/a/bold.TTF")); }).substr(0, 5), "101: ");
}

TEST_F(SystemFontsTest, ACacheThatCannotBeReadOrWrittenIsNoFailure) {
    // The folder of the cache is missing, and then the cache itself is one.
    EXPECT_EQ(Find("Liberation Sans", false, false), "Liberation Sans|0|fonts/b/regular.ttf");
    EXPECT_FALSE(MFile::Exists(cachePath));
    MFile::CreatePath(cachePath);
    EXPECT_EQ(Find("Liberation Sans", false, false), "Liberation Sans|0|fonts/b/regular.ttf");
    MFile::RemoveDirectory(cachePath);
    scratch.WriteFile("user/SystemFonts.cache", "<MSystemFontCache LiberationSans00=\"/old.ttf");
    EXPECT_EQ(Find("Liberation Sans", false, false), "Liberation Sans|0|fonts/b/regular.ttf");
    MFile::DeleteTree(scratch.Join("fonts"));
    EXPECT_EQ(Find("Liberation Sans", false, false), "Liberation Sans|0|fonts/b/regular.ttf");
}

TEST_F(SystemFontsTest, FoldersAreSearchedOnceUnlessAskedTo) {
    MFile::CreatePath(scratch.Join("user"));
    MSystemFonts fonts(folders, cachePath);
    EXPECT_EQ(fonts.GetFonts().GetCount(), 4);
    Install("serif.ttf", "liberation/LiberationSerif-Regular.ttf");
    EXPECT_EQ(fonts.GetFonts().GetCount(), 4);
    (void)fonts.GetDescriptor("Liberation Sans", false, false, true);
    EXPECT_TRUE(MFile::Exists(cachePath));
    fonts.ReScan();
    EXPECT_FALSE(MFile::Exists(cachePath));
    EXPECT_EQ(fonts.GetFonts().GetCount(), 5);
}

TEST(MSystemFontCacheTest, AKeyIsANameThatFamiliesDoNotShareWithoutNeed) {
    EXPECT_EQ(Text(MSystemFontCache::GetKey("A<b c>&\"'/=!? 9-_", true, false)), "Abc9-_B0");
    EXPECT_EQ(Text(MSystemFontCache::GetKey(MString::Copy(u"\u6E38 \u30B4"), false, true)), "\u6E38\u30B40I");
}

TEST(MFontDescriptorTest, TheOrderIsFamilyThenBoldThenItalic) {
    const MFontDescriptor sorted[] = {{"alpha", "", true, true},   {"Beta", "1", false, false},
                                      {"beta", "2", false, false}, {"beta", "", false, true},
                                      {"BETA", "", true, false},   {"beta", "", true, true},
                                      {"beta 2", "", false, false}};
    for (const MFontDescriptor& left : sorted)
        for (const MFontDescriptor& right : sorted)
            EXPECT_EQ(MFontDescriptor::IsBefore(left, right), &left < &right)
                << Text(left.GetFamily()) << " " << Text(right.GetFamily());
}
