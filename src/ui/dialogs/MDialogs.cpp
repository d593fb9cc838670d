#include "ui/dialogs/MDialogs.h"

#include "ui/dialogs/MEditTextDialog.h"
#include "ui/dialogs/MMessageDialogWindow.h"
#include "ui/dialogs/MViewerWindow.h"

bool MDialogs::AskYesNo(MControl& owner, const MString& question) {
    // What is asked is whether the user is sure, of something that cannot be taken back.
    return MMessageDialogWindow::MessageBox(question, MMessageButtons::YesNo, MStdBitmap::Question, &owner,
                                            MModalValue::No) == MModalValue::Yes;
}

void MDialogs::ShowInformation(MControl& owner, const MString& text) {
    (void)MMessageDialogWindow::MessageBox(text, MMessageButtons::Close, MStdBitmap::Notice, &owner);
}

std::optional<MString> MDialogs::EditText(MControl& owner, const MString& caption, const MString& text,
                                          const MCharFilter::Interface& filter) {
    return MEditTextDialog::EditText(caption, text, MEditTextDialog::Lines::One, &owner, &filter);
}

void MDialogs::ShowDocument(MControl& owner, const MString& title, const MString& text) {
    MViewerWindow window(title, text);
    (void)window.RunModal(&owner);
}
