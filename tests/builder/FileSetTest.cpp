#include "builder/reports/MFileSet.h"
#include "foundation/files/MFile.h"
#include "streams/file_sets/MMultiFileStream.h"
#include "tests/builder/BuilderFixture.h"

#include <functional>
#include <set>

namespace {

class FileSetTest : public BuilderFixture {
protected:
    /// A product of `size` bytes that do not compress.
    void WriteProduct(size_t size = 200000) {
        scratch.WriteFile("noise", MTestNoise(size));
        WriteDefinition("<files name=\"N\" path=\"noise\" destination=\"{data}\"/>");
    }
    int32_t PackSet(std::vector<std::string> more = {}) {
        more.insert(more.end(), {"--form", "multi", "--part-size", "64K"});
        return Pack("set/setup.multi", more);
    }
    static MString Part(int number) { return "set/setup.multi" + MNumberToText(number) + ".cab"; }
    std::string ReadPart(int number) { return scratch.ReadFile(Part(number)); }
    [[nodiscard]] std::set<std::string> ListSet() const {
        std::set<std::string> names;
        for (const MFileListEntry& entry : MFile::GetFileList(scratch.Join("set")))
            names.insert(Text(entry.name));
        return names;
    }
};

}  // namespace

TEST_F(FileSetTest, PartsHoldTheBytesOfTheDataFileAndComeBackWhole) {
    WriteProduct();
    MFile::CreatePath(scratch.Join("set"));
    for (const char* compression : {"bzip2", "none"}) {
        ASSERT_EQ(PackSet({"--compression", compression, "--threads", "3"}), 0) << JoinComplaints();
        EXPECT_THAT(output.told, HasSubstr("setup.multi: 4 parts of at most 65536 bytes"));
        const std::string index = scratch.ReadFile("set/setup.multi");
        EXPECT_THAT(ListSet(), ElementsAre("setup.multi", "setup.multi1.cab", "setup.multi2.cab",
                                           "setup.multi3.cab", "setup.multi4.cab"));
        ASSERT_EQ(Pack("setup.dat", {"--form", "dat", "--compression", compression}), 0);
        EXPECT_TRUE(ReadPart(1) + ReadPart(2) + ReadPart(3) + ReadPart(4) == scratch.ReadFile("setup.dat"));
        EXPECT_EQ(ReadPart(3).size(), 65536u);

        EXPECT_EQ(Run({"verify", "@set/setup.multi"}), 0) << JoinComplaints();
        EXPECT_THAT(output.told, HasSubstr("setup.multi: 4 parts, 0 bad\n"));
        ASSERT_EQ(Run({"inspect", "@set/setup.multi"}), 0);
        EXPECT_THAT(output.told, HasSubstr("form        file set\n"));
        EXPECT_THAT(output.told, HasSubstr("\nParts\n  setup.multi1.cab: 65536 bytes\n"));
        const std::string folder = std::string("unpacked-") + compression;
        ASSERT_EQ(Run({"extract", "@set/setup.multi", "--output", "@" + folder}), 0) << JoinComplaints();
        EXPECT_TRUE(scratch.ReadFile(MDecodeUTF8Exact(folder) + "/01-N/noise") == scratch.ReadFile("noise"));

        ASSERT_EQ(PackSet({"--compression", compression, "--threads", "1"}), 0);
        EXPECT_EQ(scratch.ReadFile("set/setup.multi"), index);
    }
}

TEST_F(FileSetTest, ASmallerSetReplacesALargerOneAndWhatAKilledRunHasLeft) {
    WriteProduct(400000);
    MFile::CreatePath(scratch.Join("set"));
    ASSERT_EQ(PackSet(), 0);
    WriteProduct();
    for (const char* other :
         {"setup.multi05.cab", "setup.multi5.cab.old", "setup.multi-5.cab", "setup.multix"})
        scratch.WriteFile(MString("set/") + other, "somebody's");
    // A killed cleaning has left a gap, a killed packing its directory.
    MFile::Delete(scratch.Join("set/setup.multi6.cab"));
    scratch.WriteFile("set/setup.multi.unfinished/setup.multi1.cab", "half");
    ASSERT_EQ(PackSet(), 0) << JoinComplaints();
    EXPECT_THAT(ListSet(), ElementsAre("setup.multi", "setup.multi-5.cab", "setup.multi05.cab",
                                       "setup.multi1.cab", "setup.multi2.cab", "setup.multi3.cab",
                                       "setup.multi4.cab", "setup.multi5.cab.old", "setup.multix"));
    EXPECT_EQ(Run({"verify", "@set/setup.multi"}), 0) << JoinComplaints();
}

TEST_F(FileSetTest, FailureLeavesTheOldSetWhole) {
    WriteProduct();
    MFile::CreatePath(scratch.Join("set"));
    ASSERT_EQ(PackSet(), 0);
    const std::string before = scratch.ListTree();
    WriteProduct(300000);
    scratch.WriteFile("set/setup.multi5.cab/inside", "in the way");
    EXPECT_EQ(PackSet(), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("setup.multi5.cab\" is a directory."));
    MFile::DeleteTree(scratch.Join("set/setup.multi5.cab"));
    // The index of the payload would be larger than a reader takes.
    WriteDefinition("<note text=\"" + std::string(3 << 20, 'n') + "\"/>");
    EXPECT_EQ(PackSet({"--compression", "none"}), MBuilderExitFailed);
    EXPECT_EQ(scratch.ListTree(), before);
    EXPECT_EQ(Run({"verify", "@set/setup.multi"}), 0) << JoinComplaints();
}

TEST_F(FileSetTest, EveryBadPartIsTold) {
    WriteProduct();
    MFile::CreatePath(scratch.Join("set"));
    ASSERT_EQ(PackSet(), 0);
    const std::string parts[] = {ReadPart(1), ReadPart(2), ReadPart(3), ReadPart(4)};
    const auto withWrongByte = [](std::string bytes) {
        bytes[bytes.size() / 2] = static_cast<char>(~bytes[bytes.size() / 2]);
        return bytes;
    };
    const struct {
        std::function<void()> damage;
        std::vector<std::string> told;
    } cases[] = {
        {[&] { scratch.WriteFile(Part(2), withWrongByte(parts[1])); },
         {"setup.multi2.cab: Its MD5 is not the one"}},
        {[&] { scratch.WriteFile(Part(2), parts[1].substr(1)); },
         {"setup.multi2.cab: It has 65535 bytes, and the index tells 65536."}},
        // The last part holds the end of the payload, without which nothing else can be read.
        {[&] {
             scratch.WriteFile(Part(1), "");
             scratch.WriteFile(Part(4), parts[3] + "more");
         },
         {"setup.multi1.cab: It has 0 bytes", "setup.multi4.cab: It has ", "cannot be read as an installer"}},
        {[&] { MFile::Delete(scratch.Join("set/setup.multi3.cab")); }, {"Could not find file"}},
    };
    for (const auto& [damage, told] : cases) {
        for (int i = 0; i < 4; ++i) scratch.WriteFile(Part(i + 1), parts[i]);
        damage();
        EXPECT_EQ(Run({"verify", "@set/setup.multi"}), MBuilderExitFailed);
        for (const std::string& line : told) EXPECT_THAT(JoinComplaints(), HasSubstr(line));
    }
    EXPECT_EQ(Run({"extract", "@set/setup.multi", "--output", "@nowhere"}), MBuilderExitFailed);
    EXPECT_FALSE(MFile::Exists(scratch.Join("nowhere")));
}

TEST_F(FileSetTest, ContentTellsASetFromADataFile) {
    WriteProduct();
    MFile::CreatePath(scratch.Join("set/inner"));
    ASSERT_EQ(PackSet(), 0);
    MFile::Rename(scratch.Join("set/setup.multi"), scratch.Join("set/inner/renamed.dat"));
    EXPECT_EQ(Run({"verify", "@set/inner/renamed.dat"}), 0) << JoinComplaints();
    EXPECT_THAT(output.told, HasSubstr("4 parts, 0 bad"));

    // A payload that begins with what could be an index.
    scratch.WriteFile("preset.xml", "<Set><File Name=\"../x\"/></Set>\n");
    WriteDefinition("<files name=\"P\" path=\"preset.xml\" destination=\"{data}\"/>");
    ASSERT_EQ(Pack("setup.multi", {"--form", "dat", "--compression", "none"}), 0);
    EXPECT_EQ(Run({"inspect", "@setup.multi"}), 0) << JoinComplaints();
    EXPECT_THAT(output.told, HasSubstr("form        data file\n"));
    // And an executable whose last number looks like the end of a text.
    scratch.WriteFile("program", std::string("x\xd8\xc0\x3e\x02\0\0\0\0", 9));
    EXPECT_FALSE(MIsXMLFile(scratch.Join("program")));
}
