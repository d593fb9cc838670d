#include "foundation/files/MFile.h"
#include "payload/MLargeResourceLibrary.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/builder/BuilderFixture.h"

namespace {

constexpr int64_t FileTime = 1419344366LL * 1000000;  // 2014-12-23 14:19:26
constexpr const char* Destination = " destination=\"{userdata}\" required=\"1\"";

class PackTest : public BuilderFixture {
protected:
    /// A product with a directory, a single file, a hand-written group, a licence and pictures of one name.
    void WriteProduct() {
        scratch.WriteFile("licence.txt", "You may.\n");
        scratch.WriteFile("band.png", "one");
        scratch.WriteFile("dense/band.png", "two");
        scratch.WriteFile("Presets/Halls/Large.xml", std::string(300000, 'L') + "end");
        scratch.WriteFile("Presets/Halls/Copy.xml", std::string(300000, 'L') + "end");
        scratch.WriteFile("Presets/a.xml", "small");
        scratch.WriteFile("Presets/B.xml", "SMALL");
        scratch.WriteFile(Name("Presets/\u00E4.xml"), "umlaut");
        scratch.WriteFile(Name("Presets/\U0001F600ab.xml"), "");
        scratch.WriteFile("bin/plug.dll", "plug-in");
        MFile::SetFileTime(scratch.Join("bin/plug.dll"), FileTime);
        WriteDefinition(
            "<licence name=\"licence.txt\"/>\n"
            "<topimage name=\"band.png\"><scaled percent=\"200\" name=\"dense/band.png\"/></topimage>\n"
            "<directory id=\"vst\" name=\"V\" default=\"{programfiles}/A &amp; &quot;B&quot;\">One\n two"
            "<default>{components}</default></directory>\n"
            "<files name=\"Presets\" path=\"Presets\" custom=\"{{KEPT}}\" destination=\"{userdata}\"/>\n"
            "<files name=\"Plug\" path=\"bin/plug.dll\" destination=\"{vst}\"/>\n"
            "<files name=\"Hand\" path=\"Presets\" destination=\"{data}\"><dir name=\"Halls\" op=\"create\">"
            "<file name=\"Large.xml\"/></dir><file name=\"old.xml\" op=\"delete\"/></files>\n");
    }

    std::string Inspect(const std::string& name) {
        EXPECT_EQ(Run({"inspect", "@" + name, "--xml"}), MBuilderExitDone) << JoinComplaints();
        return output.told;
    }
};

}  // namespace

TEST_F(PackTest, FillsGroupsFromDiskInOrder) {
    WriteProduct();
    ASSERT_EQ(Pack("out.run", {"--define", "KEPT=not this", "--define", "kept=a<b\n"}), MBuilderExitDone)
        << JoinComplaints();
    const std::string xml = Inspect("out.run");
    size_t position = 0;
    for (const char* expected :
         {"custom=\"a&lt;b&#10;\"", "name=\"B.xml\"", "<dir name=\"Halls\" op=\"create\" update=\"0\">",
          "name=\"Copy.xml\"", "name=\"Large.xml\"", "name=\"a.xml\"", "name=\"\u00E4.xml\"",
          "name=\"\U0001F600ab.xml\"", "name=\"\" op=\"create\" time=\"2014-12-23 14:19:26\" update=\"0\"",
          "<file name=\"old.xml\" op=\"delete\"/>"}) {
        position = xml.find(expected, position);
        ASSERT_NE(position, std::string::npos) << expected << "\n" << xml;
    }
}

TEST_F(PackTest, EveryFormComesBackWhole) {
    WriteProduct();
    for (const char* compression : {"bzip2", "zlib", "none"}) {
        ASSERT_EQ(Pack("out.run", {"--define", "kept=x", "--compression", compression, "--threads", "3"}), 0)
            << JoinComplaints();
        EXPECT_EQ(Run({"verify", "@out.run"}), MBuilderExitDone) << JoinComplaints();
        EXPECT_NE(Inspect("out.run").find("custom=\"x\""), std::string::npos);
        const std::string folder = std::string("@unpacked-") + compression;
        ASSERT_EQ(Run({"extract", "@out.run", "--output", folder}), MBuilderExitDone) << JoinComplaints();

        const MString root = Name(folder.substr(1));
        for (const char* name :
             {"Halls/Large.xml", "Halls/Copy.xml", "a.xml", "B.xml", "\u00E4.xml", "\U0001F600ab.xml"})
            EXPECT_TRUE(scratch.ReadFile(root + "/01-Presets/" + Name(name)) ==
                        scratch.ReadFile("Presets/" + Name(name)))
                << name;
        EXPECT_EQ(scratch.ReadFile(root + "/02-Plug/plug.dll"), "plug-in");
        EXPECT_EQ(scratch.ReadFile(root + "/licence/licence.txt"), "You may.\n");
        EXPECT_EQ(scratch.ReadFile(root + "/topimage/band.png"), "one");
        EXPECT_EQ(scratch.ReadFile(root + "/topimage-200/band.png"), "two");
        EXPECT_EQ(MFile::GetFileTime(scratch.Join(root + "/02-Plug/plug.dll")), FileTime);
    }
}

// The last program has a payload already, which goes.
TEST_F(PackTest, UnpackedProductPacksToTheSameBytes) {
    WriteProduct();
    ASSERT_EQ(Pack("out.run", {"--define", "KEPT=x"}), 0);
    ASSERT_EQ(Run({"extract", "@out.run", "--output", "@once"}), 0);
    ASSERT_EQ(Run({"pack", "@once/definition.xml", "--output", "@again.run", "--stub", "@stub"}), 0)
        << JoinComplaints();
    ASSERT_EQ(Run({"extract", "@again.run", "--output", "@twice"}), 0);
    ASSERT_EQ(Run({"pack", "@twice/definition.xml", "--output", "@third.run", "--stub", "@again.run"}), 0);
    EXPECT_TRUE(scratch.ReadFile("again.run") == scratch.ReadFile("third.run"));
}

TEST_F(PackTest, EqualContentsAreStoredOnce) {
    WriteProduct();
    ASSERT_EQ(Pack("setup.dat", {"--define", "KEPT=x", "--form", "dat", "--compression", "none"}), 0);
    MStdFileStream file;
    file.Open(scratch.Join("setup.dat"), MOpenRead);
    MLargeResourceLibrary library;
    library.Attach(&file);
    const MXMLItem* halls = library.FindSubItem("files")->FindSubItem("dir");
    const MXMLItem* copy = halls->FindSubItem("file", "name", "Copy.xml");
    const MXMLItem* large = halls->FindSubItem("file", "name", "Large.xml");
    EXPECT_EQ(copy->GetInt64Attribute("filestart"), large->GetInt64Attribute("filestart"));
    // Of one size, but not equal.
    const MXMLItem* presets = halls->GetParent();
    EXPECT_NE(presets->FindSubItem("file", "name", "a.xml")->GetInt64Attribute("filestart"),
              presets->FindSubItem("file", "name", "B.xml")->GetInt64Attribute("filestart"));
    EXPECT_LT(file.GetSize(), 2 * 300003);
    // A directory's text and fall-back survive side by side.
    const MXMLItem* directory = library.FindSubItem("directory", "id", "vst");
    EXPECT_EQ(Text(directory->GetValue()), "One two");
    EXPECT_EQ(Text(directory->GetAttribute("default")), "{programfiles}/A & \"B\"");
}

TEST_F(PackTest, DataFileHasItsCompanion) {
    WriteProduct();
    ASSERT_EQ(Pack("setup.dat", {"--define", "KEPT=x", "--form", "dat"}), 0);
    EXPECT_EQ(scratch.ReadFile("setup.dat.md5"), MTestDigest(scratch.ReadFile("setup.dat")) + "\n");
    EXPECT_EQ(Run({"verify", "@setup.dat"}), 0);
    scratch.WriteFile("setup.dat.md5", std::string(32, '0') + "\n");
    EXPECT_EQ(Run({"verify", "@setup.dat"}), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("setup.dat.md5: The digest is 0000"));
}

TEST_F(PackTest, FailureLeavesWhatWasThere) {
    WriteProduct();
    scratch.WriteFile("out/installer", "the old one");
    EXPECT_EQ(Pack("out/installer"), MBuilderExitFailed);
    EXPECT_EQ(Pack("out/installer", {"--define", "KEPT=x", "--stub", "@missing"}), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("Name one by --stub."));
    // So many different names that no installer would read the definition.
    WriteDefinition("<files name=\"N\" path=\"Presets\"" + std::string(Destination) + "/>" +
                    std::string("<note text=\"") + std::string(3 << 20, 'n') + "\"/>");
    EXPECT_EQ(Pack("out/installer", {"--compression", "none"}), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("an installer reads at most 2097152."));
    EXPECT_EQ(scratch.ReadFile("out/installer"), "the old one");
    EXPECT_EQ(MFile::GetFileList(scratch.Join("out")).GetCount(), 1);
}

TEST_F(PackTest, OutputsReplaceNoInput) {
    WriteProduct();
    for (const char* name : {"product.dat.md5", "setup.multi.unfinished/product.xml", "setup.multi7.cab"})
        scratch.WriteFile(name, MakeDefinition(""));
    const std::string before = scratch.ListTree();
    std::vector<std::pair<const char*, std::vector<std::string>>> lines = {
        {"product.xml", {"--output", "@bin/../product.xml", "--stub", "@stub"}},
        {"product.xml", {"--output", "@stub", "--stub", "@bin/../stub"}},
        {"product.xml", {"--output", "@bin/plug.dll", "--stub", "@stub"}},
        {"product.xml", {"--output", "@product", "--stub", "@product.unfinished"}},
        {"product.dat.md5", {"--output", "@product.dat", "--form", "dat"}},
        {"setup.multi.unfinished/product.xml", {"--output", "@setup.multi", "--form", "multi"}},
        {"setup.multi7.cab", {"--output", "@setup.multi", "--form", "multi"}},
    };
    if (MFile::Exists(scratch.Join("STUB")))
        lines.push_back({"product.xml", {"--output", "@STUB", "--stub", "@stub"}});
    MFile::Copy(scratch.Join("stub"), scratch.Join("product.unfinished"));
    for (const auto& [definition, options] : lines) {
        std::vector<std::string> words = {"pack", std::string("@") + definition, "--define", "KEPT=x"};
        words.insert(words.end(), options.begin(), options.end());
        EXPECT_EQ(Run(words), MBuilderExitFailed) << options[1];
        EXPECT_THAT(JoinComplaints(), HasSubstr("\" would replace \"")) << options[1];
    }
    MFile::Delete(scratch.Join("product.unfinished"));
    EXPECT_EQ(scratch.ListTree(), before);
}

TEST_F(PackTest, ProgressGoesFromNothingToAllAndAway) {
    WriteProduct();
    output.isWatched = true;
    ASSERT_EQ(Pack("out.run", {"--define", "KEPT=x"}), 0);
    ASSERT_GE(output.progress.size(), 3u);
    EXPECT_EQ(output.progress.front(), "[" + std::string(40, '.') + "] 0 %");
    EXPECT_EQ(output.progress[output.progress.size() - 2], "[" + std::string(40, '#') + "] 100 %");
    EXPECT_EQ(output.progress.back(), "");
}
