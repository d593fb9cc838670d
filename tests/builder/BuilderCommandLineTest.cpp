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
        {"pack", "a.xml", "--output", "b", "--form", "multi"},
        {"check", "a.xml", "b.xml"},
        {"extract", "a.run"},
        {"verify", "a.run", "--xml"},
    };
    for (const auto& line : lines) {
        EXPECT_EQ(Run(line), MBuilderExitWrongUsage) << testing::PrintToString(line);
        EXPECT_EQ(output.told, "");
        EXPECT_FALSE(output.complaints.empty());
    }
}

TEST_F(BuilderCommandLineTest, EveryCommandHelpsWithExamples) {
    for (const char* command : {"pack", "check", "inspect", "verify", "extract"}) {
        EXPECT_EQ(Run({command, "--help"}), MBuilderExitDone);
        EXPECT_THAT(output.told, testing::HasSubstr(std::string("  setup-builder ") + command));
    }
    EXPECT_EQ(Run({"--help"}), MBuilderExitDone);
}

TEST_F(BuilderCommandLineTest, FailuresAreOneAndNameTheFile) {
    for (const char* command : {"check", "inspect", "verify"}) {
        EXPECT_EQ(Run({command, "@missing \xC3\xA4.xml"}), MBuilderExitFailed);
        EXPECT_THAT(JoinComplaints(), testing::HasSubstr("missing \xC3\xA4.xml"));
    }
    EXPECT_EQ(Pack("out", {"--define", "=x"}), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), testing::HasSubstr("Write NAME=TEXT."));
}
