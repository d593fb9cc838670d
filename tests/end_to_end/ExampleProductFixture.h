#pragma once

#include "tests/end_to_end/EndToEndFixture.h"

/// Real plug-ins, presets and documents through the maker's tool and the installer.
class ExampleProductTest : public EndToEndTest {
protected:
    ExampleProductTest() {
        MFile::Copy(EXAMPLE_DIRECTORY, scratch.Join("product"));
        MFile::Copy(EXAMPLE_PLUGINS, InProduct("plugins"));
        // What an earlier test has left in folders that are not below the home folder.
        for (const MString& path : {GetUserData(), GetMenu()})
            if (MFile::Exists(path)) MFile::DeleteTree(path);
    }
    void PackExample(const char* version = "1.0", const char* compression = "none") {
        Build(ToList({"pack", "definition.xml", "--compression", compression, "--define"}),
              {MString("VERSION=") + version, "--output", GetInstaller()});
    }
    void InstallExample(const char* configuration) {
        const MProgramResult result =
            Install({"silent", "accept-licence", configuration, "directory:destination=to",
                     "directory:vst=vst", "directory:lv2=lv2"});
        ASSERT_EQ(result.exitCode, 0) << result.errors;
    }
    [[nodiscard]] MString GetUserData() const {
        return MFile::Join(MTestUserData(InHome("")), "Plug-in Set");
    }
    [[nodiscard]] MString GetMenu() const { return InMenu("Corvanth"); }

    void ExpectPlugins(const char* source, const char* target, const char* renamed = nullptr) const {
        ExpectInstalled(InProduct(MString("plugins/") + source), InHome(target), renamed);
    }
    /// Everything below `source` stands in `target` byte for byte, under the extension `renamed` if that is
    /// given.
    static void ExpectInstalled(const MString& source, const MString& target, const char* renamed = nullptr) {
        int32_t count = 0;
        MFile::GetFileListRecursed(source, "", [&](const MString& parent, const MFileListEntry& entry) {
            if (entry.isDirectory) return true;
            const MString path = MFile::Join(parent, entry.name);
            MString installed = MFile::Join(target, path.Substring(source.GetLength() + 1));
            if (renamed) installed = MFile::ChangeExtension(installed, renamed);
            EXPECT_TRUE(MFile::Exists(installed) && MReadTestFile(path) == MReadTestFile(installed))
                << Text(installed);
            ++count;
            return true;
        });
        EXPECT_GT(count, 0) << Text(source);
    }
};
