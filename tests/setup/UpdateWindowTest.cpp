#include "setup/wizard/MUpdateInstallerWindow.h"
#include "tests/setup/WizardFixture.h"
#include "tests/update/DownloadFixture.h"

#include <atomic>

using testing::HasSubstr;

namespace {

/// An installation with one file, and a server that offers an update of it and two packages.
class UpdateWindowTest : public WizardTest {
protected:
    UpdateWindowTest() {
        SetState(server.GetAddress());
        Offer(MakeUpdate("new"));
    }
    ~UpdateWindowTest() noexcept override = default;

    void SetState(const MString& url) const {
        const std::string to = Text(directory);
        scratch.WriteFile("product/setup.state",
                          "<install name=\"Reverb\" id=\"reverb\" time=\"2026-01-01 00:00:00\" mainpath=\"" +
                              to + "\" updateaddress=\"" + Text(url).substr(strlen("http://")) +
                              "\"><files enabled=\"1\" currentpath=\"" + to + "/bin\"/></install>");
    }
    static std::string MakeUpdate(const std::string& content) {
        MTestPayload update(7);
        const std::string item = update.Add(content);
        return update.Finish("<update><files><file name=\"a.txt\" op=\"create\"" + item +
                             "/></files></update>");
    }
    void Offer(const std::string& update) {
        server.Put(
            "/?op=getindex",
            MTestBody(
                "<x><update name=\"R 2\" size=\"1024\" time=\"2026-02-01 00:00:00\" filename=\"u.dat\"/>"
                "<update name=\"P1\" package=\"1\" size=\"2048\" time=\"2025-01-01 00:00:00\" "
                "filename=\"p.dat\"/></x>"));
        server.Put("/?op=getupdate&updatename=u", MTestBody(update));
        server.Put("/?op=getupdate&updatename=p", MTestBody(MakeUpdate("package")));
    }
    /// Runs the window, with a user who does these things.
    template <class... Actions>
    MModalValue RunManager(Actions... actions) {
        (system.Post(actions, 2 * MWindowMessages::HoldOff), ...);
        MUpdateInstallerWindow window(directory, dialogs);
        return window.RunModal(nullptr);
    }
    MModalValue RunLocal(const MXMLItem& item, const std::string& library,
                         const std::function<void()>& action) {
        MMemoryStream stream = MStreamOf(library);
        system.Post(action, 2 * MWindowMessages::HoldOff);
        MUpdateInstallerWindow window(directory, dialogs, item, stream);
        return window.RunModal(nullptr);
    }
    [[nodiscard]] std::string GetInfo() {
        return Text(static_cast<MControlContent&>(Get("info")).GetCaption());
    }
    /// Answers what an installing ends with.
    void Finish() {
        system.Post([this] { WhenAsked([this] { told = Answer("closebutton"); }); },
                    2 * MWindowMessages::HoldOff);
    }
    [[nodiscard]] MString GetTime() {
        MXMLItem state;
        state.LoadFile(scratch.Join("product/setup.state"));
        return state.GetAttribute("time");
    }

    const MString directory = scratch.Join("product");
    MTestMirror server;
    std::string told;
};

TEST_F(UpdateWindowTest, InstallsUpdatesAndChosenPackages) {
    EXPECT_EQ(RunManager(
                  [&] {
                      EXPECT_THAT(GetInfo(), HasSubstr("packages: 0 of 1<p>Size: 0 B"));
                      for (const int32_t key : {MKeyTab, MKeyTab, MKeyTab, MKeyDown, MKeySpace})
                          user.PressKey(key);
                  },
                  [&] {
                      EXPECT_THAT(GetInfo(), HasSubstr("packages: 1 of 1<p>Size: 2.0 KB"));
                      EXPECT_THAT(GetInfo(), HasSubstr("<cgreen>3.0 KB</cgreen>"));
                      Click("Process");
                      Finish();
                  }),
              MModalValue::Ok);
    EXPECT_EQ(told, "Updates has been successfully installed.");
    EXPECT_EQ(scratch.ReadFile("product/bin/a.txt"), "package");
    EXPECT_EQ(Text(GetTime()), "2026-02-01 00:00:00");
    EXPECT_EQ(RunManager([&] { told = Answer("closebutton"); }), MModalValue::Ok);
    EXPECT_EQ(told, "No updates or packages are available at the moment.");
}

TEST_F(UpdateWindowTest, LeavingInstallsNothingAndFailuresAreTold) {
    EXPECT_EQ(RunManager([&] { Click("Exit"); },
                         [&] {
                             EXPECT_EQ(Answer("cancelbutton"),
                                       "Are you sure you want to close the application?");
                         },
                         [&] { Click("Exit"); }, [&] { (void)Answer("okbutton"); }),
              MModalValue::Cancel);
    EXPECT_FALSE(MFile::Exists(scratch.Join("product/bin")));
    Offer("broken");
    EXPECT_EQ(RunManager([&] {
                  Click("Process");
                  Finish();
              }),
              MModalValue::Ok);
    EXPECT_EQ(told, "The update has not been downloaded correctly. Please try again.");
    server.Put("/?op=getindex", NotFound);
    EXPECT_EQ(FailureOf([&] { (void)RunManager([] {}); }),
              "0: Could not connect the server. Please try again later.");
    scratch.WriteFile("product/setup.state", "<broken");
    EXPECT_EQ(RunManager([&] { told = Answer("closebutton"); }), MModalValue::Ok);
    EXPECT_EQ(told, "Software definition file has not been found. Please reinstall the application.");
}

TEST_F(UpdateWindowTest, AStopLetsTheUpdateInHandEnd) {
    std::atomic<bool> isReleased = false;
    MTestServer slow([&](const std::string& request) {
        const std::string path = MTestServer::GetPath(request);
        if (path == "/?op=getindex")
            return MTestBody("<x><update name=\"1\" filename=\"u.dat\" time=\"2026-02-01 00:00:00\"/>"
                             "<update name=\"2\" filename=\"v.dat\" time=\"2026-03-01 00:00:00\"/></x>");
        while (!isReleased) MPlatform::Sleep(1);
        return MTestBody(MakeUpdate(path.substr(path.size() - 1)));
    });
    SetState(slow.GetURL(""));
    EXPECT_EQ(RunManager([&] { Click("Process"); },
                         [&] {
                             while (slow.GetRequests().size() < 2) MPlatform::Sleep(1);
                             Click("Exit");
                         },
                         [&] {
                             EXPECT_EQ(Answer("okbutton"),
                                       "Are you sure you want to terminate the installation?");
                         },
                         [&] {
                             EXPECT_EQ(Answer("closebutton"),
                                       "Program will terminate as soon as current update is installed.");
                             isReleased = true;
                             Finish();
                         }),
              MModalValue::Ok);
    EXPECT_EQ(scratch.ReadFile("product/bin/a.txt"), "u");
    EXPECT_EQ(Text(GetTime()), "2026-02-01 00:00:00");
}

TEST_F(UpdateWindowTest, AnOfferAtHandAsksBeforeItIsInstalledAgain) {
    MXMLItem item("updateinformation");
    item.SetAttribute("name", "R <2>");
    item.SetAttribute("time", "2026-02-01 00:00:00");
    const auto install = [&](const std::string& content, const char* button) {
        return RunLocal(item, MakeUpdate(content), [&, button] {
            EXPECT_THAT(GetInfo(),
                        HasSubstr("install an update with following information:<p><p><b>R &lt;2&gt;</b>"));
            if (button)
                WhenAsked([&, button] {
                    EXPECT_THAT(Answer(button), HasSubstr("The update has already been installed."));
                    if (MString(button) == "okbutton") Finish();
                });
            else
                Finish();
            Click("Process");
        });
    };
    EXPECT_EQ(install("1", nullptr), MModalValue::Ok);
    EXPECT_EQ(install("2", "cancelbutton"), MModalValue::Cancel);
    EXPECT_EQ(scratch.ReadFile("product/bin/a.txt"), "1");
    EXPECT_EQ(install("3", "okbutton"), MModalValue::Ok);
    EXPECT_EQ(scratch.ReadFile("product/bin/a.txt"), "3");
}

}  // namespace
