#include "foundation/files/MSpecialFolders.h"
#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/support/posix/MTestVariable.h"

#include <gtest/gtest.h>

namespace {

class MSpecialFoldersTest : public testing::Test {
protected:
    ~MSpecialFoldersTest() noexcept override = default;

    static std::string Path(MSpecialFolder folder) { return Text(MGetPlatformFolders().GetPath(folder)); }

    MScratch scratch;
    std::string home = Text(scratch.GetPath());
    MTestVariable homeVariable{"HOME", home};
    MTestVariable configVariable{"XDG_CONFIG_HOME", ""};
    MTestVariable dataVariable{"XDG_DATA_HOME", "relative/is/invalid"};
};

TEST_F(MSpecialFoldersTest, UserDirectoriesAreTakenFromTheirFile) {
    scratch.WriteFile(".config/user-dirs.dirs", "# written by a program\n"
                                                "XDG_DESKTOP_DIR=\"$HOME/Pracovn\xC3\xAD plocha\"\n"
                                                "  XDG_DOCUMENTS_DIR=\"/srv/docs\\\"x/\"\n"
                                                "XDG_MUSIC_DIR=\"relative\"\n"
                                                "XDG_VIDEOS_DIR=\n"
                                                "XDG_DOWNLOAD_DIR=\"$HOME/\"\n");
    EXPECT_EQ(Path(MSpecialFolderUserDesktop), home + "/Pracovn\xC3\xAD plocha");
    EXPECT_EQ(Path(MSpecialFolderDesktop), home + "/Pracovn\xC3\xAD plocha");
    EXPECT_EQ(Path(MSpecialFolderUserDocuments), "/srv/docs\"x");
    EXPECT_EQ(Path(MSpecialFolderMusic), home + "/Music");
    EXPECT_EQ(Path(MSpecialFolderVideo), home + "/Videos");
    EXPECT_EQ(Path(MSpecialFolderDownloads), home);
}

TEST_F(MSpecialFoldersTest, WithoutSettingsTheUsersFoldersLieInTheHome) {
    EXPECT_EQ(Path(MSpecialFolderUser), home);
    EXPECT_EQ(Path(MSpecialFolderUserData), home + "/.local/share/Corvanth");
    const MTestVariable data("XDG_DATA_HOME", home + "/data/");
    EXPECT_EQ(Path(MSpecialFolderUserStartMenu), home + "/data/applications");
    const MTestVariable present("TMPDIR", home + "/");
    EXPECT_EQ(Path(MSpecialFolderTemporary), home);
    const MTestVariable missing("TMPDIR", home + "/missing");
    EXPECT_EQ(Path(MSpecialFolderTemporary), "/tmp");
    for (int32_t folder = 0; folder < MSpecialFolderUserTemporary; ++folder)
        EXPECT_TRUE(MFile::IsAbsolute(MGetPlatformFolders().GetPath(folder))) << folder;
    EXPECT_EQ(Text(MGetPlatformFolders().GetPath(MSpecialFolderCount)), "");
}

}  // namespace
