#include "tests/end_to_end/EndToEndFixture.h"

class UnattendedInstallTest : public EndToEndTest {
protected:
    void PackProduct(std::initializer_list<const char*> options = {}) {
        scratch.WriteFile("product/licence.txt", "Do as you like.");
        scratch.WriteFile(MDecodeUTF8Exact("product/source/sub/Čeština 😀.txt"), "unicode");
        scratch.WriteFile("product/source/large.bin", std::string(2000000, 'L'));
        scratch.WriteFile("product/plugin.dll", "binary");
        Pack(
            R"(<licence name="licence.txt"/><configuration id="full" name="Full"/>)"
            R"(<configuration id="small" name="Small"/>)" +
                ToDestination("source") +
                R"(<files name="VST" path="plugin.dll" configurations="full" destination="{destination}/plugins">)"
                R"(<copy name="VST3" destination="{destination}/plugins/VST3"><extension src="dll" dst="vst3"/>)"
                "</copy></files>",
            options);
    }
};

TEST_F(UnattendedInstallTest, RefusesWithCode2AndAFileInTheWayFailsOrIsIgnored) {
    PackProduct();
    EXPECT_EQ(InstallSilently().exitCode, 2);
    EXPECT_FALSE(IsInHome("to"));

    scratch.WriteFile("home/to/large.bin/inside", "in the way");
    OpenForEverybody(InHome("to"));
    MProgramResult result = InstallSilently({"accept-licence"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.errors, HasSubstr("large.bin\" could not be created."));
    EXPECT_FALSE(IsInHome("to/setup.state"));
    result = InstallSilently({"accept-licence", "locked=ignore"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(ReadHome("to/plugins/plugin.dll"), "binary");
    EXPECT_EQ(ReadHome("to/large.bin/inside"), "in the way");
}

TEST_F(UnattendedInstallTest, DamagedInstallersTellIt) {
    const std::string noise = MTestNoise(100000);
    scratch.WriteFile("product/noise", noise);
    Pack(ToDestination("noise"));
    const std::string sound = MReadTestFile(GetInstaller());
    const auto withByte = [&](size_t index, char value) {
        std::string bytes = sound;
        bytes[index] = value;
        return bytes;
    };
    const char* const noData =
        "There are no installer data availble. The installer is probably corrupt, please "
        "download it again.";
    const size_t end = sound.size();
    // The item starts where the program ends.
    const size_t inItem = static_cast<size_t>(MFile::GetFileSize(SETUP_PROGRAM)) + noise.size() / 2;
    const std::pair<std::string, const char*> damaged[] = {
        {sound.substr(0, end - 1), noData},
        {sound.substr(0, end - 20), noData},
        {withByte(end - 2, 0x70), noData},                                  // a payload larger than the file
        {withByte(end - 24, 0x20), noData},                                 // an index too large for a reader
        {withByte(end - 36, static_cast<char>(~sound[end - 36])), noData},  // a wrong digest
        {withByte(inItem, static_cast<char>(sound[inItem] ^ 4)),
         "Source compressed stream has invalid content."},
    };
    for (const auto& [bytes, told] : damaged) {
        MWriteTestFile(GetInstaller(), bytes);
        MFile::MakeExecutable(GetInstaller());
        const MProgramResult result = InstallSilently();
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.errors, HasSubstr(told));
        EXPECT_EQ(IsInHome("to"), told != noData);
        EXPECT_FALSE(IsInHome("to/setup.state"));
    }
}
