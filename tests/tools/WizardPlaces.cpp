// Usage: wizard-places INSTALLER FOLDER
//
// Lays out the wizard of a packed installer in memory, as it is on a display of 1280 by 1024 pixels, and goes through
// its pages without installing anything. Prints a line for each control that is shown, with its place in the window:
//
//     PAGE NAME LEFT TOP WIDTH HEIGHT TEXT
//
// Of a page with several screens, the second one is called "onstart-2". "question" is the box that asks at Exit, and
// "window" in each page the window itself. FOLDER gets a picture PAGE.png of each.
//
// As the wizard does, it makes the maker's folder below HOME, and starts what stands in "onstart" and "onsuccess".

#include "embedded/MProgramBlocks.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "payload/MSfx.h"
#include "setup/wizard/MSetupPage.h"
#include "setup/wizard/MSetupWindow.h"
#include "ui/control/windows/MWindows.h"
#include "ui/control/windows/MWindowsModule.h"
#include "ui/dialogs/MDialogs.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>

namespace {

class Places {
public:
    Places(MWindowSystemHeadless& system, MSetupWindow& window, MString folder)
        : system(system), window(window), folder(std::move(folder)) {}

    void TellAll() {
        MPageWalk& walk = window.GetWalk();
        MWalkPage& first = *walk.GetCurrentPage();
        MWalkPage& success = TakeProcessingOut(first);
        for (Tell(GetPageName()); walk.GetCurrentPage()->NextPage; Tell(GetPageName())) {
            if (MControl* const box = Find(window, "licenceagree"))
                static_cast<MCheckBox*>(box)->Set(MCheckBoxState::On);
            walk.Next();
        }
        walk.Activate(success, false);
        Tell(GetPageName());
        walk.Activate(first, false);
        system.Post([&] {
            Tell("question");
            system.GetActiveRoot()->CloseWindow(MModalValue::Yes);
        });
        walk.Exit();
        Tell(GetPageName());
        walk.Exit();
    }

private:
    /// The chain ends before the installing. Returns the page after that.
    static MWalkPage& TakeProcessingOut(MWalkPage& first) {
        MWalkPage* last = &first;
        while (static_cast<MSetupPage*>(last->NextPage)->GetName() != "processing") last = last->NextPage;
        MWalkPage& success = *last->NextPage->NextPage;
        last->NextPage = nullptr;
        return success;
    }
    static MControl* Find(MControl& control, const MString& name) {
        if (control.GetName() == name && control.IsShown()) return &control;
        for (MControl* child : control.GetChildren())
            if (MControl* const found = Find(*child, name)) return found;
        return nullptr;
    }
    std::string GetPageName() {
        std::string name =
            MEncodeUTF8Exact(static_cast<MSetupPage*>(window.GetWalk().GetCurrentPage())->GetName());
        const int32_t count = ++screens[name];
        return count == 1 ? name : name + "-" + std::to_string(count);
    }

    void Tell(const std::string& page) {
        MControl& root = *system.GetActiveRoot();
        root.RedrawNow();
        const MPoint size = root.GetShownSize();
        Print(page, "window", {}, size, root);
        TellBelow(page, root);
        MStdFileStream file;
        file.Open(MFile::Join(folder, MDecodeUTF8Exact(page + ".png")), MOpenWrite | MOpenCreate);
        system.GetPicture(root).SavePNG(file);
        file.Close();
    }
    static void TellBelow(const std::string& page, MControl& parent) {
        for (MControl* child : parent.GetChildren()) {
            if (!child->IsShown()) continue;
            if (!child->GetName().IsEmpty())
                Print(page, MEncodeUTF8Exact(child->GetName()), child->GetWindowPoint({}),
                      child->GetShownSize(), *child);
            TellBelow(page, *child);
        }
    }
    static void Print(const std::string& page, const std::string& name, MPoint place, MPoint size,
                      MControl& control) {
        const auto* const content = dynamic_cast<MControlContent*>(&control);
        std::string text = content ? MEncodeUTF8Exact(content->GetCaption()) : "";
        std::ranges::replace(text, '\n', ' ');
        std::printf("%s %s %d %d %d %d %s\n", page.c_str(), name.c_str(), place.x, place.y, size.x, size.y,
                    text.c_str());
    }

    MWindowSystemHeadless& system;
    MSetupWindow& window;
    MString folder;
    std::map<std::string, int32_t> screens;
};

void Run(const MString& installer, const MString& folder) {
    MWindowsModule module;
    MModule::SetInstance(&module);
    module.SetEmbeddedBlocks(MGetProgramBlocks());
    module.Initialize();
    auto owned = std::make_unique<MWindowSystemHeadless>(MPoint{1280, 1024});
    MWindowSystemHeadless& system = *owned;
    MWindows windows(std::move(owned));
    auto style = std::make_unique<MTexturedStyle>(&windows, &module.GetResources(),
                                                  MTexturedStyle::FontSource::Traveling);
    style->LoadStyle();
    windows.SetStyle(std::move(style));

    MSfx payload(installer);
    MLargeResourceLibrary definition;
    definition.Attach(&payload);
    MWizardDialogs dialogs;
    MSetupWindow window(definition, dialogs);
    system.Post([&] { Places(system, window, folder).TellAll(); });
    (void)window.RunModal(nullptr);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("Usage: wizard-places INSTALLER FOLDER\n", stderr);
        return 2;
    }
    try {
        Run(MFile::Normalize(MDecodeUTF8Exact(arguments[1])),
            MFile::Normalize(MDecodeUTF8Exact(arguments[2])));
        return 0;
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", MEncodeUTF8Exact(exception.GetMessage()).c_str());
        return 1;
    }
}
