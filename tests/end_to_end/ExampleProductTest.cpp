#include "tests/end_to_end/EndToEndFixture.h"

#include <map>

namespace {

/// The files below a directory by their relative paths, or by their names alone.
std::map<std::string, MString> ListFiles(const MString& directory, bool flat) {
    std::map<std::string, MString> files;
    MFile::GetFileListRecursed(directory, "", [&](const MString& parent, const MFileListEntry& entry) {
        const MString path = MFile::Join(parent, entry.name);
        const MString name = flat ? entry.name : path.Substring(directory.GetLength() + 1);
        if (!entry.isDirectory) files[Text(name)] = path;
        return true;
    });
    return files;
}

/// Everything below `source` stands in `target` byte for byte, under the extension `renamed` if that is given.
void ExpectInstalled(const MString& source, const MString& target, const char* renamed = nullptr,
                     bool flat = false) {
    const std::map<std::string, MString> sources = ListFiles(source, flat);
    EXPECT_FALSE(sources.empty()) << Text(source);
    for (const auto& [name, path] : sources) {
        MString installed = MFile::Join(target, MDecodeUTF8Exact(name));
        if (renamed) installed = MFile::ChangeExtension(installed, renamed);
        ASSERT_TRUE(MFile::Exists(installed)) << Text(installed);
        EXPECT_TRUE(MReadTestFile(path) == MReadTestFile(installed)) << Text(installed);
    }
}

}  // namespace

/// Real plug-ins, presets and documents through the maker's tool and the installer.
class ExampleProductTest : public EndToEndTest {
protected:
    ExampleProductTest() {
        MFile::Copy(EXAMPLE_DIRECTORY "/definition.xml", InProduct("definition.xml"));
        MFile::Copy(EXAMPLE_PLUGINS, InProduct("plugins"));
        if (MFile::Exists(GetUserData())) MFile::DeleteTree(GetUserData());
    }
    ~ExampleProductTest() noexcept override = default;

    void PackExample() {
        MList<MString> arguments = ToList({"pack", "definition.xml", "--define", "VERSION=1.0", "--output"});
        arguments.Add(GetInstaller());
        const MProgramResult result = Build(arguments);
        ASSERT_EQ(result.exitCode, 0) << result.errors;
    }
    MProgramResult InstallExample(const char* configuration) {
        return Install({"silent", "accept-licence", configuration, "directory:destination=to",
                        "directory:vst=vst", "directory:lv2=lv2"});
    }
    [[nodiscard]] MString GetUserData() const {
        const MString directory = MPlatform::GetName() == "windows"
                                      ? MFile::GetSpecialPath(MSpecialFolderUserData)
                                      : InHome(".local/share/Corvanth");
        return MFile::Join(directory, "Plug-in Set");
    }
    void ExpectPlugins(const char* source, const char* target, const char* renamed = nullptr) {
        ExpectInstalled(InProduct(MString("plugins/") + source), InHome(target), renamed);
    }
};

TEST_F(ExampleProductTest, LandsByteForByteAndKeepsWhatAMusicianChanged) {
    PackExample();
    MProgramResult result = InstallExample("configuration=full");
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    ExpectPlugins("dragonfly-reverb-vst/usr/lib/lxvst", "vst/Dragonfly");
    ExpectPlugins("dragonfly-reverb-vst/usr/lib/lxvst", "vst/Dragonfly older hosts", "vst");
    ExpectPlugins("lsp-plugins-vst/usr/lib/vst", "vst");
    ExpectPlugins("zynaddsubfx-vst/usr/lib/vst", "vst/Synthesizer");
    ExpectPlugins("dragonfly-reverb-lv2/usr/lib/lv2", "lv2");
    ExpectPlugins("lsp-plugins-lv2/usr/lib/lv2", "lv2");
    ExpectPlugins("dragonfly-reverb-vst/usr/share/doc", "to/Documents");
    const MString data = InProduct("plugins/zynaddsubfx-data/usr/share/zynaddsubfx");
    ExpectInstalled(MFile::Join(data, "banks"), MFile::Join(GetUserData(), "Banks"));
    ExpectInstalled(MFile::Join(data, "examples"), MFile::Join(GetUserData(), "Examples"), nullptr, true);
    EXPECT_TRUE(IsInHome("to/changelog.Debian.gz"));
    EXPECT_TRUE(IsInHome("to/setup.state"));

    const MString bank = MFile::Join(GetUserData(), "Banks/Bass");
    const MString changed = MFile::Join(bank, MFile::GetFileList(bank)[0].name);
    MWriteTestFile(changed, "the musician's own");
    MFile::Delete(InHome("to/changelog.Debian.gz"));
    result = InstallExample("configuration=full");
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(MReadTestFile(changed), "the musician's own");
    EXPECT_TRUE(IsInHome("to/changelog.Debian.gz"));
}

TEST_F(ExampleProductTest, TheSmallConfigurationHoldsTheReverbsOnly) {
    PackExample();
    const MProgramResult result = InstallExample("configuration=small");
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    ExpectPlugins("dragonfly-reverb-vst/usr/lib/lxvst", "vst/Dragonfly");
    EXPECT_FALSE(IsInHome("vst/Dragonfly older hosts"));
    EXPECT_FALSE(IsInHome("vst/lsp-plugins"));
    EXPECT_FALSE(IsInHome("vst/Synthesizer"));
    EXPECT_FALSE(MFile::Exists(GetUserData()));
}
