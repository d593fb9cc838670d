#include "builder/commands/MBuilderCommandLine.h"
#include "tests/builder/BuilderFixture.h"

#include <sstream>

using BuilderCommandLineTest = BuilderFixture;

TEST_F(BuilderCommandLineTest, WrongUsageIsTwo) {
    // A beginning and what may follow it, with blanks between the words; '' is an empty one.
    const std::pair<std::string, std::vector<std::string>> lines[] = {
        {"", {"", "bake", "check a.xml b.xml", "extract a.run", "verify a.run --xml"}},
        {"pack", {"", " a.xml", " a.xml --output"}},
        {"pack a.xml --output b ",
         {"--level 0", "--level 10", "--threads 0", "--compression lzma", "--form zip", "--form dat --stub c",
          "--form multi --stub c", "--form dat --part-size 1M", "--part-size 1M"}},
        {"pack a.xml --output b --form multi --part-size ", {"65535", "63K", "-1M", "1X", "99999999999G"}},
        {"blob", {"", " a b.xml", " a --output c", " a '' --output c", " a b.xml c.xml --output d"}},
        {"download-set a ", {"--id b --mirror c", "--id b --output d", "--mirror c --output d"}},
        {"download-set a --id b --mirror c --output ",
         {"''", "d --stub ''", "d --part-size 1023", "d --part-size 257M"}}};
    for (const auto& [begin, ends] : lines) {
        for (const std::string& end : ends) {
            std::vector<std::string> words;
            std::istringstream stream(begin + end);
            for (std::string word; stream >> word;) words.push_back(word == "''" ? "" : word);
            EXPECT_EQ(Run(words), MBuilderExitWrongUsage) << begin << end;
            EXPECT_EQ(output.told, "");
            EXPECT_FALSE(output.complaints.empty());
        }
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
        EXPECT_THAT(output.told, HasSubstr(std::string("  setup-builder ") + command));
    }
    EXPECT_EQ(Run({"--help"}), MBuilderExitDone);
}

TEST_F(BuilderCommandLineTest, FailuresAreOneAndNameTheFile) {
    for (const char* command : {"check", "inspect", "verify", "blob"}) {
        EXPECT_EQ(Run({command, "@missing \xC3\xA4.xml"}), MBuilderExitFailed);
        EXPECT_THAT(JoinComplaints(), HasSubstr("missing \xC3\xA4.xml"));
    }
    EXPECT_EQ(Pack("out", {"--define", "=x"}), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("Write NAME=TEXT."));
}
