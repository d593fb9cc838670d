#include "tests/end_to_end/ExampleProductFixture.h"
#include "tests/support/MTreeSnapshot.h"

class ExampleRemovalTest : public ExampleProductTest {
protected:
    ~ExampleRemovalTest() noexcept override = default;

    [[nodiscard]] MTreeSnapshot Look() const {
        MList<MString> roots;
        for (const MString& root : {InHome(""), GetUserData(), GetMenu()}) roots.Add(root);
        return MTreeSnapshot(roots, ToList({"InstallerLog.txt", "DefaultPaths.xml", "!temp"}));
    }
    /// The folders that come with the first program of a user and that all programs share.
    [[nodiscard]] std::string GetSharedFolders() const {
        if (MPlatform::GetName() == "windows") return "";
        std::string lines;
        MString path = InHome("");
        for (const char* name : {".local", "share", "Corvanth", "registry", "machine", "software.key",
                                 "microsoft.key", "windows.key", "currentversion.key", "uninstall.key"}) {
            path = MFile::Join(path, name);
            lines += "new: " + Text(path) + "\n";
        }
        return lines + "new: " + Text(InHome(".local/share/applications")) + "\n";
    }
};

TEST_F(ExampleRemovalTest, LeavesWhatTheMusicianMayHaveChangedAndTheProgramItself) {
    PackExample();
    for (const char* configuration : {"configuration=small", "configuration=full"}) {
        const MTreeSnapshot before = Look();
        InstallExample(configuration);
        const MProgramResult removal = RemoveExample();
        EXPECT_EQ(removal.exitCode, 0);
        EXPECT_EQ(removal.output + removal.errors, "Removing files...\nDone.\n");

        ExpectInstalled(InProduct("presets/1.0"), MFile::Join(GetUserData(), "Presets"));
        MFile::DeleteTree(MFile::Join(GetUserData(), "Presets"));
        if (MString(configuration).Contains("full")) {
            ExpectInstalled(InProduct("plugins/zynaddsubfx-data/usr/share/zynaddsubfx/banks"),
                            MFile::Join(GetUserData(), "Banks"));
            MFile::DeleteTree(MFile::Join(GetUserData(), "Banks"));
        }
        MFile::RemoveDirectory(GetUserData());
        EXPECT_EQ(before.DescribeChanges(Look()),
                  GetSharedFolders() + "new: " + Text(InHome("lv2")) + "\nnew: " + Text(InHome("to")) +
                      "\nnew: " + Text(InHome(MString("to/setup.") + MPlatform::ExecutableExtension())) +
                      "\n");
        for (const char* name : {"lv2", "to", ".local"})
            if (IsInHome(name)) MFile::DeleteTree(InHome(name));
    }
}
