#include "examples/gallery/GalleryDialogs.h"

#include "foundation/events/MSemaphore.h"
#include "foundation/text/MStringFormatter.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/dialogs/MDirectoryDialog.h"
#include "ui/dialogs/MEditTextDialog.h"
#include "ui/dialogs/MFileDialog.h"
#include "ui/dialogs/MMessageDialogWindow.h"
#include "ui/dialogs/MProgressWindow.h"
#include "ui/dialogs/MViewerWindow.h"
#include "ui/dialogs/MWizardWindow.h"
#include "ui/dialogs/configuration/MTexturedStyleConfiguration.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/menus/MWindowMenu.h"

#include <chrono>
#include <thread>

namespace {

template <MMessageButtons Buttons, MStdBitmap Bitmap>
MString Ask(MControl& owner, const char* text) {
    return MValueEnum<MModalValue>::ToName(
        MMessageDialogWindow::MessageBox(text, Buttons, Bitmap, &owner, MModalValue::No));
}

MString ShowInformation(MControl& owner) {
    return Ask<MMessageButtons::Close, MStdBitmap::Notice>(
        owner, "The plug-ins have been installed. Start your host, and let it look for new ones.");
}

MString ShowError(MControl& owner) {
    return Ask<MMessageButtons::Close, MStdBitmap::No>(
        owner, "The file <b>Reverb.vst3</b> cannot be written.\nClose all hosts and try it again.");
}

MString AskQuestion(MControl& owner) {
    return Ask<MMessageButtons::YesNo, MStdBitmap::Question>(
        owner, "Are you sure you want to cancel the installation?");
}

MString AskOrIgnore(MControl& owner) {
    return Ask<MMessageButtons::YesNoIgnore, MStdBitmap::Question>(
        owner, "A file of a newer version is there. Shall it be replaced?");
}

MString AskOrCancel(MControl& owner) {
    return Ask<MMessageButtons::YesNoCancel, MStdBitmap::Question>(
        owner, "Do you want to keep the presets that you have changed?");
}

MString EditLine(MControl& owner) {
    return MEditTextDialog::EditText("Enter new value", "-12.5", MEditTextDialog::Lines::One, &owner)
        .value_or("none");
}

MString EditLines(MControl& owner) {
    return MEditTextDialog::EditText("Notes", "One line.\nAnother one.", MEditTextDialog::Lines::Several,
                                     &owner)
        .value_or("none");
}

/// Released once the worker has told what it is at.
MSemaphore& GetProgressTold() {
    static MSemaphore told(true);
    return told;
}

MString ShowProgress(MControl& owner) {
    constexpr int32_t First = 37;
    constexpr std::chrono::milliseconds Step(50);
    // While a picture is taken it stays where it is.
    constexpr std::chrono::seconds FirstStep(3);
    MProgressWindow window;
    const MModalValue result = window.Run(&owner, [&](MProgressWindow& progress) {
        for (int32_t percent = First; percent <= 100; ++percent) {
            progress.SetInfo(MFormat("Reverb/Presets/Bank {0}.xml", percent));
            progress.SetProgress(percent);
            if (percent == First) {
                GetProgressTold().Unlock();
                std::this_thread::sleep_for(FirstStep);
            }
            std::this_thread::sleep_for(Step);
        }
    });
    return MValueEnum<MModalValue>::ToName(result);
}

MString ShowWizard(MControl& owner) {
    MWizardWindow window("Wizard", "Reverb 8.1");
    window.minClientSize = {560, 300};
    for (const char* page : {"Welcome", "Licence", "Components", "Ready"}) {
        MContainer& container = window.AddPage(page);
        auto* const text = new MStatic(&container, "text");
        text->SetText(page);
        text->SetFont(static_cast<int32_t>(MStdFont::Large3));
        text->SetContentAlignment(MAlignCenter);
        container.SetClientControl(text);
    }
    window.CreateWindow(&owner);
    return MValueEnum<MModalValue>::ToName(window.RunModal(&owner));
}

template <MFileDialog::Mode Mode>
MString AskFile(MControl& owner) {
    MFileDialog dialog(Mode);
    dialog.AddFilter("Presets", "*.xml");
    dialog.AddFilter("All files", "*");
    return dialog.RunModal(&owner) == MModalValue::Ok ? dialog.GetFilePath() : MString("none");
}

MString AskDirectory(MControl& owner) {
    MDirectoryDialog dialog;
    return dialog.RunModal(&owner) == MModalValue::Ok ? dialog.GetPath() : MString("none");
}

MString ShowHelp(MControl& owner) {
    MViewerWindow window(
        "Help", "<header1>Presets</header1><p>A preset keeps all values of a plug-in. <b>Save</b> writes "
                "it to a file, and <b>Load</b> brings it back.</p><header2>Banks</header2><li>Presets of "
                "one bank lie in one file.</li><li>A newer version adds its own to yours.</li>");
    return MValueEnum<MModalValue>::ToName(window.RunModal(&owner));
}

class StyleDialog final : public MDialogWindow {
public:
    explicit StyleDialog(MTexturedStyle& style) : MDialogWindow("StyleDialog", "Style") {
        GetContainer().SetClientControl(
            new MTexturedStyleConfiguration(style, &GetContainer(), "configuration"));
        AddButton("closebutton", "Close", MModalValue::Ok);
    }
};

MString ConfigureStyle(MControl& owner) {
    auto* const style = dynamic_cast<MTexturedStyle*>(owner.GetStyle());
    if (!style) return "none";
    StyleDialog window(*style);
    return MValueEnum<MModalValue>::ToName(window.RunModal(&owner));
}

MString ShowPopup(MControl& owner) {
    MWindowMenu popup("popup", MWindowMenu::OK | MWindowMenu::Cancel);
    auto* const info = new MStaticInfoPanel(&popup.GetContainer(), "info");
    info->SetText("A popup has <b>any controls</b>, and closes when something else is clicked.");
    popup.GetContainer().minClientSize.x = 240;
    popup.GetContainer().SetClientControl(info);
    const MPoint place = owner.GetScreenPoint({40, 80});
    return MValueEnum<MModalValue>::ToName(popup.RunAt(owner, MRect::FromSize(place.x, place.y, 1, 1)));
}

constexpr GalleryDialog Dialogs[] = {
    {"information", "Information", ShowInformation},
    {"error", "Error", ShowError},
    {"question", "Question", AskQuestion},
    {"question-ignore", "Question with Ignore", AskOrIgnore},
    {"question-cancel", "Question with Cancel", AskOrCancel},
    {"text", "Text", EditLine},
    {"text-lines", "Text of several lines", EditLines},
    {"progress", "Progress", ShowProgress, true, [] { (void)GetProgressTold().Lock(-1); }},
    {"wizard", "Wizard", ShowWizard},
    {"help", "Help", ShowHelp},
    {"style", "Style", ConfigureStyle},
    {"file-open", "Open a file", AskFile<MFileDialog::Mode::Open>, false},
    {"file-save", "Save a file", AskFile<MFileDialog::Mode::Save>, false},
    {"directory", "Choose a folder", AskDirectory, false},
    {"popup", "Popup", ShowPopup},
};

}  // namespace

std::span<const GalleryDialog> GalleryGetDialogs() {
    return Dialogs;
}
