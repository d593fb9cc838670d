#include "setup/wizard/MWizardFrontEnd.h"
#include "tests/setup/WizardFixture.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/edits/MEdit.h"

using testing::HasSubstr;

namespace {

class SetupWindowTest : public WizardTest {
protected:
    ~SetupWindowTest() noexcept override = default;

    /// A product with every page.
    void DefineProduct(const std::string& more = "", const std::string& attributes = "") {
        payload = MTestPayload(7);
        Define(
            "<onstart><info type=\"introduction\"/><info title=\"More\">Second</info></onstart><licence" +
                payload.Add("terms") +
                "/><configuration id=\"full\" name=\"Full\"/><configuration id=\"small\" name=\"Small\"/>"
                "<directory id=\"destination\" name=\"D\" default=\"{scratch}/product\"/>"
                "<directory id=\"extra\" name=\"E\" default=\"{scratch}/extra\" StoreSystemDefaults=\"1\"/>"
                "<files required=\"1\" destination=\"{destination}\"><file name=\"core\" op=\"create\"" +
                payload.Add("core") +
                "/></files><files name=\"Extras\" configurations=\"full\" destination=\"{extra}/in\">What is more"
                "<file name=\"extra\" op=\"create\"" +
                payload.Add("extra") + "/></files>" + more,
            attributes,
            "<onsuccess><info type=\"success\"/></onsuccess><onerror><info type=\"error\"/></onerror>"
            "<onabort><info type=\"abort\"/></onabort>");
    }
    void Next() { Click("Next"); }
    void GoToDirectories() {
        Next();
        Next();
        Agree();
        Next();
        Next();
    }
    void Agree() {
        EXPECT_FALSE(Get("Next").IsEnabled());
        Click("licenceagree");
        Next();
    }
};

TEST_F(SetupWindowTest, InstallsWhatTheSilentRunInstalls) {
    for (const char* attributes : {"", "updateaddress=\"u\""}) {
        const std::string offer = *attributes ? "<executeupdate enabled=\"1\"/>" : "";
        DefineProduct(offer, attributes);
        const MTreeSnapshot before = Look();
        std::string pages;
        const auto next = [&] {
            pages += GetPage() + " ";
            Next();
        };
        const MModalValue result = Run(
            next, next, [&] { Agree(); }, next, next, next,
            [&] {
                pages += GetPage();
                Click("Exit");
            });
        EXPECT_EQ(result, MModalValue::Cancel);
        EXPECT_EQ(pages, "onstart onstart configuration components directories onsuccess");
        EXPECT_EQ(path, Text(MPlatform::GetPathText(
                            scratch.Join(MString("product/setup.") + MPlatform::ExecutableExtension()))));
        const MTreeSnapshot byWizard = Look();

        before.Restore();
        DefineProduct(offer, attributes);
        InstallSilently();
        EXPECT_EQ(byWizard.DescribeChanges(Look()), "");
        before.Restore();
    }
}

TEST_F(SetupWindowTest, FollowsItsUserForthAndBack) {
    DefineProduct();
    (void)Run([&] { Next(); }, [&] { Next(); }, [&] { Agree(); },
              [&] {
                  Click("small");
                  Next();
                  EXPECT_FALSE(static_cast<MCheckBox&>(Get("CheckBox0")).IsOn());
                  Next();
                  EXPECT_FALSE(Get("browseextra").IsEnabled()) << "no chosen part uses it";
                  Click("Prev");
                  Click("CheckBox0");
                  Click("Prev");
                  Click("Prev");
                  EXPECT_EQ(GetPage(), "licence");
                  EXPECT_TRUE(static_cast<MCheckBox&>(Get("licenceagree")).IsOn());
                  Next();
                  Next();
                  EXPECT_FALSE(static_cast<MCheckBox&>(Get("CheckBox0")).IsOn());
                  Click("CheckBox0");
                  Next();
                  EXPECT_TRUE(Get("browseextra").IsEnabled());
                  MControl& label = Get("labelextra");
                  user.Click(Get("browseextra").GetScreenPoint({-20, 10}), 3);
                  user.PressKey(MKeyHome);
                  user.HoldKeys(MModifierShift);
                  user.PressKey(MKeyEnd);
                  user.HoldKeys(MModifierNone);
                  user.Type(scratch.Join("chosen"));
                  EXPECT_TRUE(label.IsShown());
                  Next();
              },
              [&] {
                  EXPECT_EQ(GetPage(), "onsuccess");
                  Click("Exit");
              });
    EXPECT_EQ(scratch.ReadFile("chosen/in/extra"), "extra");
}

TEST_F(SetupWindowTest, InstallsIntoNoFolderWithoutAName) {
    DefineProduct();
    std::string told;
    (void)Run([&] {
        GoToDirectories();
        user.Click(Get("browsedestination").GetScreenPoint({-20, 10}));
        user.HoldKeys(MModifierControl);
        user.PressKey('A');
        user.HoldKeys(MModifierNone);
        user.PressKey(MKeyDelete);
        WhenAsked([&] { told = Answer("closebutton"); });
        Next();
        system.AdvanceTime(2 * MWindowMessages::HoldOff);
        EXPECT_EQ(GetPage(), "onerror");
        Click("Exit");
    });
    EXPECT_THAT(told, HasSubstr("no complete path"));
}

TEST_F(SetupWindowTest, SearchesTheAgreement) {
    Define("<licence" + payload.Add("Terms of use: \xC3\xBC terms\r\nTERMS") + "/>");
    (void)Run([&] {
        auto& text = static_cast<MEdit&>(Get("licenceedit"));
        user.HoldKeys(MModifierControl);
        user.PressKey('F');
        user.HoldKeys(MModifierNone);
        user.Type("terms");
        std::vector<int32_t> places;
        for (int32_t i = 0; i < 4; ++i) {
            places.push_back(text.GetSelection().start);
            user.PressKey(MKeyEnter, u'\r');
        }
        EXPECT_EQ(places, (std::vector<int32_t>{0, 16, 22, 0}));
        user.HoldKeys(MModifierShift);
        user.PressKey(MKeyEnter, u'\r');
        user.HoldKeys(MModifierNone);
        EXPECT_EQ(Text(text.GetSelectedText()), "Terms");
        user.PressKey(MKeyEscape);
        EXPECT_TRUE(text.HasFocus());
        Click("Exit");
    });
}

TEST_F(SetupWindowTest, StaysAsWideAsItIsWhateverTheNamesAre) {
    const auto getWidth = [&](const std::string& name) {
        const std::string named = " name=\"" + name + "\"/>";
        Define("<licence agreetext=\"" + name + "\"" + payload.Add("terms") + "/><configuration id=\"a\"" +
               named + "<configuration id=\"b\"" + named + "<directory id=\"d\" default=\"{scratch}\"" +
               named + "<files destination=\"{d}\"" + named);
        int32_t width = 0;
        (void)Run([&] {
            MControl& window = *system.GetActiveRoot();
            Agree();
            for (const char* box : {"a", "CheckBox0"}) {
                MControl& control = Get(box);
                EXPECT_EQ(control.size.y, control.GetPlasticSize(1, control.size.x)) << "all of it is seen";
                EXPECT_FALSE(Find(window, "hscrollbar"));
                Next();
            }
            EXPECT_FALSE(Find(window, "hscrollbar"));
            width = window.size.x;
            window.CloseWindow(MModalValue::Cancel);
        });
        return width;
    };
    EXPECT_EQ(getWidth("W"), getWidth(std::string(2000, 'W')));
}

TEST_F(SetupWindowTest, IsLeftFromEveryPageByExitAndByTheBoxThatClosesIt) {
    for (const bool byExit : {true, false})
        for (int32_t steps = 0; steps < 5; ++steps) {
            DefineProduct("", "exitconfirm=\"Really?\"");
            const MTreeSnapshot before = Look();
            const auto leave = [&] {
                if (byExit)
                    Click("Exit");
                else
                    system.GetActiveRoot()->RequestClose();
            };
            const MModalValue result = Run([&] {
                for (int32_t step = 0; step < steps; ++step) {
                    if (GetPage() == "licence") Click("licenceagree");
                    Next();
                }
                const std::string page = GetPage();
                system.Post([&] { EXPECT_EQ(Answer("cancelbutton"), "Really?"); });
                leave();
                system.AdvanceTime(2 * MWindowMessages::HoldOff);
                EXPECT_EQ(GetPage(), page);
                system.Post([&] { (void)Answer("okbutton"); });
                leave();
                system.AdvanceTime(2 * MWindowMessages::HoldOff);
                EXPECT_EQ(GetPage(), "onabort") << page;
                leave();
            });
            EXPECT_EQ(result, MModalValue::Cancel);
            EXPECT_EQ(before.DescribeChanges(Look()).find("product"), std::string::npos);
        }
}

TEST_F(SetupWindowTest, TellsWhatStoppedItAndEndsOnThePageForThat) {
    DefineProduct();
    scratch.WriteFile("extra/in/extra/in the way", "x");
    std::string asked;
    (void)Run([&] {
        GoToDirectories();
        WhenAsked([&] {
            asked = Answer("cancelbutton");
            system.Post([&] { WhenAsked([&] { asked += Answer("closebutton"); }); },
                        2 * MWindowMessages::HoldOff);
        });
        Next();
        system.AdvanceTime(2 * MWindowMessages::HoldOff);
        EXPECT_EQ(GetPage(), "onerror");
        Click("Exit");
    });
    EXPECT_THAT(asked, HasSubstr("Could not rewrite file"));
    EXPECT_THAT(asked, HasSubstr("extra"));
    EXPECT_FALSE(MFile::Exists(scratch.Join("product/setup.state")));
}

TEST_F(SetupWindowTest, BeginsWithTheInstallingWhereNothingIsToBeAsked) {
    Define(
        "<configuration id=\"c\" name=\"C\" setup=\"0\"/><files required=\"1\" destination=\"{scratch}/to\"><file name=\"core\" op=\"create\"" +
        payload.Add("core") + "/></files>");
    EXPECT_EQ(Run([] {}), MModalValue::Ok) << "and ends after it, since no page is left";
    EXPECT_EQ(scratch.ReadFile("to/core"), "core");
}

TEST_F(SetupWindowTest, AsksAboutOlderVersionsThatAreThereFirst) {
    for (const char* state :
         {"programfiles/Corvanth/Old/setup.state", "programfiles/Corvanth/Older & Co/setup.state"})
        scratch.WriteFile(state, "<install/>");
    Define("<uninstall>Old</uninstall><uninstall>Absent</uninstall><uninstall>Older &amp; Co</uninstall>");
    std::string asked;
    system.Post([&] { asked = Answer("cancelbutton"); }, 2 * MWindowMessages::HoldOff);
    EXPECT_EQ(Run([] {}), MModalValue::Ok) << "and goes on";
    EXPECT_EQ(asked, "Setup needs to uninstall following software from your computer.<p><p>Old<p>Older &amp; "
                     "Co<p><p>Do you want to proceed?");
}

TEST_F(SetupWindowTest, ABoxDecidesAboutItsOwnProgram) {
    Define(
        "", "",
        "<onsuccess><info/><execute destination=\"x\" enabled=\"0\">One</execute><execute destination=\"y\">"
        "Two</execute></onsuccess><onerror/><onabort/>");
    EXPECT_EQ(Run([] {},
                  [&] {
                      Click("CheckBox1");
                      Click("Exit");
                  }),
              MModalValue::Cancel);
    for (const MXMLItem* item : library.FindSubItem("onsuccess")->GetSubItems())
        EXPECT_NE(item->GetAttribute("enabled", "0"), "1");
}

TEST_F(SetupWindowTest, TellsWhyAKindOfInstallationIsRefusedAndStaysOnThePage) {
    folders.SetPath(MSpecialFolderProgramFiles, scratch.Join("{programfiles64} (x86)"));
    Define("<configuration id=\"a\" name=\"A\"/><configuration id=\"wide\" name=\"B\" x64=\"1\"/>", "",
           "<onsuccess/><onerror/><onabort><info/></onabort>");
    std::string told;
    (void)Run([&] {
        Click("wide");
        system.Post([&] { told = Answer("closebutton"); });
        Click("Next");
        EXPECT_EQ(GetPage(), "configuration");
        system.GetActiveRoot()->CloseWindow(MModalValue::Cancel);
    });
    EXPECT_THAT(told, HasSubstr("cannot be used"));
}

TEST_F(SetupWindowTest, EndsWithoutAPageWhereTheFirstOneFailsAndNothingIsSaidToThat) {
    Define(
        "<configuration id=\"c\" name=\"C\" setup=\"0\"/><files required=\"1\" destination=\"{data}\"><file name=\"setup.dat\" op=\"create\"" +
        payload.Add("core") + "/></files>");
    std::string told;
    system.Post([&] { told = Answer("closebutton"); }, 2 * MWindowMessages::HoldOff);
    EXPECT_EQ(Run(), MModalValue::Ok);
    EXPECT_THAT(told, HasSubstr("brings a file"));
}

TEST_F(SetupWindowTest, SaysThatTheDisplayWasLostBeforeAnythingWasInstalled) {
    DefineProduct();
    MWizardFrontEnd frontEnd;
    testing::internal::CaptureStderr();
    system.Post([&] { system.Quit(); }, 1);
    EXPECT_EQ(frontEnd.Install(library), MExitFailed);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("display was lost"));
}

}  // namespace
