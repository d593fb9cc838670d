#include "install/run/MUninstallRun.h"
#include "setup/console/MUnattendedRun.h"
#include "setup/wizard/MUninstallWindow.h"
#include "tests/setup/WizardFixture.h"
#include "tests/support/MTestServer.h"
#include "update/MSubmitNote.h"

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr const char* Done = "Uninstallation has been completed.";

class UninstallWindowTest : public WizardTest {
protected:
    ~UninstallWindowTest() noexcept override = default;

    /// A file of the product outside of the folder of its program, and a link.
    void Install(const std::string& attributes = "") {
        payload = MTestPayload(7);
        Define("<directory id=\"destination\" name=\"D\" default=\"{scratch}/product\"/>"
               "<files required=\"1\" destination=\"{destination}/sub\"><file name=\"core\" op=\"create\"" +
                   payload.Add("core") +
                   "/></files><shortcut name=\"Tool\" destination=\"{destination}/sub/core\"/>",
               attributes);
        const MUnattendedOptions options({}, scratch.GetPath());
        MUnattendedRun run(library, options, views);
        run.Validate();
        run.Perform();
    }
    /// Runs the window, with a user who does these things.
    template <class... Actions>
    MModalValue RunUninstaller(Actions... actions) {
        (system.Post(actions, 2 * MWindowMessages::HoldOff), ...);
        MUninstallWindow window(scratch.Join("product"), dialogs, updates);
        window.noteAddress = noteAddress;
        return window.RunModal(nullptr);
    }
    /// Answers the message that a removal ends with, over a window in which nothing can be done.
    void Finish() {
        MControl& window = *system.GetActiveRoot()->GetRootState().windowParent.Get();
        for (const char* name : {"uninstall", "cancel", "option0", "details"})
            EXPECT_FALSE(Find(window, name)->IsEnabled()) << name;
        EXPECT_FALSE(window.CanClose());
        told = Answer("closebutton");
    }

    MTestDialogs answers{false};
    MInstallViews views{.dialogs = &answers};
    MString noteAddress;
    std::function<void()> updates;
    std::string told;
};

TEST_F(UninstallWindowTest, RemovesWhatTheSilentRemovalRemoves) {
    const auto put = [&](bool isShared) {
        Install();
        if (isShared) scratch.WriteFile("product/sub/own", "the user's");
    };
    for (const bool isShared : {false, true}) {
        put(isShared);
        MUninstallRun(scratch.Join("product"), views).PerformUninstallation();
        const std::string silent = scratch.ListTree();
        put(isShared);
        EXPECT_NE(scratch.ListTree(), silent);
        EXPECT_EQ(RunUninstaller([&] { Click("uninstall"); }, [&] { Finish(); }), MModalValue::Ok);
        EXPECT_EQ(scratch.ListTree(), silent);
        const testing::Matcher<std::string> kept =
            AllOf(HasSubstr("harmless.<p><p>These folders stay"), EndsWith("product/sub"));
        EXPECT_THAT(told, isShared ? kept : Done);
    }
}

TEST_F(UninstallWindowTest, LeavingAndUpdatingTouchNothing) {
    Install("update=\"1\"");
    const std::string before = scratch.ListTree();
    bool isShown = true;
    updates = [&] {
        isShown = system.GetActiveRoot() != nullptr;
        MRaise(MExceptionGeneral, "No server.");
    };
    EXPECT_EQ(RunUninstaller([&] { user.PressKey(MKeyEnter); }), MModalValue::Cancel);
    EXPECT_EQ(RunUninstaller([&] { user.PressKey(MKeyEscape); }), MModalValue::Cancel);
    EXPECT_EQ(RunUninstaller([&] { Click("update"); }), MModalValue::Ok);
    EXPECT_FALSE(isShown) << "the update manager comes in place of the window";
    EXPECT_EQ(scratch.ListTree(), before);
}

TEST_F(UninstallWindowTest, TellsTheMakerWhyAndIsStoppedByNoAnswer) {
    const std::vector<MTestReply> replies = {MTestBody(""), MTestBody("Not today."), "",
                                             "HTTP/1.0 500 No\n\n"};
    size_t count = 0;
    MTestServer server([&](const std::string&) { return replies[count++]; });
    const auto remove = [&](bool ticks, const char* comment) {
        Install();
        const auto fillIn = [&] {
            if (ticks)
                for (const int32_t key : {MKeyTab, MKeySpace}) user.PressKey(key);
            if (ticks) Click("option4");
            Click("details");
            user.Type(comment);
            for (const int32_t key : {MKeyTab, MKeySpace}) user.PressKey(key);
        };
        EXPECT_EQ(RunUninstaller(fillIn, [&] { Finish(); }), MModalValue::Ok);
        EXPECT_EQ(told, Done);
    };
    noteAddress = server.GetURL("/form.php");
    remove(false, " \t ");
    EXPECT_TRUE(server.GetRequests().empty());
    for (size_t i = 0; i < replies.size(); ++i) remove(true, "  It hums. \t");
    noteAddress = "127.0.0.1:1/nobody";
    remove(true, "");
    const std::string hash = MTestDigest(Text(MMakeNoteToken()) + "UNINSTALLATION - Test Product");
    ASSERT_EQ(server.GetRequests().size(), replies.size());
    EXPECT_THAT(
        server.GetRequests()[0],
        AllOf(StartsWith("POST /form.php HTTP/1.0\n"),
              EndsWith("\n\nemail=&text=I like it, I will install it again.\nIt does not work... <i>(please "
                       "specify what it does)</i>\n\n\nIt hums.&subject=UNINSTALLATION - Test "
                       "Product&hash=" +
                       hash + "&attachementname=&attachement=")));
}

TEST_F(UninstallWindowTest, TellsAtOnceWhatItCannotRemove) {
    const std::pair<const char*, const char*> states[] = {
        {"", "Sorry. The software definition file has not been found."},
        {"<install name=\"A", "Sorry. The software definition file has not been found."},
        {"<install name=\"A\" mainpath=\"/elsewhere\"/>", "A was installed in &quot;/elsewhere&quot;"}};
    for (const auto& [state, error] : states) {
        if (*state) scratch.WriteFile("product/setup.state", state);
        EXPECT_EQ(RunUninstaller([&] { told = Answer("closebutton"); }), MModalValue::Ok);
        EXPECT_THAT(told, HasSubstr(error));
    }
}

}  // namespace
