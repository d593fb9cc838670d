#include "foundation/base/MGuard.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/files/MRegistryKey.h"
#include "tests/end_to_end/EndToEndFixture.h"
#include "tests/support/MKilledProgram.h"
#include "tests/support/MTestPresets.h"
#include "tests/support/MTreeSnapshot.h"

#include <map>

namespace {

/// The presets of a file by their folders and name, each as compact XML.
using Presets = std::map<std::string, std::string>;

/// None if the file is missing or damaged.
Presets ReadPresets(const MString& path) {
    Presets presets;
    try {
        const MTestPresetFile file(path);
        for (const auto& [name, preset] : file.GetAll()) presets[name] = MSaveXML(*preset);
    } catch (const MException&) {
        presets.clear();
    }
    return presets;
}

/// Text that fills more than one of the runtime library's buffers, and does not compress.
std::string MakeNoise(uint32_t state) {
    std::string noise(150000, '\0');
    for (char& digit : noise) digit = "0123456789ABCDEF"[(state = state * 214013 + 2531011) >> 28];
    return noise;
}

/// The presets that a version of the product brings.
std::string MakeShippedPresets(const std::string& version) {
    return "<Killedpresets><preset name=\"Init\" shape=\"" + version + "\"/><preset name=\"Only " + version +
           "\"/><Directory Name=\"Pads\"><preset name=\"Warm\" compressed=\"1\">" +
           MakeNoise(static_cast<uint32_t>(version[0])) +
           "</preset><Directory Name=\"Deep\"><preset name=\"Sea\"><Point x=\"" + version +
           "\"/></preset></Directory></Directory></Killedpresets>";
}

/// What a musician has made of those of version 1: "Mine" and "My Sea" are new, "Init" and "Warm" are
/// changed, "Only 1" is deleted.
std::string MakeUsersPresets() {
    return "<Killedpresets><preset name=\"Mine\" shape=\"7\"/><preset name=\"Init\" shape=\"mine\"/>"
           "<Directory Name=\"Pads\"><preset name=\"Warm\" compressed=\"1\">" +
           MakeNoise(7) +
           "</preset><Directory Name=\"Deep\"><preset name=\"Sea\"><Point x=\"1\"/></preset><preset name=\"My Sea\">"
           "<Point x=\"7\"/></preset></Directory></Directory></Killedpresets>";
}

}  // namespace

/// A product with presets is upgraded from version 1 to version 2, and killed on the way.
class KilledUpgradeTest : public EndToEndTest {
protected:
    KilledUpgradeTest() {
        folders.SetPath(MSpecialFolderData, userData);
        const MString first = PackVersion("1", "");
        second = PackVersion("2", "<files destination=\"{destination}\" required=\"1\">"
                                  "<file name=\"only-1.txt\" op=\"delete\"/></files>");
        const MProgramResult result = Start(first, Words());
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        for (const MString& path : presetFiles) WriteAsUser(path, MakeUsersPresets());
        WriteAsUser(InHome("to/shared/Sounds/Killedpresets.xmlbackup"), "<Killedpresets/>");
        WriteAsUser(InHome("to/shared/Sounds/settings.ini"), "changed");
        // Where the system knows such permissions, this folder takes no new file and gives none away.
        std::filesystem::permissions(Text(InHome("to/fixed")),
                                     std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
        // Both installers have the same program, which is left as it is if it stands there already.
        WriteAsUser(GetRemover("to"), "the program of version 1");
        WriteAsUser(MFile::Join(oldFolder, "Bank/One.xml"), "old one");
        WriteAsUser(MFile::Join(oldFolder, "Bank/Two.xml"), "old two");
    }
    void TearDown() override {
        machine.Restore();
        const MString key = MString(MUninstallKeyName) + "\\Test Product";
        MGuard("KilledUpgradeTest", [&] { MRegistryKey::Delete(MRegistryRoot::LocalMachine, key); });
    }

    /// Packs a version, with more children of the root, and gives the installer's path.
    MString PackVersion(const std::string& version, const std::string& more) {
        const auto write = [&](const std::string& name, const std::string& content) {
            scratch.WriteFile(MDecodeUTF8Exact("product/" + version + name), content);
        };
        write("/program/tool", "#!/bin/sh\nexit " + version + "\n");
        write("/program/large.bin", MakeNoise(static_cast<uint32_t>(version[0])));
        for (int i = 0; i < 30; ++i)
            write("/program/sub/" + std::to_string(i) + ".txt", "text of version " + version);
        for (const char* name : {"/program/only-", "/shared/Sounds/only-"})
            write(name + version + ".txt", "text");
        write("/shared/Sounds/settings.ini", version);
        for (const std::string& name : {std::string("/shared/Sounds/Killed"), "/shared/Sounds/Only" + version,
                                        std::string("/user/KilledUser"), std::string("/fixed/Fixed")})
            write(name + "presets.xml", MakeShippedPresets(version));

        const std::string path = "\" required=\"1\" path=\"" + version;
        Pack("<files destination=\"{destination}" + path + "/program\"/>" +
             "<files destination=\"{destination}/shared" + path + "/shared\" rewritable=\"0\"/>" +
             "<files destination=\"{destination}/fixed" + path + "/fixed\" rewritable=\"0\"/>" +
             "<files destination=\"{userdata}" + path + "/user\" rewritable=\"0\"/>" + more +
             "<shortcutdirectory name=\"Killed Test\">"
             "<shortcut name=\"Tool\" destination=\"{destination}/tool\"/>"
             "<shortcut name=\"Remove\" preset=\"uninstall\"/></shortcutdirectory>");
        const MString installer =
            scratch.Join(MDecodeUTF8Exact(version) + MFile::GetFileName(GetInstaller()));
        MFile::Rename(GetInstaller(), installer);
        return installer;
    }
    /// A file and the directories around it, as the user's own program would have made them.
    void WriteAsUser(MString path, const std::string& content) const {
        MWriteTestFile(path, content);
        for (; path.StartsWith(InHome("") + "/"); path = MFile::GetDirectory(path)) MGiveToTestUser(path);
    }

    static MList<MString> Words() { return ToList({"silent", "directory:destination=to"}); }
    [[nodiscard]] MKilledProgramResult Upgrade(int32_t fatalOperation,
                                               MDisturbance disturbance = MDisturbance::Kill) const {
        return MRunKilledProgram(second, Words(), InHome(""), InHome(""), fatalOperation, disturbance);
    }
    /// All that a run can write, without the log, which tells of one run only.
    [[nodiscard]] MTreeSnapshot Look() const {
        MList<MString> roots;
        for (const MString& root : {InHome(""), userData, oldFolder, InMenu("Killed Test")}) roots.Add(root);
        return MTreeSnapshot(roots, ToList({"InstallerLog.txt"}));
    }
    void ExpectUsersPresets() const {
        const Presets wanted = ReadPresets(scratch.WriteFile("users.xml", MakeUsersPresets()));
        ASSERT_EQ(wanted.size(), 5u);
        for (const MString& path : presetFiles) {
            bool isThere = ReadPresets(path) == wanted || ReadPresets(path + "backup") == wanted;
            const auto look = [&](const MString& directory, const MFileListEntry& entry) {
                isThere = isThere || (entry.name.StartsWith(MFile::GetFileName(path) + "backup") &&
                                      ReadPresets(MFile::Join(directory, entry.name)) == wanted);
                return true;
            };
            MFile::GetFileListRecursed(MFile::Join(userData, "InstallerBackups"), "", look);
            EXPECT_TRUE(isThere) << Text(path);
        }
    }
    MString userData = MTestUserData(InHome(""));
    MString oldFolder = MFile::Join(MFile::GetDirectory(userData), "Kestrum");
    MString presetFiles[3] = {InHome("to/shared/Sounds/Killedpresets.xml"),
                              InHome("to/fixed/Fixedpresets.xml"),
                              MFile::Join(userData, "KilledUserpresets.xml")};
    MScratchFolders folders{scratch};
    MTreeSnapshot machine = Look();  ///< what stood there before the test
    MString second;                  ///< the installer of version 2
};

TEST_F(KilledUpgradeTest, KeepsThePresetsAndIsCompletedByTheNextRun) {
    const MTreeSnapshot before = Look();
    const MProgramResult undisturbed = Start(second, Words());
    ASSERT_EQ(undisturbed.exitCode, 0) << undisturbed.errors;
    ExpectUsersPresets();
    const MTreeSnapshot after = Look();
    before.Restore();
    ASSERT_EQ(before.DescribeChanges(Look()), "");
    // The last two operations delete the locks of a run that is complete.
    const int32_t count = Upgrade(0).operationCount - 2;
    ASSERT_EQ(after.DescribeChanges(Look()), "");
    ASSERT_GE(count, 200);
    RecordProperty("operations", count);

    for (int32_t fatal = 1; fatal <= count && !HasFailure(); fatal += KILLED_RUN_STRIDE) {
        SCOPED_TRACE("killed at file operation " + std::to_string(fatal) + " of " + std::to_string(count));
        before.Restore();
        EXPECT_TRUE(Upgrade(fatal).isKilled);
        ExpectUsersPresets();
        const MProgramResult next = Start(second, Words());
        EXPECT_EQ(next.exitCode, 0) << next.errors;
        EXPECT_EQ(after.DescribeChanges(Look()), "");
    }
}

// Where programs run slowly, fewer than those that are killed: it is the same way that they go.
constexpr int32_t FullDiskStride = KILLED_RUN_STRIDE == 1 ? 1 : 4 * KILLED_RUN_STRIDE;

// The backup was a copy, and the merge stood without it when there was no room for that.
TEST_F(KilledUpgradeTest, AFullDiskCostsNoPresetsAndIsTold) {
    const MTreeSnapshot before = Look();
    const int32_t count = Upgrade(0).operationCount;
    ASSERT_GE(count, 200);
    const MTreeSnapshot after = Look();
    for (int32_t first = 1; first <= count && !HasFailure(); first += FullDiskStride) {
        SCOPED_TRACE("full from file operation " + std::to_string(first) + " of " + std::to_string(count));
        before.Restore();
        const MProgramResult result = Upgrade(first, MDisturbance::FullDisk).program;
        ExpectUsersPresets();
        if (result.exitCode == 0) {
            EXPECT_EQ(after.DescribeChanges(Look()), "");
            continue;
        }
        const MProgramResult next = Start(second, Words());
        EXPECT_EQ(next.exitCode, 0) << next.errors;
        // A preset file that has come while the journal could not be written is merged with itself.
        const MString shipped = InHome("to/shared/Sounds/Only2presets.xml");
        EXPECT_EQ(ReadPresets(shipped).size(), 4u);
        MWriteTestFile(shipped, MakeShippedPresets("2"));
        if (MFile::Exists(shipped + "backup")) MFile::Delete(shipped + "backup");
        EXPECT_EQ(after.DescribeChanges(Look()), "");
    }
}
