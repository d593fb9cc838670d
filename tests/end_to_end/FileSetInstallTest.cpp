#include "tests/end_to_end/EndToEndFixture.h"

#include <functional>
#include <gmock/gmock.h>

/// A product that is delivered in parts, with the bare program beside their index.
class FileSetInstallTest : public EndToEndTest {
protected:
    FileSetInstallTest() {
        std::string noise(200000, '\0');
        uint32_t state = 1;
        for (char& byte : noise) byte = static_cast<char>((state = state * 214013 + 2531011) >> 16);
        scratch.WriteFile("product/noise", noise);
        scratch.WriteFile("product/definition.xml",
                          "<install name=\"Test Product\">"
                          "<directory id=\"destination\" name=\"D\" default=\"unused\"/>"
                          "<files path=\"noise\" destination=\"{destination}\" required=\"1\"/>"
                          "<onsuccess/><onerror/><onabort/></install>");
        MFile::CreatePath(InHome("download"));
    }
    ~FileSetInstallTest() noexcept override = default;

    void SetUp() override {
        MList<MString> arguments = ToList({"pack"});
        arguments.Add(InProduct("definition.xml"));
        arguments.Add("--output");
        arguments.Add(InHome("download/setup.multi"));
        for (const char* option : {"--form", "multi", "--part-size", "64K"}) arguments.Add(option);
        const MProgramResult result = Build(arguments);
        ASSERT_EQ(result.exitCode, 0) << result.errors;
        program = PutProgram("download/Installer");
    }
    [[nodiscard]] MProgramResult InstallSet() const {
        return Start(program, ToList({"silent", "directory:destination=to"}));
    }
    [[nodiscard]] std::string ReadPart(const MString& number) const {
        return ReadHome("download/setup.multi" + number + ".cab");
    }
    void WritePart(const MString& number, const std::string& content) const {
        scratch.WriteFile("home/download/setup.multi" + number + ".cab", content);
    }

    MString program;
};

TEST_F(FileSetInstallTest, InstallsFromPartsBesideTheIndexAndAbove) {
    for (const bool isAbove : {false, true}) {
        if (isAbove)
            for (const char* name : {"setup.multi1.cab", "setup.multi4.cab"})
                MFile::Rename(InHome(MString("download/") + name), InHome(name));
        const MProgramResult result = InstallSet();
        ASSERT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_THAT(result.output, testing::HasSubstr("Checking installer integrity..."));
        EXPECT_EQ(result.errors, "");
        EXPECT_TRUE(ReadHome("to/noise") == scratch.ReadFile("product/noise"));
        MFile::DeleteTree(InHome("to"));
    }
}

TEST_F(FileSetInstallTest, DamagedSetsInstallNothing) {
    const std::string second = ReadPart("2");
    std::string wrong = second;
    wrong[1000] = static_cast<char>(wrong[1000] ^ 1);
    const char* const lastResort =
        "There are no installer data availble. The installer is probably corrupt, please download it again.\n";
    const auto question = [](const std::string& names) {
        return "We are very sorry, but following files are corrupt:\n " + names + "\nPlease check your";
    };
    const struct {
        std::function<void()> damage;
        std::string told;
    } cases[] = {
        {[&] { WritePart("2", wrong); }, question("setup.multi2.cab")},
        {[&] { WritePart("2", second.substr(0, second.size() - 1)); }, question("setup.multi2.cab")},
        {[&] {
             WritePart("4", "");
             WritePart("2", "");
         },
         question("setup.multi2.cab\nsetup.multi4.cab")},
        {[&] { MFile::Delete(InHome("download/setup.multi2.cab")); }, lastResort},
        {[&] { scratch.WriteFile("home/download/setup.multi", "<Set><File Name=\"../setup.multi1.cab\"/>"); },
         lastResort},
        {[&] { MFile::Delete(InHome("download/setup.multi")); }, lastResort},
    };
    for (const auto& [damage, told] : cases) {
        damage();
        const MProgramResult result = InstallSet();
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.errors, testing::StartsWith(told));
        EXPECT_FALSE(IsInHome("to"));
        WritePart("2", second);
    }
}
