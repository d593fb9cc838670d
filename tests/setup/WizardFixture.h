#pragma once

#include "examples/windows/MPlainStyle.h"
#include "setup/console/MSilentFrontEnd.h"
#include "setup/wizard/MSetupWindow.h"
#include "tests/setup/SetupFixture.h"
#include "tests/support/MTreeSnapshot.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/dialogs/MMessageDialogWindow.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

/// A wizard on a screen in memory, and its user, who finds controls by their names.
class WizardTest : public SetupTest {
protected:
    WizardTest() : WizardTest(std::make_unique<MWindowSystemHeadless>()) {}
    ~WizardTest() noexcept override = default;

    /// A control of the window that is in front, by its name.
    MControl& Get(const char* name) {
        MControl* const found = Find(*system.GetActiveRoot(), name);
        if (!found) throw std::runtime_error(name + std::string(" is not there"));
        return *found;
    }
    static MControl* Find(MControl& control, const MString& name) {
        if (control.GetName() == name && control.IsShown()) return &control;
        for (MControl* child : control.GetChildren())
            if (MControl* const found = Find(*child, name)) return found;
        return nullptr;
    }
    void Click(const char* name) {
        MControl& control = Get(name);
        // Not a double click with the one before.
        const int32_t aside = std::exchange(isAside, !isAside) ? 4 : -4;
        user.Click(control.GetScreenPoint({control.size.x / 2 + aside, control.size.y / 2}));
    }
    /// The page on view.
    std::string GetPage() {
        for (const char* page : {"onstart", "licence", "configuration", "components", "directories",
                                 "processing", "onsuccess", "onabort", "onerror"})
            if (Find(*system.GetActiveRoot(), page)) return page;
        return "none";
    }
    /// The text of the message in front, which the button then closes.
    std::string Answer(const char* button) {
        const std::string text = Text(static_cast<MControlContent&>(Get("Info")).GetCaption());
        Click(button);
        return text;
    }
    /// Does something as soon as a message is in front, however busy the program is before.
    void WhenAsked(const std::function<void()>& action) {
        const auto look = [this, action] {
            const bool isAsked = system.GetActiveRoot() && Find(*system.GetActiveRoot(), "Info");
            isAsked ? action() : WhenAsked(action);
        };
        system.Post(look, 1);
    }
    /// Runs the wizard, with a user who does these things.
    template <class... Actions>
    MModalValue Run(Actions... actions) {
        MSetupWindow window(library, dialogs);
        // The first click after a window was closed is taken for one on that.
        (system.Post(actions, 2 * MWindowMessages::HoldOff), ...);
        const MModalValue result = window.RunModal(nullptr);
        path = Text(window.GetInstalledExecutable());
        return result;
    }

    [[nodiscard]] MTreeSnapshot Look() const {
        MList<MString> roots;
        roots.Add(scratch.GetPath());
        MList<MString> ignored;
        ignored.Add("InstallerLog.txt");
        return MTreeSnapshot(roots, ignored);
    }
    /// Everything as it is proposed, without the wizard.
    void InstallSilently() {
        MList<MString> words;
        words.Add("accept-licence");
        const MString before = MFile::GetCurrentPath();
        EXPECT_EQ(MSilentFrontEnd(words).Install(library), MExitDone);
        MFile::SetCurrentPath(before);
    }

    MWindowSystemHeadless& system;
    MWindows windows;
    MHeadlessUser& user;
    MWizardDialogs dialogs;
    bool isAside = false;
    std::string path;  ///< of the installed program

private:
    explicit WizardTest(std::unique_ptr<MWindowSystemHeadless> owned)
        : system(*owned), windows(std::move(owned)), user(system.GetUser()) {
        windows.SetStyle(std::make_unique<MPlainStyle>(&windows, SYSTEM_FONTS));
    }
};
