#include "tests/end_to_end/EndToEndFixture.h"
#include "tests/support/MKilledProgram.h"
#include "tests/support/MTestServer.h"

/// A set of the builder's, offered by a server on this machine, and the program that users start in the home
/// folder.
class DownloadSetTest : public EndToEndTest {
protected:
    void Publish(const char* partSize) {
        Build(ToList({"download-set", "release", "--id", "Reverb-2", "--output", "published"}),
              {"--part-size", partSize, "--stub", SETUP_PROGRAM, "--mirror", server.GetURL("/get")});
        MFile::Rename(InProduct(MString("published/Reverb-2.") + MPlatform::ExecutableExtension()),
                      downloader);
    }
    [[nodiscard]] MTestReply Answer(const std::string& request) {
        const std::string path = MTestServer::GetPath(request);
        const MString file = InProduct("published") + MString::Copy(path.substr(path.find('/', 1)).c_str());
        if (!MFile::IsFile(file) || isGone) return "HTTP/1.0 404 Not Found\n\n";
        return MTestBody(MReadTestFile(file));
    }
    [[nodiscard]] MProgramResult Download() const { return Start(downloader, ToList({"silent"})); }
    void ExpectRelease() const {
        for (const char* name : {"sub/large.bin", "small.txt", "empty"})
            EXPECT_EQ(ReadHome(MString("Product/") + name),
                      MReadTestFile(InProduct(MString("release/") + name)))
                << name;
    }
    void WriteRelease() const {
        scratch.WriteFile("product/release/sub/large.bin", MTestNoise(20000));
        scratch.WriteFile("product/release/small.txt", "small");
        scratch.WriteFile("product/release/empty", "");
    }

    const MString downloader = GetInstaller();
    std::atomic<bool> isGone = false;
    MTestServer server{[this](const std::string& request) { return Answer(request); }};
};

TEST_F(DownloadSetTest, FetchesAnInstallerThatThenInstalls) {
    scratch.WriteFile("product/file.txt", "content");
    Pack(ToDestination("file.txt"));
    WriteRelease();
    const MString setup = MString("Reverb Setup.") + MPlatform::ExecutableExtension();
    MFile::Rename(GetInstaller(), InProduct("release/" + setup));
    Publish("100K");

    EXPECT_THAT(StartWithoutDisplay(downloader), SaysWhatToDo("silent"));
    EXPECT_EQ(Start(downloader, ToList({"silent", "accept-licence"})).exitCode, 2);
    EXPECT_FALSE(IsInHome("Product"));

    isGone = true;
    MProgramResult result = Download();
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors,
              "Could not connect to any download server. Please check your internet connection.\n");
    isGone = false;
    result = Download();
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    const MString fetched = InHome("Product/" + setup);
    EXPECT_TRUE(result.output.starts_with("Reverb-2 downloader\nConnecting the download server...\n"))
        << result.output;
    EXPECT_TRUE(
        result.output.ends_with("The software has successfully been downloaded.\n" + Text(fetched) + "\n"))
        << result.output;
    ExpectRelease();
    EXPECT_EQ(Start(fetched, ToList({"silent", "directory:destination=to"})).exitCode, 0);
    EXPECT_EQ(ReadHome("to/file.txt"), "content");

    if (MPlatform::GetName() == "windows") return;
    // A program without extension cannot share its name with the folder.
    MFile::DeleteTree(InHome("Product"));
    MFile::Rename(downloader, InHome("Product"));
    EXPECT_EQ(Start(InHome("Product"), ToList({"silent"})).exitCode, 0);
    EXPECT_TRUE(IsInHome("Product-download/small.txt"));
}

TEST_F(DownloadSetTest, ARunThatIsKilledAnywhereIsCompletedByTheNext) {
    WriteRelease();
    Publish("4K");
    const auto run = [&](int32_t fatalOperation) {
        return MRunKilledProgram(downloader, ToList({"silent"}), InHome(""), InHome(""), fatalOperation);
    };
    const int32_t count = run(0).operationCount;
    ASSERT_GT(count, 10);
    ExpectRelease();
    for (int32_t fatal = 1; fatal <= count; fatal += KILLED_RUN_STRIDE) {
        MFile::DeleteTree(InHome("Product"));
        EXPECT_TRUE(run(fatal).isKilled) << fatal;
        const MProgramResult result = Download();
        EXPECT_EQ(result.exitCode, 0) << fatal << ": " << result.errors;
        ExpectRelease();
    }
}
