#include "tests/support/MScratch.h"
#include "tests/support/posix/MTestVariable.h"
#include "tests/ui/text/TextFixture.h"
#include "ui/text/MSystemFontFolders.h"
#include "ui/text/MSystemFonts.h"

#include <string>
#include <sys/stat.h>

TEST(SystemFontFoldersTest, FoldersFollowTheBaseDirectoriesAndFontsOfTheMakerAreFound) {
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    const std::string home = Text(scratch.GetPath());
    const MTestVariable homeVariable("HOME", home);
    const MTestVariable dataVariable("XDG_DATA_HOME", "");
    {
        const MTestVariable directories("XDG_DATA_DIRS", "/opt/share/:relative::/usr/share");
        std::string list;
        for (const MString& folder : MGetSystemFontFolders()) list += Text(folder) + "\n";
        EXPECT_EQ(list, home + "/fonts\n" + home + "/.local/share/fonts\n" + home + "/.fonts\n" +
                            "/opt/share/fonts\n/usr/share/fonts\n/usr/local/share/fonts\n");
    }

    scratch.WriteFile("data/Fonts/own.ttf", MReadTestFile(SystemFont("liberation/LiberationSans-Bold.ttf")));
    const MFontDescriptor found = MFont::GetSystemFontDescriptor("dejavu sans mono", true, false, true);
    EXPECT_EQ(Text(MFile::GetFileName(found.GetPath())), "DejaVuSansMono-Bold.ttf");
    EXPECT_TRUE(MFile::Exists(scratch.Join("userdata/SystemFonts.cache")));

    // Nobody ever writes into a pipe among the fonts.
    ASSERT_EQ(mkfifo((home + "/data/Fonts/pipe.ttf").c_str(), 0600), 0);
    MFont::ReScanSystemFonts();
    EXPECT_FALSE(MFile::Exists(scratch.Join("userdata/SystemFonts.cache")));
    scratch.WriteFile("pipe.cache", "<MSystemFontCache XB0=\"" + home + "/data/Fonts/pipe.ttf\"/>");
    EXPECT_THROW((void)MSystemFonts({}, scratch.Join("pipe.cache")).GetDescriptor("X", true, false, true),
                 MException);
    int32_t own = 0;
    for (const MFontDescriptor& font : MSystemFonts::GetInstance().GetFonts())
        own += font.GetPath().StartsWith(scratch.GetPath());
    EXPECT_EQ(own, 1);
}
