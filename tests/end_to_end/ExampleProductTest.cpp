#include "tests/end_to_end/ExampleProductFixture.h"

TEST_F(ExampleProductTest, LandsByteForByteAndKeepsWhatAMusicianChanged) {
    PackExample("1.0", "bzip2");
    InstallExample("configuration=full");
    ExpectPlugins("dragonfly-reverb-vst/usr/lib/lxvst", "vst/Dragonfly");
    ExpectPlugins("dragonfly-reverb-vst/usr/lib/lxvst", "vst/Dragonfly older hosts", "vst");
    ExpectPlugins("lsp-plugins-vst/usr/lib/vst", "vst");
    ExpectPlugins("zynaddsubfx-vst/usr/lib/vst", "vst/Synthesizer");
    ExpectPlugins("dragonfly-reverb-lv2/usr/lib/lv2", "lv2");
    ExpectPlugins("lsp-plugins-lv2/usr/lib/lv2", "lv2");
    ExpectPlugins("dragonfly-reverb-vst/usr/share/doc", "to/Documents");
    const MString data = InProduct("plugins/zynaddsubfx-data/usr/share/zynaddsubfx");
    ExpectInstalled(InProduct("presets/1.0"), MFile::Join(GetUserData(), "Presets"));
    ExpectInstalled(MFile::Join(data, "banks"), MFile::Join(GetUserData(), "Banks"));
    ExpectInstalled(MFile::Join(data, "examples"), MFile::Join(GetUserData(), "Examples"), nullptr, true);
    EXPECT_TRUE(IsInHome("to/changelog.Debian.gz"));
    EXPECT_TRUE(IsInHome("to/setup.state"));

    const MString bank = MFile::Join(GetUserData(), "Banks/Bass");
    const MString changed = MFile::Join(bank, MFile::GetFileList(bank)[0].name);
    MWriteTestFile(changed, "the musician's own");
    MFile::Delete(InHome("to/changelog.Debian.gz"));
    InstallExample("configuration=full");
    EXPECT_EQ(MReadTestFile(changed), "the musician's own");
    EXPECT_TRUE(IsInHome("to/changelog.Debian.gz"));
}

TEST_F(ExampleProductTest, TheSmallConfigurationHoldsTheReverbsOnly) {
    PackExample();
    InstallExample("configuration=small");
    ExpectPlugins("dragonfly-reverb-vst/usr/lib/lxvst", "vst/Dragonfly");
    EXPECT_FALSE(IsInHome("vst/Dragonfly older hosts"));
    EXPECT_FALSE(IsInHome("vst/lsp-plugins"));
    EXPECT_FALSE(IsInHome("vst/Synthesizer"));
    EXPECT_EQ(MFile::GetFileList(GetUserData()).GetCount(), 1) << "presets only";
}
