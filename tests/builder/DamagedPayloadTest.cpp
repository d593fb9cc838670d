#include "foundation/text/MNumberText.h"
#include "tests/builder/BuilderFixture.h"
#include "tests/support/MTestPayload.h"

namespace {

class DamagedPayloadTest : public BuilderFixture {
protected:
    /// Looks at a payload in every way. The exit code of `verify`.
    int32_t LookAt(const std::string& payload) {
        scratch.WriteFile("damaged.dat", payload);
        EXPECT_LE(Run({"inspect", "@damaged.dat"}), MBuilderExitFailed);
        return Run({"verify", "@damaged.dat"});
    }
};

}  // namespace

// Bits that mean nothing can change unseen: unread flags, what pads a stream to a byte, the codes of symbols
// that do not occur. What verifies must unpack to what was packed.
TEST_F(DamagedPayloadTest, FlippedBitsAreSeenOrHarmless) {
    scratch.WriteFile("a/one.txt", "one and one and one");
    scratch.WriteFile("a/two.txt", "");
    WriteDefinition("<files name=\"A\" path=\"a\" destination=\"{data}\"/>");
    constexpr size_t FlagsSize = 4;
    for (const char* compression : {"bzip2", "zlib"}) {
        ASSERT_EQ(Pack("setup.dat", {"--form", "dat", "--compression", compression}), 0);
        const std::string sound = scratch.ReadFile("setup.dat");
        ASSERT_EQ(LookAt(sound), MBuilderExitDone) << JoinComplaints();
        for (size_t byte = 0; byte < sound.size() - FlagsSize; ++byte) {
            std::string damaged = sound;
            damaged[byte] = static_cast<char>(damaged[byte] ^ (1 << byte % 8));
            if (LookAt(damaged) != MBuilderExitDone) continue;
            const MString folder = "out" + MNumberToText(byte) + compression;
            ASSERT_EQ(Run({"extract", "@damaged.dat", "--output", "@" + Text(folder)}), MBuilderExitDone);
            EXPECT_EQ(scratch.ReadFile(folder + "/01-A/one.txt"), "one and one and one") << byte;
            EXPECT_EQ(scratch.ReadFile(folder + "/01-A/two.txt"), "") << byte;
        }
    }
}

TEST_F(DamagedPayloadTest, EveryBadItemIsTold) {
    MTestPayload payload(7);
    const std::string good = payload.Add("good content");
    const auto file = [](const char* name, const std::string& attributes) {
        return "<file name=\"" + std::string(name) + "\" " + attributes + "/>";
    };
    const std::string xml = "<install name=\"x\"><files name=\"A\">" + file("good", good) +
                            file("longer", "filestart=\"0\" filesize=\"99\"") +
                            file("shorter", "filestart=\"0\" filesize=\"3\"") +
                            file("outside", "filestart=\"99999999\" filesize=\"3\"") +
                            file("negative", "filestart=\"-5\" filesize=\"3\"") +
                            file("nowhere", "filestart=\"7\" filesize=\"3\"") +
                            file("unsized", "filestart=\"0\"") + "</files></install>";
    EXPECT_EQ(LookAt(payload.Finish(xml)), MBuilderExitFailed);
    EXPECT_THAT(output.complaints,
                ElementsAre(HasSubstr("01-A/longer: It holds only 12 of its 99 bytes."),
                            HasSubstr("01-A/shorter: It holds more than its 3 bytes."),
                            HasSubstr("01-A/outside: It lies outside"),
                            HasSubstr("01-A/negative: It lies outside"),
                            HasSubstr("01-A/nowhere: Source compressed stream has invalid content."),
                            HasSubstr("01-A/unsized: Could not find required attribute (filesize).")));
    EXPECT_THAT(output.told, HasSubstr("7 items, 6 bad"));
}

TEST_F(DamagedPayloadTest, NamesThatLeadOutAreNotExtracted) {
    for (const char* name :
         {"../../escaped", "/tmp/escaped", "a/../../../escaped", "..\\..\\escaped", ".."}) {
        MTestPayload payload(0);
        const std::string item = payload.Add("evil");
        scratch.WriteFile(
            "evil.dat",
            payload.Finish("<install name=\"x\"><files name=\"..\"><dir name=\"d\"><file name=\"" +
                           std::string(name) + "\" " + item + "/></dir></files></install>"));
        EXPECT_EQ(Run({"extract", "@evil.dat", "--output", "@deep/er/out"}), MBuilderExitFailed) << name;
        EXPECT_EQ(scratch.ListTree(), "evil.dat\nstub\n") << name;
    }
}

TEST_F(DamagedPayloadTest, NamesOfSeveralComponentsOrOfAPathComeBack) {
    MTestPayload payload(0);
    const std::string item = payload.Add("x") + "/>";
    scratch.WriteFile("odd.dat", payload.Finish("<install name=\"x\"><files name=\"F\" path=\"p\\q/r\" "
                                                "destination=\"{data}\"><file name=\"\" " +
                                                item + "<dir name=\"d\\e\" path=\"s\"><file name=\"t/u\" " +
                                                item + "<file name=\"\" " + item +
                                                "</dir></files><onsuccess/><onerror/><onabort/></install>"));
    ASSERT_EQ(Run({"extract", "@odd.dat", "--output", "@out"}), MBuilderExitDone) << JoinComplaints();
    EXPECT_THAT(scratch.ListTree(),
                HasSubstr("out/01-F/d/e/s\nout/01-F/d/e/t/\nout/01-F/d/e/t/u\nout/01-F/r\n"));
    ASSERT_EQ(Run({"pack", "@out/definition.xml", "--output", "@again.dat", "--form", "dat"}),
              MBuilderExitDone)
        << JoinComplaints();
    ASSERT_EQ(Run({"inspect", "@again.dat"}), MBuilderExitDone);
    for (const char* path : {"  01-F/r\n", "  01-F/d/e/t/u\n", "  01-F/d/e/s\n"})
        EXPECT_THAT(output.told, HasSubstr(path));
}

TEST_F(DamagedPayloadTest, ExtractingKeepsOutOfFullDirectories) {
    MTestPayload payload(0);
    const std::string item = payload.Add("fine");
    scratch.WriteFile("fine.dat",
                      payload.Finish("<install name=\"x\"><licence name=\"l.txt\" " + item + "/></install>"));
    scratch.WriteFile("out/mine.txt", "mine");
    EXPECT_EQ(Run({"extract", "@fine.dat", "--output", "@out"}), MBuilderExitFailed);
    EXPECT_EQ(scratch.ReadFile("out/mine.txt"), "mine");
    EXPECT_EQ(Run({"extract", "@fine.dat", "--output", "@new/out"}), MBuilderExitDone) << JoinComplaints();
    EXPECT_EQ(scratch.ReadFile("new/out/licence/l.txt"), "fine");
}
