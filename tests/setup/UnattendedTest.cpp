#include "foundation/base/MGuard.h"
#include "foundation/files/MFolderLock.h"
#include "foundation/files/MInstallationNames.h"
#include "setup/console/MSilentFrontEnd.h"
#include "setup/console/MUnattendedRun.h"
#include "tests/setup/SetupFixture.h"

using testing::HasSubstr;
using testing::Not;

namespace {

MList<MString> Words(const std::vector<const char*>& texts) {
    MList<MString> words;
    for (const char* text : texts) words.Add(MDecodeUTF8Exact(text));
    return words;
}

}  // namespace

TEST(UnattendedOptionsTest, ReadsEveryWordInAnyCaseAndOrder) {
    const MUnattendedOptions options(Words({"locked=ignore", "Directory:vst=sub/ž=1", "COMPONENT:A=B=Off",
                                            "remove-older=YES", "configuration=full", "accept-licence"}),
                                     MFile::GetCurrentPath());
    EXPECT_TRUE(options.acceptLicence);
    EXPECT_TRUE(options.removeOlder);
    EXPECT_EQ(Text(*options.configuration), "full");
    EXPECT_EQ(Text(options.components[0].name + "|" + options.components[0].text), "A=B|Off");
    EXPECT_EQ(Text(options.directories[0].name + "|" + options.directories[0].text),
              "vst|" + Text(MFile::GetCurrentPath()) + "/sub/ž=1");
    EXPECT_EQ(options.locked, MRetryAnswer::Ignore);

    EXPECT_TRUE(MUnattendedOptions::IsRequested(Words({"a", "SILENT"})));
    EXPECT_FALSE(MUnattendedOptions::IsRequested(Words({"silently"})));
}

TEST(UnattendedOptionsTest, RefusesUnknownAndIncompleteWordsByName) {
    for (const char* word : {"accept", "component:X", "component:X=maybe", "component:=on", "directory:x",
                             "directory:x=", "directory:=x", "locked=", "locked=perhaps", "execute=perhaps",
                             "remove-older=perhaps", "--help", ""})
        EXPECT_THAT(FailureOf([&] {
                        MUnattendedOptions(Words({"accept-licence", word}), "C:/");
                    }),
                    HasSubstr("\"" + std::string(word) + "\""));
}

TEST(UnattendedDialogsTest, ALockedFileIsTriedAgainButNotForEver) {
    MUnattendedDialogs dialogs(MRetryAnswer::Retry, 0);
    int32_t retries = 0;
    while (dialogs.AskRetry("held") == MRetryAnswer::Retry && retries < 1000) ++retries;
    EXPECT_EQ(retries, 60);
}

class UnattendedRunTest : public SetupTest {
protected:
    ~UnattendedRunTest() noexcept override = default;

    void DefineProduct() {
        Define("<uninstall>Old Tool</uninstall><licence" + payload.Add("terms") +
               "/><configuration id=\"full\" name=\"Full\"/><configuration id=\"small\" name=\"Small\"/>" +
               "<directory id=\"destination\" name=\"D\" default=\"{scratch}/product\"/>" +
               "<directory id=\"extra\" name=\"E\" default=\"{scratch}/extra\"/>" +
               "<files required=\"1\" destination=\"{destination}\"><file name=\"core\" op=\"create\"" +
               payload.Add("core") + "/></files><files name=\"Extras\" configurations=\"full\" " +
               "destination=\"{extra}/in\"><file name=\"extra\" op=\"create\"" + payload.Add("extra") +
               "/></files>");
    }
    void Run(const std::vector<const char*>& texts) {
        const MUnattendedOptions options(Words(texts), scratch.GetPath());
        MInstallViews views;
        views.infoText = infoText;
        views.dialogs = &dialogs;
        MUnattendedRun run(library, options, views);
        run.Validate();
        run.Perform();
    }

    /// Without the empty folder that the macros make.
    [[nodiscard]] std::string ListTree() const {
        MGuard("UnattendedRunTest", [&] { MFile::RemoveDirectory(scratch.Join("userdata/!temp")); });
        MGuard("UnattendedRunTest", [&] { MFile::RemoveDirectory(scratch.Join("userdata")); });
        return scratch.ListTree();
    }

    MTestDialogs dialogs{false};
    MTextView* infoText = nullptr;
};

TEST_F(UnattendedRunTest, InstallsWhatIsProposedAndLeavesTheState) {
    DefineProduct();
    // Of the right size, but another program.
    const MString setup = MGetSetupPath(scratch.Join("product"));
    MWriteTestFile(setup, "THE bytes of a program");
    Run({"accept-licence"});
    EXPECT_EQ(MReadTestFile(setup), "the bytes of a program");
    EXPECT_EQ(scratch.ReadFile("product/core"), "core");
    EXPECT_EQ(scratch.ReadFile("extra/in/extra"), "extra");
    MXMLItem state;
    state.LoadFile(scratch.Join("product/setup.state"));
    EXPECT_EQ(Text(state.GetAttribute("mainpath")), InScratch("product"));
    EXPECT_EQ(Text(state.FindSubItem("files", "name", "Extras")->GetAttribute("currentpath")),
              InScratch("extra/in"));
}

TEST_F(UnattendedRunTest, FollowsTheWords) {
    DefineProduct();
    Run({"accept-licence", "configuration=small", "directory:destination=chosen"});
    EXPECT_EQ(scratch.ReadFile("chosen/core"), "core");
    EXPECT_FALSE(MFile::Exists(scratch.Join("extra")));
    DefineProduct();
    Run({"accept-licence", "configuration=small", "component:extras=on", "directory:extra=more"});
    EXPECT_EQ(scratch.ReadFile("more/in/extra"), "extra");
}

TEST_F(UnattendedRunTest, RefusesBeforeWritingAnything) {
    const std::pair<std::vector<const char*>, const char*> refused[] = {
        {{}, "licence of Test Product has not been accepted"},
        {{"accept-licence", "configuration=none"}, "no configuration \"none\""},
        {{"accept-licence", "component:none=on"}, "no component \"none\""},
        {{"accept-licence", "directory:none=x"}, "no directory \"none\""},
    };
    for (const auto& [words, told] : refused) {
        DefineProduct();
        EXPECT_THAT(FailureOf([&] { Run(words); }), HasSubstr(told));
        EXPECT_EQ(scratch.ListTree(), "");
    }
    // Paths that the state would not give back, and such as would be expanded again.
    for (const char* path : {"Plu\xffgins", "\xff\xfe", "a\xef\xbb\xbf", "a\rb", "a\nb", "\xed\xa0\x80",
                             "x{UserDocuments}", "{extra}/in", "{}"}) {
        DefineProduct();
        const std::string word = std::string("directory:destination=") + path;
        EXPECT_THAT(FailureOf([&] {
                        Run({"accept-licence", word.c_str()});
                    }),
                    HasSubstr("\" cannot be used: "))
            << path;
        EXPECT_EQ(ListTree(), "");
    }
    DefineProduct();
    folders.SetPath(MSpecialFolderUser, scratch.Join("{data}"));
    EXPECT_THAT(FailureOf([&] { Run({"accept-licence"}); }), HasSubstr("\"{data}\" in its name"));
    folders.SetPath(MSpecialFolderUser, scratch.Join("user"));
    Define("<files destination=\"{data}\"><file name=\"../out\"/></files>");
    EXPECT_THAT(FailureOf([&] { Run({}); }), HasSubstr("\"../out\""));
    EXPECT_EQ(ListTree(), "");
}

TEST_F(UnattendedRunTest, RefusesADirectoryWhereItsOwnProgramWouldDoHarm) {
    const std::string installer = MTestPayload(1).Finish("<install name=\"Other\"/>");
    const std::pair<const char*, std::string> obstacles[] = {
        {"setup.dat", ""},
        {"setup.multi", ""},
        {"setup.state", "<install name=\"Other\"/>"},
        {"setup.state", "<install name=\"Test Product\" installationname=\"Other\"/>"},
        {MPlatform::ExecutableExtension() == "exe" ? "setup.exe" : "setup.run",
         "program" + installer + "MSFXMSFX" + MWordOf(static_cast<int64_t>(installer.size()), 8)},
    };
    for (const auto& [name, content] : obstacles) {
        MWriteTestFile(MFile::Join(scratch.Join("product"), name), content);
        DefineProduct();
        const std::string before = ListTree();
        const std::string failure = FailureOf([&] { Run({"accept-licence"}); });
        EXPECT_THAT(failure, HasSubstr("Test Product cannot be installed in \"" + InScratch("product")))
            << name;
        EXPECT_EQ(failure.find(": Other is installed there") != std::string::npos,
                  name == std::string("setup.state"));
        EXPECT_EQ(ListTree(), before);
        MFile::DeleteTree(scratch.Join("product"));
    }
    // It could be installed, and never be removed or upgraded.
    Define(R"(<directory id="d" name="D" default="{data}"/><files required="1" destination="{d}/x\..">)"
           R"(<copy required="1" destination="{d}"><extension src="txt" dst="DAT"/></copy>)"
           R"(<file name="setup.txt" op="create"/></files>)");
    EXPECT_THAT(FailureOf([&] { Run({}); }), HasSubstr("it brings a file \"setup.dat\" there"));
}

TEST_F(UnattendedRunTest, KeepsOtherSetupsAwayUntilItsEnd) {
    DefineProduct();
    std::vector<std::string> told;
    struct View final : MTextView {
        explicit View(std::function<void()> look) : look(std::move(look)) {}
        void SetText(const MString&) override { look(); }
        std::function<void()> look;
    } view([&] {
        for (const char* folder : {"userdata", "product"})
            told.push_back(FailureOf([&] { MFolderLock(scratch.Join(folder), "second", 0); }));
    });
    infoText = &view;
    Run({"accept-licence"});
    ASSERT_GE(told.size(), 2u);
    for (const std::string& text : told) EXPECT_THAT(text, HasSubstr("Test Product (process "));
    EXPECT_THAT(scratch.ListTree(), Not(HasSubstr("setup.lock")));
}

TEST_F(UnattendedRunTest, RefusesADefinitionThatLacksALastPage) {
    const std::string pages[] = {"<onsuccess/>", "<onerror/>", "<onabort/>"};
    for (const std::string& missing : pages) {
        std::string others;
        for (const std::string& page : pages) others += page == missing ? "" : page;
        Define("", "", others);
        EXPECT_EQ(MSilentFrontEnd({}).Install(library), MExitRefused) << missing;
        EXPECT_THAT(FailureOf([&] { Run({}); }),
                    HasSubstr("Could not find required subitem (" + missing.substr(1, missing.size() - 3)));
    }
    EXPECT_EQ(scratch.ListTree(), "");
}

TEST_F(UnattendedRunTest, AFailedRunTellsItsUnmergedPresetsToo) {
    Define(R"(<files required="1" rewritable="0" destination="{data}"><file name="presets.xml" op="create")" +
           payload.Add("<S/>") + R"(/><file name="broken" op="create"/></files>)");
    scratch.WriteFile("data/presets.xml", "no XML");
    const MUnattendedOptions options(Words({}), scratch.GetPath());
    MInstallViews views;
    views.dialogs = &dialogs;
    MUnattendedRun run(library, options, views);
    EXPECT_THROW(run.Perform(), MException);
    EXPECT_EQ(run.GetUnmerged().GetCount(), 1);
}

TEST_F(UnattendedRunTest, AnOlderVersionThatStaysIsToldAndTheRunGoesOn) {
    scratch.WriteFile("programfiles/Corvanth/Old Tool/setup.state", "<install/>");
    DefineProduct();
    Run({"accept-licence"});
    EXPECT_EQ(Text(dialogs.error), "");
    DefineProduct();
    Run({"accept-licence", "remove-older=yes"});
    EXPECT_THAT(Text(dialogs.error), testing::StartsWith("Old Tool could not be removed completely by \""));
    EXPECT_EQ(scratch.ReadFile("product/core"), "core");
}

TEST_F(UnattendedRunTest, AFailedRunLeavesNoState) {
    const char* const obstacles[] = {"product/core/inside", "product/setup.state/inside", "product"};
    for (const char* obstacle : obstacles) {
        scratch.WriteFile(obstacle, "in the way");
        DefineProduct();
        EXPECT_THROW(Run({"accept-licence"}), MException) << obstacle;
        EXPECT_FALSE(MFile::IsFile(scratch.Join("product/setup.state")));
        MFile::DeleteTree(scratch.Join("product"));
    }
}

TEST_F(UnattendedRunTest, AProductWithoutDirectoriesLeavesItsStateInTheMakersData) {
    Define("<files required=\"1\" destination=\"{data}/Tool\"><file name=\"f\" op=\"create\"" +
           payload.Add("x") + "/></files>");
    Run({});
    EXPECT_EQ(scratch.ReadFile("data/Tool/f"), "x");
    EXPECT_TRUE(MFile::Exists(scratch.Join("data/setup.state")));
}

/// Pages with programs, each of which writes its name to a log.
class UnattendedProgramsTest : public SetupTest {
protected:
    ~UnattendedProgramsTest() noexcept override = default;

    /// Installs, and gives the exit code and what was started.
    [[nodiscard]] std::string Install(const std::string& children, const char* word) {
        Define(children, "",
               "<onsuccess><info/>" + Execute("done") + Execute("off", "enabled=\"0\"") +
                   "<info/><execute destination=\"{userdata}/missing\"/>" +
                   Execute("ticked", "", "Start it") +
                   R"(<execute destination="no://address"/></onsuccess><onerror>)" + Execute("failed") +
                   "</onerror><onabort>" + Execute("aborted") + "</onabort>");
        MList<MString> words;
        if (*word) words.Add(word);
        const MString before = MFile::GetCurrentPath();
        const std::string code = std::to_string(MSilentFrontEnd(words).Install(library));
        MFile::SetCurrentPath(before);
        return code + TakeLog();
    }
    [[nodiscard]] std::string TakeLog() const {
        std::string names;
        const MString log = scratch.Join("userdata/sub/log");
        if (!MFile::Exists(log)) return names;
        for (const char byte : MReadTestFile(log))
            if (byte != '\r') names += byte == '\n' ? ' ' : byte;
        MFile::Delete(log);
        return names;
    }
};

TEST_F(UnattendedProgramsTest, StartTheProgramsOfThePagesOnTheirWay) {
    const std::string start =
        "<onstart>" + Execute("start") + "<execute destination=\"{extra}/x\"/></onstart>";
    EXPECT_EQ(Install(start, ""), "0start done ");
    EXPECT_EQ(Install(start, "execute=all"), "0start done ticked ");
    EXPECT_EQ(Install(start, "EXECUTE=NONE"), "0");
    const std::string broken =
        R"(<files required="1" destination="{data}"><file name="f" op="create"/></files>)";
    EXPECT_EQ(Install(start + broken, ""), "1start failed ");
    EXPECT_EQ(Install(start, "execute=some"), "2");
    EXPECT_EQ(Install("<onstart><execute/></onstart>", ""), "1");
    scratch.WriteFile("data/setup.state", "<install name=\"Another product\"/>");
    EXPECT_EQ(Install(start, ""), "2");
}
