#include "tests/support/MScratch.h"
#include "tests/ui/text/TextFixture.h"
#include "ui/text/MSystemFonts.h"

#include <string>
#include <tuple>

namespace {

/// A machine with a few fonts, and files that are none.
class SystemFontsTest : public testing::Test {
protected:
    SystemFontsTest() {
        for (const MString font :
             {"liberation/LiberationSans-Regular", "liberation/LiberationSans-Italic",
              "liberation/LiberationSans-BoldItalic", "dejavu/DejaVuSansMono-Bold", "dejavu/DejaVuSans",
              "dejavu/DejaVuSans-Bold", "dejavu/DejaVuSans-BoldOblique"})
            Install(font, MFile::GetFileName(font) + ".ttf");
        Install("liberation/LiberationSans-Bold", "sub/bold.OTF");
        Install("liberation/LiberationSerif-Regular", "hidden.dat");
        scratch.WriteFile("fonts/cut.ttf", scratch.ReadFile("fonts/sub/bold.OTF").substr(0, 5000));
        scratch.WriteFile("fonts/empty.otf", "");
        MFile::CreatePath(scratch.Join("user"));
        for (const MString& folder : {scratch.Join("missing"), scratch.Join("fonts"), MString()})
            folders.Add(folder);
    }
    ~SystemFontsTest() noexcept override = default;

    void Install(const MString& font, const MString& name) {
        scratch.WriteFile("fonts/" + name, MReadTestFile(SystemFont(font + ".ttf")));
    }
    /// The file that answers, as a run of its own finds it, or the failure.
    std::string Find(const char* name, bool isBold = false, bool isItalic = false, bool isRequired = true) {
        try {
            MSystemFonts fonts(folders, cachePath);
            const MFontDescriptor found = fonts.GetDescriptor(name, isBold, isItalic, isRequired);
            return Text(MFile::GetBaseName(found.GetPath()));
        } catch (const MException& failure) {
            return Text(failure.GetMessage());
        }
    }

    MScratch scratch;
    MList<MString> folders;
    MString cachePath = scratch.Join("user/SystemFonts.cache");
};

}  // namespace

TEST_F(SystemFontsTest, GoodFontsAreFoundAmongBrokenOnes) {
    std::string list;
    MSystemFonts fonts(folders, cachePath);
    for (const MFontDescriptor& font : fonts.GetFonts())
        list += Text(font.GetFamily()) + "|" + std::to_string(font.GetFlags()) + "\n";
    EXPECT_EQ(list,
              "DejaVu Sans|1\nDejaVu Sans Bold Oblique|3\nDejaVu Sans Book|0\nDejaVu Sans Mono|1\n"
              "Liberation Sans|0\nLiberation Sans|2\nLiberation Sans|1\nLiberation Sans Bold Italic|3\n");
    // The folders are searched once, unless asked to do it again.
    Install("liberation/LiberationSerif-Regular", "late.ttf");
    (void)fonts.GetDescriptor("Liberation Sans", false, false, true);
    EXPECT_EQ(fonts.GetFonts().GetCount(), 8);
    EXPECT_TRUE(MFile::Exists(cachePath));
    fonts.ReScan();
    EXPECT_FALSE(MFile::Exists(cachePath));
    EXPECT_EQ(fonts.GetFonts().GetCount(), 9);
}

TEST_F(SystemFontsTest, ARequestIsAnsweredByFamilyAndStyles) {
    const char* const noStyle = "Font DejaVu Sans Mono was not found in the system with correct styles.";
    const std::tuple<const char*, bool, bool, bool, const char*> cases[] = {
        {"LIBERATION sans", false, false, true, "LiberationSans-Regular"},
        {"Liberation Sans", true, false, true, "bold"},
        {"Liberation Sans", false, true, true, "LiberationSans-Italic"},
        {"Liberation Sans", true, true, true, "LiberationSans-BoldItalic"},
        {"DejaVu Sans", false, false, true, "DejaVuSans"},
        {"DejaVu Sans", true, true, true, "DejaVuSans-BoldOblique"},
        {"DejaVu Sans", false, true, false, "DejaVuSans"},
        {"DejaVu Sans Book", false, false, true, "DejaVuSans"},
        {"DejaVu Sans Mono", false, false, true, noStyle},
        {"DejaVu Sans Mono", false, false, false, "DejaVuSansMono-Bold"},
        {"Liberation", false, false, false, "Font Liberation was not found in the system."},
        {"DejaVu San", false, false, false, "Font DejaVu San was not found in the system."},
        {"Arial", true, true, true, "LiberationSans-BoldItalic"},
        {"tahoma", false, false, true, "DejaVuSans"}};
    for (int32_t run = 1; run <= 2; ++run)
        for (const auto& [name, isBold, isItalic, isRequired, answer] : cases) {
            if (isRequired) MFile::DeleteTree(scratch.Join("user"));
            EXPECT_EQ(Find(name, isBold, isItalic, isRequired), answer) << name << isBold << isItalic;
            MFile::CreatePath(scratch.Join("user"));
        }
    MFile::DeleteTree(scratch.Join("user"));
    MFile::Delete(scratch.Join("fonts/LiberationSans-Italic.ttf"));
    EXPECT_EQ(Find("Arial", false, true), "Font Arial was not found in the system with correct styles.");
    for (const char* name : {"LiberationSans-Regular.ttf", "LiberationSans-BoldItalic.ttf", "sub/bold.OTF"})
        MFile::Delete(scratch.Join(MString("fonts/") + name));
    EXPECT_EQ(Find("Arial", true), "DejaVuSans-Bold");
}

TEST_F(SystemFontsTest, AnAnswerIsRememberedWithoutASearchUnlessItIsWrong) {
    EXPECT_EQ(Find("Liberation Sans", true), "bold");
    EXPECT_EQ(scratch.ReadFile("user/SystemFonts.cache"),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<MSystemFontCache LiberationSansB0=\"" +
                  Text(scratch.Join("fonts/sub/bold.OTF")) + "\"/>\n");
    const auto entry = [&](const char* key, const char* file) {
        return " " + std::string(key) + "=\"" + Text(scratch.Join("fonts") + "/" + file) + "\"";
    };
    const std::string entries = entry("DejaVuSans00", "DejaVuSans-Bold.ttf") +
                                entry("Arial00", "DejaVuSans.ttf") + entry("LiberationSansB0", "gone.ttf") +
                                entry("LiberationSans00", "LiberationSans-Italic.ttf");
    scratch.WriteFile("user/SystemFonts.cache", "<MSystemFontCache" + entries + "/>");
    EXPECT_EQ(Find("DejaVu Sans", false, false, false), "DejaVuSans-Bold");
    EXPECT_EQ(Find("DejaVu Sans"), "DejaVuSans");
    EXPECT_EQ(Find("Liberation Sans"), "LiberationSans-Regular");
    EXPECT_EQ(Find("arial"), "DejaVuSans");
    EXPECT_EQ(Find("liberation sans", true), "gone");
    scratch.WriteFile("user/SystemFonts.cache", "<MSystemFontCache" + entries);
    EXPECT_EQ(Find("Arial"), "LiberationSans-Regular");
    MFile::Delete(cachePath);
    MFile::CreatePath(cachePath);
    EXPECT_EQ(Find("Liberation Sans", true), "bold");
}

TEST(MSystemFontCacheTest, AKeyIsANameThatFamiliesDoNotShareWithoutNeed) {
    EXPECT_EQ(Text(MSystemFontCache::GetKey("A<b c>&\"'/=!? 9-_", true, false)), "Abc9-_B0");
    EXPECT_EQ(Text(MSystemFontCache::GetKey(MString::Copy(u"\u6E38 \u30B4"), false, true)), "\u6E38\u30B40I");
}
