// Usage: wizard-places [--light] [--scale PERCENT] [--processing] [--updates | --over FOLDER] PROGRAM-OR-FOLDER PICTURES
//        wizard-places [--light] [--scale PERCENT] --download ID PICTURES
//
// Lays out the wizard of a packed installer in memory, as it is on a display of 1280 by 1024 pixels, and goes through
// its pages without installing anything; or the uninstaller of the installation in a folder, without removing anything;
// or with --updates its update manager, which asks the server of the installation; or with --over the window of an
// update that is a program, for the installation in the folder; or with --download that of a download, in its middle.
// Prints a line for each control that is shown, with its place in the window:
//
//     PAGE NAME LEFT TOP WIDTH HEIGHT STOP TEXT
//
// Of a page with several screens, the second one is called "onstart-2". "question" is the box that asks at Exit, and
// "window" in each page the window itself. STOP tells how often Tab is pressed to get there from the control that has
// the keyboard first, as "2+1" with the arrows that go on from there in a group, or "-". The folder for pictures gets
// PAGE.png of each.
//
// As the wizard does, it makes the maker's folder below HOME, and starts what stands in "onstart" and "onsuccess".
// --processing also shows the page that installs, with bars as in its middle, and makes the directories for that; or the
// update manager likewise.

#include "embedded/MProgramBlocks.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "payload/MSfx.h"
#include "setup/wizard/MSetupPage.h"
#include "setup/wizard/MSetupWindow.h"
#include "setup/wizard/MUninstallWindow.h"
#include "setup/wizard/MUpdateInstallerWindow.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/control/windows/MWindowsModule.h"
#include "ui/dialogs/MDialogs.h"
#include "ui/dialogs/MProgressWindow.h"
#include "ui/layout/MLayoutSwitch.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/values/MProgressBar.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <semaphore>
#include <string>
#include <utility>
#include <vector>

namespace {

/// Tells of the window that is in front.
class Places {
public:
    Places(MWindowSystemHeadless& system, MString folder) : system(system), folder(std::move(folder)) {}

    void Tell(const std::string& page) {
        SavePicture(page);
        Print(page);
    }
    void SavePicture(const std::string& page) {
        MControl& root = *system.GetActiveRoot();
        root.RedrawNow();
        MStdFileStream file;
        file.Open(MFile::Join(folder, MDecodeUTF8Exact(page + ".png")), MOpenWrite | MOpenCreate);
        system.GetPicture(root).SavePNG(file);
        file.Close();
    }
    void Print(const std::string& page) {
        MControl& root = *system.GetActiveRoot();
        FindStops(root);
        PrintLine(page, "window", {}, root, root.GetCaption());
        PrintBelow(page, root);
    }

private:
    /// As a user does who presses Tab until that goes around.
    void FindStops(MControl& root) {
        stops.clear();
        MControl* const& focused = root.GetRootState().focusedControl;
        for (int32_t tabs = 0; focused && !stops.contains(focused); ++tabs) {
            stops[focused] = std::to_string(tabs);
            system.GetUser().PressKey(MKeyTab);
        }
        // Arrows choose, and come back to what was chosen.
        for (size_t i = 0, count = stops.size(); i < count; ++i, system.GetUser().PressKey(MKeyTab)) {
            const auto* const box = dynamic_cast<MCheckBox*>(focused);
            if (!box || !box->IsRadioButton() || !box->IsOn()) continue;
            const std::string stop = stops[focused];
            for (int32_t arrows = 1; true; ++arrows) {
                system.GetUser().PressKey(MKeyDown);
                if (!stops.try_emplace(focused, stop + "+" + std::to_string(arrows)).second) break;
            }
            root.SetFocus(const_cast<MCheckBox*>(box));
        }
    }
    void PrintBelow(const std::string& page, MControl& parent) {
        for (MControl* child : parent.GetChildren()) {
            if (!child->IsShown()) continue;
            const auto* const content = dynamic_cast<MControlContent*>(child);
            if (!child->GetName().IsEmpty())
                PrintLine(page, MEncodeUTF8Exact(child->GetName()), child->GetWindowPoint({}), *child,
                          content ? content->GetCaption() : MString());
            PrintBelow(page, *child);
        }
    }
    void PrintLine(const std::string& page, const std::string& name, MPoint place, MControl& control,
                   const MString& caption) const {
        const MPoint size = control.GetShownSize();
        const auto stop = stops.find(&control);
        std::string text = MEncodeUTF8Exact(caption);
        std::ranges::replace(text, '\n', ' ');
        std::printf("%s %s %d %d %d %d %s %s\n", page.c_str(), name.c_str(), place.x, place.y, size.x, size.y,
                    stop == stops.end() ? "-" : stop->second.c_str(), text.c_str());
    }

    MWindowSystemHeadless& system;
    MString folder;
    std::map<const MControl*, std::string> stops;
};

struct Options {
    bool isLight = false;
    int32_t scalePercent = 100;
    bool showsProcessing = false;
    bool showsUpdates = false;
    MString installation;  ///< empty without --over
    MString download;      ///< its ID, empty without --download
    std::vector<MString> paths;
};

MControl* Find(MControl& control, const MString& name) {
    if (control.GetName() == name && control.IsVisible()) return &control;
    for (MControl* child : control.GetChildren())
        if (MControl* const found = Find(*child, name)) return found;
    return nullptr;
}

/// Goes through the pages of a wizard.
class WizardWalk {
public:
    WizardWalk(MWindowSystemHeadless& system, MSetupWindow& window, Places& places)
        : system(system), window(window), places(places) {}

    void TellAll(bool showsProcessing) {
        MPageWalk& walk = window.GetWalk();
        MWalkPage& first = *walk.GetCurrentPage();
        MSetupPage& processing = TakeProcessingOut(first);
        for (Tell(); walk.GetCurrentPage()->NextPage; Tell()) walk.Next();
        walk.Activate(*processing.NextPage, false);
        Tell();
        walk.Activate(walk.GetErrorPage(), false);
        Tell();
        walk.Activate(first, false);
        system.Post([&] {
            places.Tell("question");
            system.GetActiveRoot()->CloseWindow(MModalValue::Yes);
        });
        walk.Exit();
        Tell();
        if (showsProcessing) TellProcessing(processing);
        window.CloseWindow(MModalValue::Cancel);
    }

private:
    /// The chain ends before the page that installs, which is returned.
    static MSetupPage& TakeProcessingOut(MWalkPage& first) {
        MWalkPage* last = &first;
        while (static_cast<MSetupPage*>(last->NextPage)->GetName() != "processing") last = last->NextPage;
        return static_cast<MSetupPage&>(*std::exchange(last->NextPage, nullptr));
    }
    /// In a window that seems not to run yet it waits for its loop before it installs.
    void TellProcessing(MSetupPage& processing) {
        (void)processing.PreviousPage->OnNext();
        window.Set(MControlFlag::ModalRunning, false);
        window.GetWalk().Activate(processing, false);
        window.Set(MControlFlag::ModalRunning);
        for (const auto& [name, percent] : {std::pair{"TotalProgess", 60}, {"OpProgress", 25}})
            static_cast<MProgressBar*>(Find(processing, name))->SetPercent(percent);
        Tell();
    }
    /// The picture is that of the page as it comes, and the places are those with which it can be left.
    void Tell() {
        auto name = MEncodeUTF8Exact(static_cast<MSetupPage*>(window.GetWalk().GetCurrentPage())->GetName());
        if (const int32_t count = ++screens[name]; count > 1) name += "-" + std::to_string(count);
        places.SavePicture(name);
        if (MControl* const box = Find(window, "licenceagree")) static_cast<MCheckBox*>(box)->Toggle();
        places.Print(name);
    }

    MWindowSystemHeadless& system;
    MSetupWindow& window;
    Places& places;
    std::map<std::string, int32_t> screens;
};

void TellInstaller(MWindowSystemHeadless& system, const Options& options, Places& places) {
    MSfx payload(options.paths[0]);
    MLargeResourceLibrary definition;
    definition.Attach(&payload);
    MWizardDialogs dialogs;
    MSetupWindow window(definition, dialogs);
    system.Post([&] { WizardWalk(system, window, places).TellAll(options.showsProcessing); });
    (void)window.RunModal(nullptr);
}

/// A window of one page, and the message that it ends with.
void TellWindow(MWindowSystemHeadless& system, Places& places, MWindow& window, MWizardDialogs& dialogs,
                const std::pair<const char*, const char*>& pages, const char* message) {
    system.Post([&] {
        places.Tell(pages.first);
        system.Post([&] {
            places.Tell(pages.second);
            system.GetActiveRoot()->CloseWindow(MModalValue::Cancel);
        });
        dialogs.ShowInformation(message);
        window.CloseWindow(MModalValue::Cancel);
    });
    (void)window.RunModal(nullptr);
}

void TellUninstaller(MWindowSystemHeadless& system, const Options& options, Places& places) {
    MWizardDialogs dialogs;
    MUninstallWindow window(options.paths[0], dialogs, nullptr);
    TellWindow(system, places, window, dialogs, {"uninstaller", "removed"},
               "Uninstallation has been completed.");
}

/// As its worker shows it.
void ShowUpdating(MUpdateInstallerWindow& window) {
    MControl& stages = *Find(window, "Stages");
    for (MControl* stage : stages.GetChildren())
        if (stage->GetName() == "processing")
            static_cast<MLayoutSwitch*>(stages.GetLayouts()[0])->SetActive(stage);
    Find(window, "Process")->SetEnabled(false);
    dynamic_cast<MStaticMultiLine&>(*Find(window, "heading"))
        .SetText("<b>Installing <i>Plug-in Set 1.1</i>...");
    dynamic_cast<MTextView&>(*Find(window, "fileinfo")).SetText("Downloading Plug-in Set 1.1...");
    for (const auto& [name, percent] : {std::pair{"totalprogress", 33}, {"opprogress", 60}})
        static_cast<MProgressBar*>(Find(window, name))->SetPercent(percent);
}

void TellUpdates(MWindowSystemHeadless& system, const Options& options, Places& places) {
    MWizardDialogs dialogs;
    MUpdateInstallerWindow window(options.paths[0], dialogs);
    if (options.showsProcessing) {
        system.Post([&] {
            places.Tell("updates");
            ShowUpdating(window);
        });
    }
    TellWindow(system, places, window, dialogs, {options.showsProcessing ? "updating" : "updates", "updated"},
               "Updates has been successfully installed.");
}

void TellUpdateProgram(MWindowSystemHeadless& system, const Options& options, Places& places) {
    MSfx payload(options.paths[0]);
    MLargeResourceLibrary update;
    update.Attach(&payload);
    MWizardDialogs dialogs;
    MUpdateInstallerWindow window(options.installation, dialogs, *update.GetSubItem("updateinformation"),
                                  update.GetStream());
    TellWindow(system, places, window, dialogs, {"package", "updated"},
               "Updates has been successfully installed.");
}

void TellDownload(MWindowSystemHeadless& system, const MString& id, Places& places) {
    std::binary_semaphore isTold(0);
    std::binary_semaphore isShown(0);
    MProgressWindow window(id + " downloader");
    system.Post([&] {
        isTold.acquire();
        system.AdvanceTime(95000);
        window.Refresh();
        places.Tell("download");
        isShown.release();
    });
    (void)window.Run(nullptr, [&](MProgressWindow& progress) {
        progress.SetInfo("Downloading files...");
        progress.SetCustomStatistics("Speed: 4.2 MB/s\nDownloaded: 399 MB\nTotal size: 1.1 GB");
        progress.SetProgress(36);
        isTold.release();
        isShown.acquire();
    });
}

void Run(const Options& options) {
    MWindowsModule module;
    MModule::SetInstance(&module);
    module.SetEmbeddedBlocks(MGetProgramBlocks());
    module.Initialize();
    auto owned = std::make_unique<MWindowSystemHeadless>(
        MPoint{1280 * options.scalePercent / 100, 1024 * options.scalePercent / 100});
    MWindowSystemHeadless& system = *owned;
    MWindows windows(std::move(owned));
    auto style = std::make_unique<MTexturedStyle>(&windows, &module.GetResources(),
                                                  MTexturedStyle::FontSource::Traveling);
    style->LoadStyle();
    windows.SetStyle(std::move(style));
    system.SetDesktop(options.scalePercent, !options.isLight);
    Places places(system, options.paths.back());
    if (!options.download.IsEmpty())
        TellDownload(system, options.download, places);
    else if (options.showsUpdates)
        TellUpdates(system, options, places);
    else if (!options.installation.IsEmpty())
        TellUpdateProgram(system, options, places);
    else if (MFile::IsDirectory(options.paths[0]))
        TellUninstaller(system, options, places);
    else
        TellInstaller(system, options, places);
}

std::optional<Options> ReadArguments(int count, char** arguments) {
    Options options;
    const auto toPath = [](const std::string& word) { return MFile::Normalize(MDecodeUTF8Exact(word)); };
    for (int i = 1; i < count; ++i) {
        const std::string word = arguments[i];
        if (word == "--light")
            options.isLight = true;
        else if (word == "--processing")
            options.showsProcessing = true;
        else if (word == "--updates")
            options.showsUpdates = true;
        else if (word == "--download" && i + 1 < count)
            options.download = MDecodeUTF8Exact(arguments[++i]);
        else if (word == "--over" && i + 1 < count)
            options.installation = toPath(arguments[++i]);
        else if (word == "--scale" && i + 1 < count)
            options.scalePercent = std::atoi(arguments[++i]);
        else
            options.paths.push_back(toPath(word));
    }
    const size_t pathCount = options.download.IsEmpty() ? 2 : 1;
    return options.paths.size() == pathCount ? std::optional(options) : std::nullopt;
}

}  // namespace

int main(int count, char** arguments) {
    const std::optional<Options> options = ReadArguments(count, arguments);
    if (!options) {
        std::fputs(
            "Usage: wizard-places [--light] [--scale PERCENT] [--processing] [--updates | --over FOLDER] "
            "PROGRAM-OR-FOLDER PICTURES\n"
            "       wizard-places [--light] [--scale PERCENT] --download ID PICTURES\n",
            stderr);
        return 2;
    }
    try {
        Run(*options);
        return 0;
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", MEncodeUTF8Exact(exception.GetMessage()).c_str());
        return 1;
    }
}
