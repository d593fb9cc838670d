#include "tests/end_to_end/EndToEndFixture.h"

class UnattendedInstallTest : public EndToEndTest {
protected:
    ~UnattendedInstallTest() noexcept override = default;

    void PackProduct(std::initializer_list<const char*> options = {}) {
        scratch.WriteFile("product/licence.txt", "Do as you like.");
        scratch.WriteFile(MDecodeUTF8Exact("product/source/sub/Čeština 😀.txt"), "unicode");
        scratch.WriteFile("product/source/large.bin", std::string(2000000, 'L'));
        scratch.WriteFile("product/plugin.dll", "binary");
        Pack(
            "<licence name=\"licence.txt\"/><configuration id=\"full\" name=\"Full\"/>"
            "<configuration id=\"small\" name=\"Small\"/>"
            "<directory id=\"destination\" name=\"Destination\" default=\"unused\"/>"
            "<directory id=\"plugins\" name=\"Plug-ins\" default=\"unused\"/>"
            "<files path=\"source\" destination=\"{destination}\" required=\"1\"/>"
            "<files name=\"VST\" path=\"plugin.dll\" configurations=\"full\" destination=\"{plugins}\">"
            "<copy name=\"VST3\" destination=\"{plugins}/VST3\"><extension src=\"dll\" dst=\"vst3\"/></copy></files>",
            options);
    }
    MProgramResult InstallHere(std::initializer_list<const char*> words) {
        MList<MString> arguments =
            ToList({"silent", "directory:destination=to", "directory:plugins=to/plugins"});
        for (const MString& word : ToList(words)) arguments.Add(word);
        return Start(GetInstaller(), arguments);
    }
    void ExpectNothingInstalled() { EXPECT_FALSE(IsInHome("to")); }
};

TEST_F(UnattendedInstallTest, WritesTheProductInEveryCompression) {
    for (const char* compression : {"bzip2", "zlib", "none"}) {
        PackProduct({"--compression", compression});
        const MProgramResult result = InstallHere({"accept-licence"});
        ASSERT_EQ(result.exitCode, 0) << compression << result.errors;
        EXPECT_EQ(result.errors, "");
        EXPECT_NE(result.output.find("Copying files..."), std::string::npos);
        EXPECT_EQ(ReadHome(MDecodeUTF8Exact("to/sub/Čeština 😀.txt")), "unicode");
        EXPECT_EQ(ReadHome("to/large.bin"), std::string(2000000, 'L'));
        EXPECT_EQ(ReadHome("to/plugins/plugin.dll"), "binary");
        EXPECT_EQ(ReadHome("to/plugins/VST3/plugin.vst3"), "binary");
        EXPECT_TRUE(IsInHome("to/setup.state"));
        MFile::DeleteTree(InHome("to"));
    }
}

TEST_F(UnattendedInstallTest, FollowsConfigurationAndComponents) {
    PackProduct();
    ASSERT_EQ(InstallHere({"accept-licence", "configuration=small", "component:VST3=off"}).exitCode, 0);
    EXPECT_TRUE(IsInHome("to/large.bin"));
    EXPECT_FALSE(IsInHome("to/plugins"));
}

TEST_F(UnattendedInstallTest, RefusesWithCode2AndTellsWhy) {
    PackProduct();
    struct {
        std::initializer_list<const char*> words;
        const char* told;
    } const cases[] = {
        {{}, "licence of Test Product has not been accepted"},
        {{"accept-licence", "nonsense"}, "\"nonsense\""},
        {{"accept-licence", "configuration=none"}, "no configuration \"none\""},
        {{"accept-licence", "component:none=on"}, "no component \"none\""},
        {{"accept-licence", "directory:none=x"}, "no directory \"none\""},
    };
    for (const auto& [words, told] : cases) {
        const MProgramResult result = InstallHere(words);
        EXPECT_EQ(result.exitCode, 2) << told;
        EXPECT_NE(result.errors.find(told), std::string::npos) << result.errors;
        ExpectNothingInstalled();
    }
}

TEST_F(UnattendedInstallTest, AFileInTheWayFailsIsIgnoredOrAborts) {
    PackProduct();
    scratch.WriteFile("home/to/large.bin/inside", "in the way");
    OpenForEverybody(InHome("to"));
    MProgramResult result = InstallHere({"accept-licence"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find("large.bin\" could not be created."), std::string::npos) << result.errors;
    EXPECT_FALSE(IsInHome("to/setup.state"));
    result = InstallHere({"accept-licence", "locked=ignore"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(ReadHome("to/plugins/plugin.dll"), "binary");
    EXPECT_EQ(ReadHome("to/large.bin/inside"), "in the way");
}

TEST_F(UnattendedInstallTest, DamagedInstallersTellItAndInstallNothing) {
    PackProduct({"--compression", "bzip2"});
    const std::string sound = ReadHome(MFile::GetFileName(GetInstaller()));
    const auto withByte = [&](size_t fromEnd, char value) {
        std::string bytes = sound;
        bytes[bytes.size() - fromEnd] = value;
        return bytes;
    };
    const std::string damaged[] = {
        sound.substr(0, sound.size() - 1),
        sound.substr(0, sound.size() - 20),
        withByte(2, 0x70),                                                // a payload larger than the file
        withByte(16 + 8, 0x20),                                           // an index too large for a reader
        withByte(16 + 20, static_cast<char>(~sound[sound.size() - 36])),  // a wrong digest
    };
    for (const std::string& bytes : damaged) {
        scratch.WriteFile(MString("home/") + MFile::GetFileName(GetInstaller()), bytes);
        MFile::MakeExecutable(GetInstaller());
        const MProgramResult result = InstallHere({"accept-licence"});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_NE(result.errors.find(
                      "There are no installer data availble. The installer is probably corrupt, please "
                      "download it again."),
                  std::string::npos)
            << result.errors;
        ExpectNothingInstalled();
    }
}

TEST_F(UnattendedInstallTest, AFlippedBitInAnItemStopsTheRunWithoutState) {
    std::string noise(100000, '\0');
    uint32_t state = 1;
    for (char& byte : noise) byte = static_cast<char>((state = state * 214013 + 2531011) >> 16);
    scratch.WriteFile("product/noise", noise);
    Pack("<directory id=\"destination\" name=\"D\" default=\"unused\"/>"
         "<files path=\"noise\" destination=\"{destination}\" required=\"1\"/>");
    const MString name = MString("home/") + MFile::GetFileName(GetInstaller());
    std::string bytes = scratch.ReadFile(name);
    // The item starts where the program ends.
    const size_t damaged = static_cast<size_t>(MFile::GetFileSize(SETUP_PROGRAM)) + noise.size() / 2;
    bytes[damaged] = static_cast<char>(bytes[damaged] ^ 4);
    scratch.WriteFile(name, bytes);
    MFile::MakeExecutable(GetInstaller());
    const MProgramResult result = Install({"silent", "directory:destination=to"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find("Source compressed stream has invalid content."), std::string::npos)
        << result.errors;
    EXPECT_TRUE(IsInHome("to/noise"));
    EXPECT_FALSE(IsInHome("to/setup.state"));
}
