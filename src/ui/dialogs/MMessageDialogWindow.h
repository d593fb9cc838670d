#pragma once

#include "ui/control/kinds/MStdBitmap.h"
#include "ui/dialogs/MDialogWindow.h"

/// The answers that a message box offers. `Ignore` gives `MModalValue::Ok`: what only closes the window, as
/// Escape, never stands for it.
enum class MMessageButtons : uint8_t { Close, YesNo, YesNoIgnore, YesNoCancel };

/// Shows a text beside a large sign, and waits for an answer.
class MMessageDialogWindow : public MDialogWindow {
public:
    /// There are windows. `text` has mark-up; a line feed begins a paragraph. `safe` is the answer that Enter
    /// gives. `name` is that of the window.
    MMessageDialogWindow(const MString& name, const MString& text, MMessageButtons buttons, MStdBitmap bitmap,
                         MModalValue safe);

    /// Asks over the window of `owner`, or over none: "Information", "Error" or "Question", by the sign.
    /// `Cancel` if the user gives no answer, or there are no windows.
    static MModalValue MessageBox(const MString& text, MMessageButtons buttons, MStdBitmap bitmap,
                                  MControl* owner, MModalValue safe = MModalValue::Yes);
};
