#pragma once

#include "foundation/views/MProgressView.h"
#include "foundation/views/MUserDialogs.h"

/// What a run shows itself and asks through. Each view may be null; no view is owned.
class MInstallViews {
public:
    MTextView* infoText = nullptr;      ///< the phase
    MTextView* fileText = nullptr;      ///< the item in hand
    MProgressView* fileBar = nullptr;   ///< bytes of the current file
    MProgressView* totalBar = nullptr;  ///< the whole run
    MUserDialogs* dialogs = nullptr;    ///< asked when a file cannot be written

    void ShowInfo(const MString& text) const { Show(infoText, text); }
    void ShowFile(const MString& text) const { Show(fileText, text); }
    void ShowFileProgress(int64_t maximum, int64_t value) const { Show(fileBar, maximum, value); }
    void ShowTotalProgress(int64_t maximum, int64_t value) const { Show(totalBar, maximum, value); }
    /// Without anyone to ask the answer is to refuse.
    [[nodiscard]] MRetryAnswer AskRetry(const MString& question) const {
        return dialogs ? dialogs->AskRetry(question) : MRetryAnswer::Refuse;
    }

private:
    static void Show(MTextView* view, const MString& text) {
        if (view) view->SetText(text);
    }
    static void Show(MProgressView* view, int64_t maximum, int64_t value) {
        if (view) view->SetProgress(static_cast<double>(maximum), static_cast<double>(value));
    }
};
