#include "foundation/module/MPlatform.h"
#include "setup/console/MTextDialogs.h"
#include "setup/console/MUnattendedRun.h"
#include "tests/setup/SetupFixture.h"

namespace {

MList<MString> Words(std::initializer_list<const char*> texts) {
    MList<MString> words;
    for (const char* text : texts) words.Add(MDecodeUTF8Exact(text));
    return words;
}

}  // namespace

TEST(UnattendedOptionsTest, ReadsEveryWordInAnyCaseAndOrder) {
    const MUnattendedOptions options(Words({"locked=ignore", "Directory:vst=sub/ž=1", "COMPONENT:A=B=Off",
                                            "configuration=full", "accept-licence"}),
                                     MFile::GetCurrentPath());
    EXPECT_TRUE(options.acceptLicence);
    EXPECT_EQ(Text(*options.configuration), "full");
    EXPECT_EQ(Text(options.components[0].name), "A=B");
    EXPECT_EQ(Text(options.components[0].text), "Off");
    EXPECT_EQ(Text(options.directories[0].name), "vst");
    EXPECT_EQ(Text(options.directories[0].text), Text(MFile::GetCurrentPath()) + "/sub/ž=1");
    EXPECT_EQ(options.locked, MRetryAnswer::Ignore);
}

TEST(UnattendedOptionsTest, RefusesUnknownAndIncompleteWordsByName) {
    for (const char* word : {"accept", "component:X", "component:X=maybe", "component:=on", "directory:x",
                             "directory:x=", "directory:=x", "locked=", "locked=perhaps", "--help", ""}) {
        try {
            MUnattendedOptions options(Words({"accept-licence", word}), "C:/");
            ADD_FAILURE() << word;
        } catch (const MRefusal& refusal) {
            EXPECT_NE(Text(refusal.GetMessage()).find("\"" + std::string(word) + "\""), std::string::npos);
        }
    }
}

TEST(UnattendedOptionsTest, SilentMayStandAnywhere) {
    EXPECT_TRUE(MUnattendedOptions::IsRequested(Words({"a", "SILENT", "b"})));
    EXPECT_FALSE(MUnattendedOptions::IsRequested(Words({"silently"})));
    EXPECT_EQ(MUnattendedOptions::WithoutRequest(Words({"a", "silent", "b"})).GetCount(), 2);
}

class UnattendedRunTest : public SetupTest {
protected:
    ~UnattendedRunTest() noexcept override = default;

    void DefineProduct() {
        Define("<licence" + payload.Add("terms") + "/><configuration id=\"full\" name=\"Full\"/>" +
               "<configuration id=\"small\" name=\"Small\"/>" +
               "<directory id=\"destination\" name=\"D\" default=\"{scratch}/product\"/>" +
               "<directory id=\"extra\" name=\"E\" default=\"{scratch}/extra\"/>" +
               "<files required=\"1\" destination=\"{destination}\"><file name=\"core\" op=\"create\"" +
               payload.Add("core") + "/></files><files name=\"Extras\" configurations=\"full\" " +
               "destination=\"{extra}/in\"><file name=\"extra\" op=\"create\"" + payload.Add("extra") +
               "/></files>");
    }
    void Run(std::initializer_list<const char*> texts) {
        const MUnattendedOptions options(Words(texts), scratch.GetPath());
        MUnattendedDialogs dialogs(options.locked);
        MInstallViews views;
        views.dialogs = &dialogs;
        MUnattendedRun run(library, options, views);
        run.Validate();
        run.Perform();
    }
};

TEST_F(UnattendedRunTest, InstallsWhatIsProposedAndLeavesTheState) {
    DefineProduct();
    Run({"accept-licence"});
    EXPECT_EQ(scratch.ReadFile("product/core"), "core");
    EXPECT_EQ(scratch.ReadFile("extra/in/extra"), "extra");
    MXMLItem state;
    state.LoadFile(scratch.Join("product/setup.state"));
    EXPECT_EQ(Text(state.GetAttribute("mainpath")), InScratch("product"));
    EXPECT_EQ(Text(state.GetAttribute("adminrights")), "1");
    const MXMLItem* extras = state.FindSubItem("files", "name", "Extras");
    EXPECT_EQ(Text(extras->GetAttribute("currentpath")), InScratch("extra/in"));
    EXPECT_EQ(Text(extras->GetAttribute("enabled")), "1");
    EXPECT_EQ(extras->GetSubItem("file")->GetInt64Attribute("filesize"), 5);
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
    const std::initializer_list<const char*> refused[] = {
        {},
        {"accept-licence", "configuration=none"},
        {"accept-licence", "component:none=on"},
        {"accept-licence", "directory:none=x"},
    };
    for (const auto& words : refused) {
        DefineProduct();
        EXPECT_THROW(Run(words), MRefusal);
        EXPECT_EQ(scratch.ListTree(), "");
    }
}

TEST_F(UnattendedRunTest, ANameThatLeadsOutIsFoundBeforeAnythingIsWritten) {
    Define("<directory id=\"destination\" name=\"D\" default=\"{scratch}/product\"/>"
           "<files required=\"1\" destination=\"{destination}\"><dir name=\"d\"><file name=\"../../out\" "
           "op=\"create\"" +
           payload.Add("x") + "/></dir></files>");
    EXPECT_NE(FailureOf([&] { Run({}); }).find("\"../../out\""), std::string::npos);
    EXPECT_EQ(scratch.ListTree(), "");
}

TEST_F(UnattendedRunTest, AFailedRunLeavesNoState) {
    DefineProduct();
    scratch.WriteFile("product/core/inside", "in the way");
    EXPECT_THROW(Run({"accept-licence"}), MException);
    EXPECT_FALSE(MFile::Exists(scratch.Join("product/setup.state")));
    scratch.WriteFile("blocked", "a file");
    DefineProduct();
    EXPECT_THROW(Run({"accept-licence", "directory:destination=blocked"}), MException);
    EXPECT_EQ(scratch.ReadFile("blocked"), "a file");
}

TEST_F(UnattendedRunTest, AStateThatCannotBeWrittenIsAFailure) {
    DefineProduct();
    scratch.WriteFile("product/setup.state/inside", "in the way");
    EXPECT_THROW(Run({"accept-licence"}), MException);
    EXPECT_EQ(scratch.ReadFile("product/core"), "core");
}

TEST_F(UnattendedRunTest, AProductWithoutDirectoriesLeavesItsStateInTheMakersData) {
    Define("<files required=\"1\" destination=\"{data}/Tool\"><file name=\"f\" op=\"create\"" +
           payload.Add("x") + "/></files>");
    Run({});
    EXPECT_EQ(scratch.ReadFile("data/Tool/f"), "x");
    EXPECT_TRUE(MFile::Exists(scratch.Join("data/setup.state")));
}

TEST_F(UnattendedRunTest, NamesTheRequiredAttributeThatIsMissing) {
    struct {
        const char* children;
        const char* attribute;
    } const cases[] = {
        {"<configuration name=\"x\"/>", "id"},
        {"<configuration id=\"x\"/>", "name"},
        {"<directory name=\"x\" default=\"y\"/>", "id"},
        {"<directory id=\"x\" default=\"y\"/>", "name"},
        {"<directory id=\"x\" name=\"y\"/>", "default"},
        {"<files name=\"x\"/>", "destination"},
        {"<files required=\"1\" destination=\"{scratch}/to\"><file name=\"f\" op=\"create\"/></files>",
         "filestart"},
        {"<files name=\"x\" destination=\"{scratch}\"><copy destination=\"{scratch}\"><extension dst=\"y\"/></copy></files>",
         "src"},
    };
    for (const auto& [children, attribute] : cases) {
        Define(children);
        EXPECT_EQ(FailureOf([&] { Run({}); }),
                  std::string("0: Could not find required attribute (") + attribute + ").");
        EXPECT_FALSE(MFile::Exists(scratch.Join("data/setup.state")));
    }
}
