#include "foundation/files/MSpecialFolders.h"
#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/support/posix/MTestVariable.h"

TEST(MSpecialFoldersTest, TheUsersFoldersLieInTheHomeOrWhereTheirFileSays) {
    const MScratch scratch;
    const std::string home = Text(scratch.GetPath());
    const MTestVariable homeVariable("HOME", home);
    const MTestVariable configVariable("XDG_CONFIG_HOME", "");
    const MTestVariable dataVariable("XDG_DATA_HOME", "relative/is/invalid");
    const auto path = [](int32_t folder) { return Text(MGetPlatformFolders().GetPath(folder)); };
    EXPECT_EQ(path(MSpecialFolderUser), home);
    EXPECT_EQ(path(MSpecialFolderUserData), home + "/.local/share/Corvanth");
    EXPECT_EQ(path(MSpecialFolderUserDocuments), home + "/Documents");
    scratch.WriteFile(".config/user-dirs.dirs", "# written by a program\n"
                                                "XDG_DESKTOP_DIR=\"$HOME/Pracovn\xC3\xAD plocha\"\n"
                                                "  XDG_DOCUMENTS_DIR=\"/srv/docs\\\"x/\"\n"
                                                "XDG_MUSIC_DIR=\"relative\"\n"
                                                "XDG_VIDEOS_DIR=\n"
                                                "XDG_DOWNLOAD_DIR=\"$HOME/\"\n");
    EXPECT_EQ(path(MSpecialFolderUserDesktop), home + "/Pracovn\xC3\xAD plocha");
    EXPECT_EQ(path(MSpecialFolderDesktop), home + "/Pracovn\xC3\xAD plocha");
    EXPECT_EQ(path(MSpecialFolderUserDocuments), "/srv/docs\"x");
    EXPECT_EQ(path(MSpecialFolderMusic), home + "/Music");
    EXPECT_EQ(path(MSpecialFolderVideo), home + "/Videos");
    EXPECT_EQ(path(MSpecialFolderDownloads), home);

    const MTestVariable data("XDG_DATA_HOME", home + "/data/");
    EXPECT_EQ(path(MSpecialFolderUserStartMenu), home + "/data/applications");
    const MTestVariable present("TMPDIR", home + "/");
    EXPECT_EQ(path(MSpecialFolderTemporary), home);
    const MTestVariable missing("TMPDIR", home + "/missing");
    EXPECT_EQ(path(MSpecialFolderTemporary), "/tmp");
    const auto pathOf = [](MFolderOwner owner, int32_t folder) {
        return Text(MGetPlatformFolders().GetPathOf(owner, "/missing", folder));
    };
    EXPECT_EQ(pathOf(MFolderOwner::User, MSpecialFolderStartMenuPrograms), home + "/data/applications");
    EXPECT_EQ(pathOf(MFolderOwner::Everybody, MSpecialFolderStartMenu), "/usr/local/share/applications");
    EXPECT_EQ(pathOf(MFolderOwner::Everybody, MSpecialFolderData), "/var/lib/Corvanth");
    for (int32_t folder = 0; folder < MSpecialFolderUserTemporary; ++folder)
        EXPECT_TRUE(MFile::IsAbsolute(MGetPlatformFolders().GetPath(folder))) << folder;
    EXPECT_EQ(path(MSpecialFolderCount), "");
}
