#include "tests/end_to_end/ExampleProductFixture.h"

TEST_F(ExampleProductTest, LandsByteForByteKeepsWhatAMusicianChangedAndGoesAgain) {
    PackExample("1.0", "bzip2");
    InstallExample("configuration=full");
    ExpectPlugins("dragonfly-reverb-vst/usr/lib/lxvst", "vst/Dragonfly");
    ExpectPlugins("dragonfly-reverb-vst/usr/lib/lxvst", "vst/Dragonfly older hosts", "vst");
    ExpectPlugins("lsp-plugins-vst/usr/lib/vst", "vst");
    ExpectPlugins("zynaddsubfx-vst/usr/lib/vst", "vst/Synthesizer");
    ExpectPlugins("dragonfly-reverb-lv2/usr/lib/lv2", "lv2");
    ExpectPlugins("lsp-plugins-lv2/usr/lib/lv2", "lv2");
    ExpectPlugins("dragonfly-reverb-vst/usr/share/doc", "to/Documents");
    const MString banks = MFile::Join(GetUserData(), "Banks");
    ExpectInstalled(InProduct("plugins/zynaddsubfx-data/usr/share/zynaddsubfx/banks"), banks);
    ExpectInstalled(InProduct("presets/1.0"), MFile::Join(GetUserData(), "Presets"));
    EXPECT_FALSE(MFile::GetFileList(MFile::Join(GetUserData(), "Examples")).IsEmpty());
    EXPECT_TRUE(IsInHome("to/changelog.Debian.gz"));

    const MString bank = MFile::Join(banks, "Bass");
    const MString changed = MFile::Join(bank, MFile::GetFileList(bank)[0].name);
    MWriteTestFile(changed, "the musician's own");
    MFile::Delete(InHome("to/changelog.Debian.gz"));
    InstallExample("configuration=full");
    EXPECT_TRUE(IsInHome("to/changelog.Debian.gz"));

    const MProgramResult removal = Start(GetRemover("to"), ToList({"silent"}));
    EXPECT_EQ(removal.exitCode, 0);
    EXPECT_EQ(removal.output + removal.errors, "Removing files...\nDone.\n");
    EXPECT_EQ(MReadTestFile(changed), "the musician's own");
    EXPECT_EQ(MFile::GetFileList(GetUserData()).GetCount(), 2) << "banks and presets";
    EXPECT_EQ(MFile::GetFileList(InHome("to")).GetCount(), 1) << "the program itself";
    EXPECT_TRUE(MFile::GetFileList(InHome("lv2")).IsEmpty());
    EXPECT_FALSE(IsInHome("vst"));
    EXPECT_FALSE(MFile::Exists(GetMenu()));
}
