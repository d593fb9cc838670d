#include "examples/gallery/GalleryScreens.h"

#include "examples/gallery/GalleryDialogs.h"
#include "examples/windows/ExampleScript.h"
#include "foundation/files/MFile.h"

void GalleryDrawScreens(MWindowSystemHeadless& system, GalleryWindow& window, const MString& folder,
                        const MString& suffix) {
    constexpr int64_t Settled = 100;     // milliseconds after which everything is painted
    constexpr int64_t Refreshed = 2000;  // and after which what a thread tells is shown
    const auto save = [&](MControl& root, const MString& name) {
        ExampleSavePicture(system.GetPicture(root), MFile::Join(folder, name.ToLower() + suffix + ".png"));
    };
    MTabSet& tabs = window.GetTabs();
    // The last page has nothing but the buttons that open the dialogs.
    for (int32_t index = 0; index < tabs.GetTabCount() - 1; ++index) {
        tabs.SelectTab(index);
        system.AdvanceTime(Settled);
        save(window, tabs.GetPage(index).GetName());
    }
    for (const GalleryDialog& dialog : GalleryGetDialogs()) {
        if (!dialog.hasPicture) continue;
        system.Post([&] {
            if (dialog.settle) dialog.settle();
        });
        system.Post(
            [&] {
                MControl* const root = system.GetActiveRoot();
                if (!root || root == &window) return;
                save(*root, MString("dialog-") + dialog.name);
                root->CloseWindow(MModalValue::Cancel);
            },
            dialog.settle ? Refreshed : Settled);
        (void)dialog.run(window);
    }
}
