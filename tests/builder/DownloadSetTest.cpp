#include "builder/downloads/MDownloadSetOutput.h"
#include "builder/downloads/MDownloadSetWriter.h"
#include "foundation/files/MFile.h"
#include "payload/MLargeResourceLibrary.h"
#include "payload/MPayloadFormat.h"
#include "payload/MSfx.h"
#include "tests/builder/DownloadSetFixture.h"

namespace {

class DownloadSetTest : public DownloadSetFixture {
protected:
    void WriteSmallSet() {
        scratch.WriteFile("files/a.txt", "hello");
        scratch.WriteFile("files/b/c.bin", MTestNoise(1500));
    }

    /// A file as its parts give it; the digests of all are those that the index tells.
    std::string JoinParts(const MXMLItem& file, std::vector<size_t>& sizes) {
        std::string content;
        for (const MXMLItem* part : file.GetSubItems()) {
            const std::string bytes = scratch.ReadFile("out/Tamborel-8.1/" + file.GetAttribute("ID") + "." +
                                                       part->GetValue() + ".zip");
            EXPECT_EQ(Text(part->GetAttribute("md5")), MTestDigest(bytes));
            sizes.push_back(bytes.size());
            content += bytes;
        }
        EXPECT_EQ(Text(file.GetAttribute("md5")), MTestDigest(content));
        return content;
    }

    static void ExpectDefinition(const MXMLItem& root) {
        EXPECT_EQ(Text(root.GetAttribute("ID")), "Tamborel-8.1");
        EXPECT_THAT(MSaveXML(root),
                    HasSubstr("<Mirror>http://a</Mirror><Mirror>HTTP://127.0.0.1:8080/x%20&amp;y/</Mirror>"));
    }

    const std::string secondMirror = "HTTP://127.0.0.1:8080/x%20&y/";
};

TEST_F(DownloadSetTest, IndexAndPartsGiveTheDirectoryBack) {
    struct File {
        const char* name;
        size_t size;
        std::vector<size_t> parts;
    };
    // In the order of UTF-16 units.
    const std::vector<File> files = {
        {".hidden &  odd", 7, {7}},
        {"Setup.exe", 2500, {1024, 1024, 452}},
        {"empty.txt", 0, {}},
        {"exact.bin", 2048, {1024, 1024}},
        {"one.bin", 1024, {1024}},
        {"sub/below/\xC3\xA4\xE2\x82\xAC \xF0\x9F\x98\x80x.txt", 1, {1}},
        {"sub/least.txt", 1023, {1023}},
        {"\xC3\xA4/b", 1025, {1024, 1}},
    };
    for (const File& file : files) scratch.WriteFile("files/" + Name(file.name), MTestNoise(file.size));
    MFile::CreatePath(scratch.Join("files/void/inner"));
    ASSERT_EQ(MakeSet({"--part-size", "1K"}), MBuilderExitDone) << JoinComplaints();
    EXPECT_THAT(output.told,
                HasSubstr("out/Tamborel-8.1: 8 files, 5 directories, 11 parts of at most 1024 bytes, "
                          "7628 bytes"));

    MXMLItem index;
    LoadTree(scratch.ReadFile("out/Tamborel-8.1/INDEX.ZIP"), index);
    EXPECT_EQ(index.GetInt64Attribute("Size"), 7628);
    std::vector<std::string> directories;
    size_t found = 0;
    for (const MXMLItem* item : index.GetSubItems()) {
        if (item->GetName() == "Directory") {
            directories.push_back(Text(item->GetValue()));
            continue;
        }
        ASSERT_LT(found, files.size());
        const File& file = files[found++];
        std::vector<size_t> sizes;
        EXPECT_EQ(Text(item->GetValue()), file.name);
        EXPECT_EQ(JoinParts(*item, sizes), MTestNoise(file.size)) << file.name;
        EXPECT_EQ(sizes, file.parts) << file.name;
    }
    EXPECT_EQ(found, files.size());
    EXPECT_THAT(directories, ElementsAre("sub", "sub/below", "void", "void/inner", "\xC3\xA4"));
}

TEST_F(DownloadSetTest, TheSameFilesGiveTheseBytes) {
    WriteSmallSet();
    // What a killed run has left goes.
    scratch.WriteFile("out/Tamborel-8.1.unfinished/Tamborel-8.1/9.9.zip", "x");
    ASSERT_EQ(MakeSet({"--part-size", "1K"}), MBuilderExitDone) << JoinComplaints();
    EXPECT_EQ(scratch.ListTree(), "files/\nfiles/a.txt\nfiles/b/\nfiles/b/c.bin\nout/\nout/Tamborel-8.1/\n"
                                  "out/Tamborel-8.1/1.1.zip\nout/Tamborel-8.1/2.1.zip\n"
                                  "out/Tamborel-8.1/2.2.zip\nout/Tamborel-8.1/INDEX.ZIP\n"
                                  "out/setup.dat\nout/setup.dat.md5\nstub\n");
    EXPECT_EQ(MTestDigest(scratch.ReadFile("out/Tamborel-8.1/INDEX.ZIP")),
              "9C21B550FC3F9CA6B8ADACE36604600B");
    EXPECT_EQ(scratch.ReadFile("out/setup.dat.md5"), "54B10060CAB58D0175ACF3A1F6CB8C57\n");
}

TEST_F(DownloadSetTest, PartsHaveAMebibyteUnlessTheMakerWantsOthers) {
    scratch.WriteFile("files/a", std::string((2 << 20) + 1, 'x'));
    ASSERT_EQ(MakeSet(), MBuilderExitDone) << JoinComplaints();
    EXPECT_EQ(scratch.ReadFile("out/Tamborel-8.1/1.3.zip"), "x");
}

TEST_F(DownloadSetTest, TheDefinitionStandsBehindTheProgram) {
    const std::pair<std::string, const char*> programs[] = {
        {scratch.ReadFile("stub"), "out/Tamborel-8.1.exe"},
        {"\177ELF is another program", "out/Tamborel-8.1.run"},
    };
    WriteSmallSet();
    for (const auto& [program, name] : programs) {
        // A payload that the program has goes.
        scratch.WriteFile("stub", program + "old" + std::string("MSFXMSFX\3\0\0\0\0\0\0\0", 16));
        ASSERT_EQ(MakeSet({"--mirror", secondMirror, "--stub", "@stub"}), MBuilderExitDone)
            << JoinComplaints();
        EXPECT_THAT(output.told, HasSubstr("\n  http://a/Tamborel-8.1/INDEX.ZIP\n"));
        EXPECT_THAT(output.told, HasSubstr("\n  HTTP://127.0.0.1:8080/x%20&y/Tamborel-8.1/INDEX.ZIP\n"));
        EXPECT_THAT(output.told, HasSubstr(name));
        EXPECT_EQ(scratch.ReadFile(name).substr(0, program.size()), program);

        {
            MSfx payload(scratch.Join(name));
            ASSERT_TRUE(payload.IsOpen());
            EXPECT_EQ(scratch.ReadFile(name).size(),
                      program.size() + static_cast<size_t>(payload.GetSize()) + MPayloadFormat::TrailerSize);
            MXMLItem root;
            root.LoadCompressed(payload);
            ExpectDefinition(root);
            // This is how the program tells a download from an installation.
            payload.Rewind();
            EXPECT_NE(FailureOf([&] { MLargeResourceLibrary().Attach(&payload); }), "none");
        }
        MFile::DeleteTree(scratch.Join("out"));
    }
}

TEST_F(DownloadSetTest, IDsThatCannotNameADirectoryAreRefused) {
    WriteSmallSet();
    for (const std::string id : {"", ".a", "a b", "a/b", "..", "a\\b", "a:b", "\xC3\xA4", "a%20"}) {
        ExpectRefused("The ID \"" + id + "\" cannot name a directory", {"--id", id});
    }
    ExpectRefused("is reserved by Windows", {"--id", "con.1"});
    ExpectRefused("ends with a dot", {"--id", "a."});
    ExpectRefused("is the name of a file beside the set", {"--id", "Setup.dat"});
    ExpectRefused("at most 100", {"--id", std::string(101, 'a')});
    EXPECT_EQ(MakeSet({"--id", "Setup.dat_" + std::string(90, '-')}), MBuilderExitDone) << JoinComplaints();
}

TEST_F(DownloadSetTest, MirrorsThatTheProgramCannotReachAreRefused) {
    WriteSmallSet();
    ExpectRefused("speaks no TLS", {"--mirror", "HTTPS://a/b"});
    for (const char* mirror : {"ftp://a", "a/b", "http://", "http:///x", "http://a:0", "http://a:65536",
                               "http://a:b", "http://a:", "http://u@a", "http://[::1]/", "http://a/?x",
                               "http://a/#x", "http://a/b c", "http://\xC3\xA4/"})
        ExpectRefused("is no address of a directory on a web server", {"--mirror", mirror});
    EXPECT_EQ(MakeSet({"--mirror", "http://a:65535"}), MBuilderExitDone) << JoinComplaints();
}

TEST_F(DownloadSetTest, ThereMustBeSomethingToDownloadAndAllProblemsAreToldAtOnce) {
    EXPECT_EQ(MakeSet({"--id", "a b", "--mirror", "https://a"}), MBuilderExitFailed);
    EXPECT_EQ(output.complaints.size(), 4u) << JoinComplaints();
    EXPECT_THAT(JoinComplaints(), HasSubstr("errors: 3. Nothing was written."));
    ExpectRefused("files\" is no directory");
    scratch.WriteFile("files", "");
    ExpectRefused("files\" is no directory");
    MFile::Delete(scratch.Join("files"));
    MFile::CreatePath(scratch.Join("files/a"));
    ExpectRefused("files\" holds no files");
}

TEST_F(DownloadSetTest, NamesThatTheDownloadCannotHaveAreRefused) {
    scratch.WriteFile("files/sub/Downloader.DAT", "this one is no state");
    ASSERT_EQ(MakeSet(), MBuilderExitDone) << JoinComplaints();
    MFile::DeleteTree(scratch.Join("out"));
    for (const char* name : {"Downloader.DAT", "Downlo~1.DAT", " blank"}) {
        scratch.WriteFile("files/" + MString(name), "x");
        ExpectRefused("The name \"" + std::string(name) + "\" ");
        MFile::DeleteTree(scratch.Join("files"));
    }
}

TEST_F(DownloadSetTest, TheOutputIsNewOrEmptyAndOutside) {
    WriteSmallSet();
    ExpectRefused("is in the directory to offer", {"--output", "@files"});
    ExpectRefused("is in the directory to offer", {"--output", "@files/b/../new"});
    ExpectRefused("is not empty", {"--output", "@"});
    ExpectRefused("is not empty", {"--output", "@stub"});
    EXPECT_EQ(MakeSet({"--output", "@files2/deep/er"}), MBuilderExitDone) << JoinComplaints();
    MFile::CreatePath(scratch.Join("out"));
    EXPECT_EQ(MakeSet(), MBuilderExitDone) << JoinComplaints();
    ExpectRefused("is not empty");
}

TEST_F(DownloadSetTest, WhatCannotAllTakeItsPlaceIsTakenBack) {
    {
        MDownloadSetOutput set(scratch.Join("out"), "x");
        for (const char* name : {"a", "b", "c/d"}) MWriteTestFile(set.GetPath(name), "new");
        scratch.WriteFile("out/b", "somebody else's");
        EXPECT_THAT(FailureOf([&] { set.Commit(); }), HasSubstr("Could not rename file"));
    }
    EXPECT_EQ(scratch.ListTree(), "out/\nout/b\nstub\n");
    EXPECT_EQ(scratch.ReadFile("out/b"), "somebody else's");
}

TEST_F(DownloadSetTest, AFileThatGrowsMeanwhileIsRefused) {
    MDownloadSetSources sources;
    sources.files.Add({"a", scratch.WriteFile("a", "more"), 3});
    EXPECT_THAT(FailureOf([&] { MDownloadSetWriter(scratch.Join(""), 1024, nullptr).Write(sources); }),
                HasSubstr("a\" changed while it was being read."));
}

TEST_F(DownloadSetTest, TooManyPartsAreRefused) {
    scratch.WriteFile("files/a", std::string(100'000 * 1024, 'x'));
    scratch.WriteFile("files/b", "y");
    ExpectRefused("There would be 100001 parts of at most 1024 bytes", {"--part-size", "1K"});
}

TEST_F(DownloadSetTest, AProgramThatCannotBeCopiedLeavesNothing) {
    WriteSmallSet();
    ExpectRefused("missing.exe\" could not be open", {"--stub", "@missing.exe", "--output", "@new/deep"});
    scratch.WriteFile("short.exe", "MZ");
    ExpectRefused("Name one by --stub.", {"--stub", "@short.exe", "--output", "@new/deep"});
}

}  // namespace
