#include "builder/commands/MBuilderCommandLine.h"
#include "tests/builder/BuilderFixture.h"

using BuilderCommandLineTest = BuilderFixture;

TEST_F(BuilderCommandLineTest, WrongUsageIsTwo) {
    const std::vector<std::vector<std::string>> lines = {
        {},
        {"bake"},
        {"pack"},
        {"pack", "a.xml"},
        {"pack", "a.xml", "--output"},
        {"pack", "a.xml", "--output", "b", "--level", "0"},
        {"pack", "a.xml", "--output", "b", "--level", "10"},
        {"pack", "a.xml", "--output", "b", "--threads", "0"},
        {"pack", "a.xml", "--output", "b", "--compression", "lzma"},
        {"pack", "a.xml", "--output", "b", "--form", "zip"},
        {"pack", "a.xml", "--output", "b", "--form", "dat", "--stub", "c"},
        {"pack", "a.xml", "--output", "b", "--form", "multi", "--stub", "c"},
        {"pack", "a.xml", "--output", "b", "--form", "dat", "--part-size", "1M"},
        {"pack", "a.xml", "--output", "b", "--part-size", "1M"},
        {"pack", "a.xml", "--output", "b", "--form", "multi", "--part-size", "65535"},
        {"pack", "a.xml", "--output", "b", "--form", "multi", "--part-size", "63K"},
        {"pack", "a.xml", "--output", "b", "--form", "multi", "--part-size", "-1M"},
        {"pack", "a.xml", "--output", "b", "--form", "multi", "--part-size", "1X"},
        {"pack", "a.xml", "--output", "b", "--form", "multi", "--part-size", "99999999999G"},
        {"check", "a.xml", "b.xml"},
        {"extract", "a.run"},
        {"verify", "a.run", "--xml"},
        {"blob"},
        {"blob", "a", "b.xml"},
        {"blob", "a", "--output", "c"},
        {"blob", "a", "", "--output", "c"},
        {"blob", "a", "b.xml", "c.xml", "--output", "d"},
        {"download-set", "a", "--id", "b", "--mirror", "c"},
        {"download-set", "a", "--id", "b", "--output", "d"},
        {"download-set", "a", "--mirror", "c", "--output", "d"},
        {"download-set", "a", "--id", "b", "--mirror", "c", "--output", ""},
        {"download-set", "a", "--id", "b", "--mirror", "c", "--output", "d", "--stub", ""},
        {"download-set", "a", "--id", "b", "--mirror", "c", "--output", "d", "--part-size", "1023"},
        {"download-set", "a", "--id", "b", "--mirror", "c", "--output", "d", "--part-size", "257M"},
    };
    for (const auto& line : lines) {
        EXPECT_EQ(Run(line), MBuilderExitWrongUsage) << testing::PrintToString(line);
        EXPECT_EQ(output.told, "");
        EXPECT_FALSE(output.complaints.empty());
    }
}

TEST_F(BuilderCommandLineTest, PartSizesHaveUnits) {
    const std::pair<const char*, int64_t> cases[] = {
        {"65536", 65536},
        {"64K", 65536},
        {"64k", 65536},
        {"100M", 100 * 1024 * 1024},
        {"8G", int64_t(8) * 1024 * 1024 * 1024},
    };
    for (const auto& [text, bytes] : cases) {
        MList<MString> words;
        for (const char* word : {"pack", "a.xml", "--output", "b", "--form", "multi", "--part-size", text})
            words.Add(word);
        int32_t exitCode = 0;
        const auto options = MBuilderCommandLine::Parse(words, output, exitCode);
        ASSERT_TRUE(options) << text << JoinComplaints();
        EXPECT_EQ(options->partSize, bytes);
    }
}

TEST_F(BuilderCommandLineTest, EveryCommandHelpsWithExamples) {
    for (const char* command : {"pack", "check", "inspect", "verify", "extract", "blob", "download-set"}) {
        EXPECT_EQ(Run({command, "--help"}), MBuilderExitDone);
        EXPECT_THAT(output.told, testing::HasSubstr(std::string("  setup-builder ") + command));
    }
    EXPECT_EQ(Run({"--help"}), MBuilderExitDone);
}

TEST_F(BuilderCommandLineTest, FailuresAreOneAndNameTheFile) {
    for (const char* command : {"check", "inspect", "verify", "blob"}) {
        EXPECT_EQ(Run({command, "@missing \xC3\xA4.xml"}), MBuilderExitFailed);
        EXPECT_THAT(JoinComplaints(), testing::HasSubstr("missing \xC3\xA4.xml"));
    }
    EXPECT_EQ(Pack("out", {"--define", "=x"}), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), testing::HasSubstr("Write NAME=TEXT."));
}
