#include "tests/end_to_end/EndToEndFixture.h"
#include "tests/support/MKilledProgram.h"
#include "tests/support/MTestServer.h"
#include "tests/support/MTreeSnapshot.h"

using testing::HasSubstr;

/// A product in two versions, its update, and the server that offers it.
class UpdateTest : public EndToEndTest {
protected:
    UpdateTest() : server([this](const std::string& request) { return Answer(request); }) {
        scratch.WriteFile("product/1.0/same", "same");
        scratch.WriteFile("product/1.0/changed", "old");
        scratch.WriteFile("product/1.0/gone", "gone");
        scratch.WriteFile("product/1.1/same", "same");
        scratch.WriteFile("product/1.1/changed", "new");
        scratch.WriteFile("product/1.1/sub/added", "added");
        for (const char* version : {"1.0", "1.1"})
            scratch.WriteFile(MString("product/presets/") + version + "/Roompresets.xml",
                              std::string("<Set><preset name=\"Shipped ") + version + "\"/></Set>");
        for (const char* version : {"1.0", "1.1"}) PackVersion(version);
        MFile::CreatePath(InProduct("served"));
        Build(ToList(
            {"update", "1.0.dat", "1.1.dat", "--output", "served/Test-1.1.dat", "--showinfo", "Read this"}));
        Build(ToList({"update-server", "served", "--output", "tree", "--base", "/u/"}));
    }
    void PackVersion(const std::string& version, const std::string& more = "") {
        const std::string address = "127.0.0.1:" + std::to_string(server.GetPort()) + "/u";
        const std::string month = version == "1.0" ? "01" : "02";
        const std::string attributes = "name=\"Test Product\" id=\"Test\" time=\"2026-" + month +
                                       "-01 00:00:00\" updateaddress=\"" + address + "\"";
        const std::string children =
            "<files path=\"" + version + "\" destination=\"{destination}/files\" required=\"1\"/>" +
            "<files path=\"presets/" + version +
            "\" destination=\"{destination}/presets\" required=\"1\" rewritable=\"0\"/>" + more;
        PackAs(InHome(Name(version + "-installer.") + MPlatform::ExecutableExtension()), attributes,
               children);
        PackAs(InProduct(Name(version + ".dat")), attributes, children, {"--form", "dat"});
    }
    static MString Name(const std::string& name) { return MDecodeUTF8Exact(name); }
    [[nodiscard]] MTestReply Answer(const std::string& request) const {
        const std::string path = MTestServer::GetPath(request);
        if (path == "/u/?op=getindex") return MTestBody(scratch.ReadFile("product/tree/index.xml"));
        if (path == "/u/?op=getupdate&updatename=Test-1.1")
            return MTestBody(scratch.ReadFile("product/tree/updates/Test-1.1.dat"));
        return "HTTP/1.0 404 Not Found\n\n";
    }
    [[nodiscard]] MProgramResult InstallVersion(const char* version) const {
        return Start(InHome(Name(std::string(version) + "-installer.") + MPlatform::ExecutableExtension()),
                     ToList({"silent", "directory:destination=to"}));
    }
    void ExpectNewVersion() const {
        EXPECT_EQ(ReadHome("to/files/changed") + ReadHome("to/files/sub/added") + ReadHome("to/files/same"),
                  "newaddedsame");
        EXPECT_FALSE(IsInHome("to/files/gone"));
        for (const char* preset : {"Mine", "Shipped 1.1"})
            EXPECT_THAT(ReadHome("to/presets/Roompresets.xml"), HasSubstr(preset));
    }
    void ExpectRemoved() const {
        EXPECT_EQ(Start(GetRemover("to"), ToList({"silent"})).exitCode, 0);
        EXPECT_FALSE(IsInHome("to/files"));
        EXPECT_TRUE(IsInHome("to/presets/Roompresets.xml"));
    }
    [[nodiscard]] MProgramResult Update(std::initializer_list<const char*> words) const {
        return Start(GetRemover("to"), ToList(words));
    }

    static constexpr const char* Users = "<Set><preset name=\"Mine\"/></Set>";
    MTestServer server;
};

TEST_F(UpdateTest, BringsAnInstallationToTheNewVersion) {
    ASSERT_EQ(InstallVersion("1.0").exitCode, 0);
    MWriteTestFile(InHome("to/presets/Roompresets.xml"), Users);
    const MProgramResult checked = Update({"silent", "update", "check-only", "format=json"});
    EXPECT_EQ(checked.exitCode, 5) << checked.errors;
    EXPECT_THAT(checked.output, HasSubstr("\"installed\":0"));
    EXPECT_EQ(Update({"silent", "update", "packages=None such"}).exitCode, 2);
    EXPECT_EQ(ReadHome("to/files/changed"), "old");
    const MProgramResult updated = Update({"silent", "update", "format=json"});
    EXPECT_EQ(updated.exitCode, 0) << updated.errors;
    EXPECT_EQ(updated.output.front(), '{') << updated.output;
    EXPECT_THAT(updated.errors, HasSubstr("Read this"));
    ExpectNewVersion();
    EXPECT_EQ(Update({"silent", "update", "check-only"}).exitCode, 0);
    ExpectRemoved();
}

TEST_F(UpdateTest, ComesAsAProgram) {
    Build(ToList({"update", "1.0.dat", "1.1.dat", "--stub"}),
          {SETUP_PROGRAM, "--output", InHome("Update.exe")});
    ASSERT_EQ(InstallVersion("1.0").exitCode, 0);
    MWriteTestFile(InHome("to/presets/Roompresets.xml"), Users);
    EXPECT_EQ(Start(InHome("Update.exe"), ToList({"silent", "directory=nowhere"})).exitCode, 2);
    for (const char* outcome : {"successfully installed", "installed already"}) {
        const MProgramResult updated = Start(InHome("Update.exe"), ToList({"silent", "directory=to"}));
        EXPECT_EQ(updated.exitCode, 0) << updated.errors;
        EXPECT_THAT(updated.output, HasSubstr(outcome));
    }
    ExpectNewVersion();
    EXPECT_THAT(StartWithoutDisplay(InHome("Update.exe")), SaysWhatToDo("silent"));
    ExpectRemoved();
}

TEST_F(UpdateTest, ReplacesTheSetupProgram) {
    // What stands behind a program changes nothing about it.
    const std::string newer = MReadTestFile(SETUP_PROGRAM) + "newer";
    const std::string program = "updatesetup." + Text(MPlatform::ExecutableExtension());
    scratch.WriteFile("product/main-1.0/readme", "x");
    scratch.WriteFile("product/main-1.1/readme", "x");
    scratch.WriteFile(MDecodeUTF8Exact("product/main-1.1/" + program), newer);
    for (const std::string version : {"1.0", "1.1"}) PackVersion(version, ToDestination("main-" + version));
    Build(ToList({"update", "1.0.dat", "1.1.dat", "--output", "served/Test-1.1.dat", "--restart", "--execute",
                  program.c_str()}));
    Build(ToList({"update-server", "served", "--output", "tree", "--base", "/u/"}));

    ASSERT_EQ(InstallVersion("1.0").exitCode, 0);
    const MProgramResult updated = Update({"silent", "update"});
    EXPECT_EQ(updated.exitCode, 0) << updated.errors;
    EXPECT_THAT(updated.output, HasSubstr("The update requires the installer to exit."));
    const MString installed = GetRemover("to");
    for (int i = 0; i < 200 && MFile::GetFileSize(installed) != static_cast<int64_t>(newer.size()); ++i)
        MPlatform::Sleep(100);
    EXPECT_TRUE(MReadTestFile(installed) == newer);
    const MProgramResult checked = Update({"silent", "update", "check-only"});
    EXPECT_EQ(checked.exitCode, 0) << checked.errors;
    ExpectRemoved();
}

// Whatever the moment, the musician's preset stands in the file or in its backup, and the next run completes the
// update.
TEST_F(UpdateTest, CanBeKilledAndRepeated) {
    ASSERT_EQ(InstallVersion("1.0").exitCode, 0);
    MWriteTestFile(InHome("to/presets/Roompresets.xml"), Users);
    MGiveToTestUser(InHome("to/presets/Roompresets.xml"));
    const MTreeSnapshot before(ToList({Text(InHome("to")).c_str()}));
    const auto update = [&](int32_t fatalOperation, MDisturbance disturbance) {
        before.Restore();
        return MRunKilledProgram(GetRemover("to"), ToList({"silent", "update"}), InHome(""), InHome(""),
                                 fatalOperation, disturbance);
    };
    for (const MDisturbance disturbance : {MDisturbance::Kill, MDisturbance::FullDisk}) {
        const int32_t count = update(0, disturbance).operationCount;
        ASSERT_GT(count, 30);
        ExpectNewVersion();
        for (int32_t fatal = 1; fatal <= count && !HasFailure(); fatal += KILLED_RUN_STRIDE) {
            SCOPED_TRACE("disturbed at file operation " + std::to_string(fatal) + " of " +
                         std::to_string(count));
            (void)update(fatal, disturbance);
            const MString backup = InHome("to/presets/Roompresets.xmlbackup");
            EXPECT_THAT(ReadHome("to/presets/Roompresets.xml") +
                            (MFile::Exists(backup) ? MReadTestFile(backup) : std::string()),
                        HasSubstr("Mine"));
            const MProgramResult next = Update({"silent", "update"});
            EXPECT_EQ(next.exitCode, 0) << next.errors;
            ExpectNewVersion();
        }
    }
}
