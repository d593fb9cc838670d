#include "tests/support/MScratch.h"
#include "tests/support/MTestModule.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/dialogs/MDialogs.h"
#include "ui/dialogs/MEditTextDialog.h"
#include "ui/dialogs/MMessageDialogWindow.h"
#include "ui/dialogs/MProgressWindow.h"
#include "ui/dialogs/MWizardWindow.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/values/MProgressBar.h"

#include <chrono>
#include <thread>

namespace {

class DialogsTest : public WidgetTest {
protected:
    DialogsTest() {
        Open(root);
        Take();
    }
    ~DialogsTest() noexcept override = default;

    /// A control below another one, by its name.
    static MControl* Find(MControl& control, const MString& name) {
        if (control.GetName() == name) return &control;
        for (MControl* child : control.GetChildren())
            if (MControl* const found = Find(*child, name)) return found;
        return nullptr;
    }
    MControl& Dialog() { return *system.GetActiveRoot(); }
};

TEST_F(DialogsTest, AsksByAMessage) {
    using enum MMessageButtons;
    using enum MModalValue;
    const struct {
        MMessageButtons buttons;
        MStdBitmap bitmap;
        MModalValue safe;
        std::vector<int32_t> keys;
        MModalValue answer;
        const char* caption;
    } cases[] = {
        {Close, MStdBitmap::Notice, Yes, {MKeyEnter}, Ok, "Information"},
        {Close, MStdBitmap::Exclamation, Yes, {MKeyEscape}, Cancel, "Error"},
        {YesNo, MStdBitmap::Question, Yes, {MKeyEnter}, Yes, "Question"},
        {YesNo, MStdBitmap::Question, No, {MKeyEnter}, No, "Question"},
        {YesNo, MStdBitmap::Question, Yes, {MKeyLeft, MKeySpace}, No, "Question"},
        {YesNoIgnore, MStdBitmap::Question, Yes, {MKeyEscape}, Cancel, "Question"},
        {YesNoIgnore, MStdBitmap::Question, Yes, {MKeyLeft, MKeyLeft, MKeyEnter}, Ok, "Question"},
        {YesNoCancel, MStdBitmap::Question, No, {MKeyTab, MKeyEnter}, Yes, "Question"},
        {YesNoCancel, MStdBitmap::Question, No, {MKeyLeft, MKeyEnter}, Cancel, "Question"},
    };
    for (const auto& [buttons, bitmap, safe, keys, answer, caption] : cases) {
        system.Post([this, caption = caption, &keys = keys] {
            EXPECT_EQ(Text(Dialog().GetCaption()), caption);
            for (const int32_t key : keys) user.PressKey(key);
        });
        EXPECT_EQ(MMessageDialogWindow::MessageBox("Text", buttons, bitmap, &root, safe), answer);
        EXPECT_EQ(system.GetActiveRoot(), &root);
    }
    system.Post([&] { user.PressKey(MKeyEnter); });
    EXPECT_FALSE(MDialogs().AskYesNo(root, "Are you sure?"));
}

TEST_F(DialogsTest, GivesEveryTextItsRoom) {
    const MRect desktop = system.GetWorkArea(std::nullopt);
    for (const int32_t words : {1, 10, 100, 1000, 10'000}) {
        MString text;
        for (int32_t i = 0; i < words; ++i) text += "word ";
        system.Post([&] {
            EXPECT_TRUE(desktop.Intersected(system.GetFrame(Dialog())) == system.GetFrame(Dialog())) << words;
            EXPECT_TRUE(Find(Dialog(), "okbutton")->IsShown());
            MControl& info = *Find(Dialog(), "Info");
            const bool isPlain = dynamic_cast<MStaticMultiLine*>(&info) != nullptr;
            EXPECT_EQ(isPlain, words < 10'000) << "what is too long can be scrolled";
            EXPECT_TRUE(!isPlain || info.ComputePlasticSize(1, info.clientRect.GetWidth()) <=
                                        info.clientRect.GetHeight());
            user.PressKey(MKeyEscape);
        });
        (void)MMessageDialogWindow::MessageBox(text, MMessageButtons::YesNo, MStdBitmap::Question, &root);
    }
}

/// A control with help, of which the mouse stands over.
TEST_F(DialogsTest, ShowsHelpThatABrowserCanShow) {
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    const MTestModule module(scratch.Join("program"));
    MDialogs dialogs;
    windows.dialogs = &dialogs;
    auto& button = Add<MButton>({10, 10, 89, 33}, "button");
    root.UpdateLayout();
    button.help = "What <b>it</b> does.";
    user.MoveMouse(At(button));
    const MString page = scratch.Join("page.html");
    system.Post([&] {
        EXPECT_TRUE(Find(Dialog(), "viewer")->IsShown());
        static_cast<MButton*>(Find(Dialog(), "generatebutton"))->SetFocus();
        system.Post([&] {
            user.Type(page);
            user.PressKey(MKeyEnter);
        });
        user.PressKey(MKeySpace);
        EXPECT_NE(scratch.ReadFile("page.html").find("<span class=\"b \">it</span> does."),
                  std::string::npos);
        user.PressKey(MKeyEscape);
    });
    user.PressKey(MKeyF1);
    EXPECT_EQ(system.GetActiveRoot(), &root);
    button.help = {};
}

TEST_F(DialogsTest, EditsAText) {
    using Lines = MEditTextDialog::Lines;
    static const MCharFilter::FloatFilter numbers;
    const auto edit = [&](Lines lines, int32_t lastKey) {
        system.Post([&, lines, lastKey] {
            EXPECT_EQ(Text(Dialog().GetName()), lines == Lines::One ? "EditDialog" : "EditDialogMultiLine");
            user.Type("a2b5");
            user.PressKey(lastKey, lastKey == MKeyEnter ? u'\r' : 0);
            if (lines == Lines::Several) {
                for (const int32_t key : {MKeyTab, MKeyTab, MKeyEnter}) user.PressKey(key);
            }
        });
        const auto text = MEditTextDialog::EditText("Enter new value", "50 %", lines, &root,
                                                    lines == Lines::One ? &numbers : nullptr);
        return text ? Text(*text) : "none";
    };
    EXPECT_EQ(edit(Lines::One, MKeyEnter), "25") << "typing replaces what was there";
    EXPECT_EQ(edit(Lines::One, MKeyEscape), "none");
    EXPECT_EQ(edit(Lines::Several, MKeyEnter), "a2b5\n");
}

/// Waits on its own thread until a condition holds.
void WaitFor(const std::function<bool()>& condition) {
    while (!condition()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

TEST_F(DialogsTest, ShowsHowFarAWorkerIs) {
    system.SetPatience(20'000);
    MProgressWindow progress;
    std::atomic<int32_t> step = 0;
    const std::string file(200, 'x');
    system.Post(
        [&] {
            WaitFor([&] { return step == 1; });
            progress.OnTimer();
            auto& bar = *static_cast<MProgressBar*>(Find(progress, "progress"));
            EXPECT_EQ(bar.GetPercent(), 25);
            EXPECT_EQ(Text(Find(progress, "info")->GetCaption()), file);
            EXPECT_LT(progress.size.x, 500);
            EXPECT_EQ(Text(Find(progress, "Statistics")->GetCaption()),
                      "Elapsed: 0 min, 30 sec\nEstimated: 2 min, 0 sec\nRemaining: 1 min, 30 sec");
            progress.SetProgress(1e-300);
            progress.OnTimer();
            EXPECT_TRUE(Find(progress, "Statistics")->GetCaption().StartsWith("Elapsed: 0 min, 30 sec"));
            step = 2;
        },
        30'000);
    const auto work = [&](MProgressWindow& shown) {
        shown.SetInfo(file.c_str());
        shown.SetProgress(25);
        step = 1;
        WaitFor([&] { return step == 2; });
    };
    EXPECT_EQ(progress.Run(&root, work), MModalValue::Ok);
    EXPECT_EQ(FailureOf([&] {
                  (void)progress.Run(&root, [](MProgressWindow&) { MRaise(MExceptionHTTP, "No server."); });
              }),
              "201: No server.");
    struct Unshowable final : MProgressWindow {
        void OnPrepared() override { MRaise(MExceptionGeneral, "No room."); }
    } unshowable;
    const auto workForEver = [](MProgressWindow& shown) {
        for (;;) shown.CheckCancelled();
    };
    EXPECT_EQ(FailureOf([&] { (void)unshowable.Run(&root, workForEver); }), "0: No room.");
}

TEST_F(DialogsTest, CancelsAWorker) {
    system.SetPatience(20'000);
    MProgressWindow progress;
    progress.asksBeforeCancel = true;
    std::string stoppedBy;
    const auto work = [&](MProgressWindow& shown) {
        stoppedBy = FailureOf([&] {
            for (;;) shown.SetProgress(1);
        });
        shown.CheckCancelled();
    };
    std::vector<std::string> captions;
    const auto press = [&](int32_t key) {
        captions.push_back(Text(Dialog().GetCaption()));
        user.PressKey(key);
    };
    system.Post([&] { press(MKeyEscape); });
    system.Post([&] { press(MKeyEnter); });  // The safe answer is no.
    system.Post([&] { press(MKeySpace); });  // "Cancel" has the focus.
    system.Post([&] {
        press(MKeyRight);
        user.PressKey(MKeyEnter);
    });
    EXPECT_EQ(progress.Run(&root, work), MModalValue::Cancel);
    EXPECT_EQ(stoppedBy, "0: Processing has been cancelled.");
    EXPECT_EQ(captions,
              (std::vector<std::string>{"Wait please...", "Question", "Wait please...", "Question"}));
    EXPECT_EQ(progress.Run(&root, [](MProgressWindow&) {}), MModalValue::Ok);
    EXPECT_TRUE(Find(progress, "Cancel")->IsEnabled());
}

class TestWizard final : public MWizardWindow {
public:
    TestWizard() : MWizardWindow("Wizard", "Wizard") {}
    ~TestWizard() noexcept override = default;

    bool CanGoBack() override { return canGoBack; }
    bool CanGoNext() override { return canGoNext; }

    bool canGoBack = true;
    bool canGoNext = true;
};

TEST_F(DialogsTest, LeadsThroughPages) {
    TestWizard wizard;
    for (const char* name : {"one", "two", "three"}) (void)wizard.AddPage(name);
    auto& previous = *static_cast<MButton*>(Find(wizard, "Previous"));
    auto& next = *static_cast<MButton*>(Find(wizard, "Next"));
    const auto look = [&] {
        std::string text;
        for (int32_t i = 0; i < wizard.GetPageCount(); ++i)
            if (wizard.GetPage(i).IsShown()) text += Text(wizard.GetPage(i).GetName()) + " ";
        return text + (previous.IsEnabled() ? "<" : "-") + (next.IsEnabled() ? Text(next.GetCaption()) : "-");
    };
    wizard.minClientSize = {300, 200};
    wizard.Set(MControlFlag::KeepsApplicationAlive);
    wizard.CreateWindow(&root);
    system.Post([&] {
        EXPECT_EQ(look(), "one -Next");
        user.PressKey(MKeyEnter);
        EXPECT_EQ(look(), "two <Next");
        wizard.canGoBack = false;
        wizard.canGoNext = false;
        wizard.RefreshButtons();
        EXPECT_EQ(look(), "two --");
        user.PressKey(MKeyEnter);
        EXPECT_EQ(look(), "two --");
        wizard.canGoBack = true;
        wizard.canGoNext = true;
        wizard.RefreshButtons();
        user.Click(At(next));
        EXPECT_EQ(look(), "three <Finish");
        system.AdvanceTime(1000);
        user.Click(At(previous));
        EXPECT_EQ(look(), "two <Next");
        wizard.SetPage(99);
        next.SetFocus();
        user.PressKey(MKeySpace);
    });
    EXPECT_EQ(wizard.RunModal(&root), MModalValue::Ok);
}

}  // namespace
