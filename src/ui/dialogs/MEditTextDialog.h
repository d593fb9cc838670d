#pragma once

#include "foundation/text/MCharFilter.h"
#include "ui/dialogs/MDialogWindow.h"
#include "ui/widgets/edits/MEdit.h"

#include <optional>

/// Lets the user change a text: a line, which Enter accepts, or several ones.
class MEditTextDialog : public MDialogWindow {
public:
    enum class Lines { One, Several };

    /// The filter, which may be null for all characters, outlives the dialog.
    MEditTextDialog(const MString& caption, const MString& text, Lines lines,
                    const MCharFilter::Interface* filter = nullptr);

    /// What has to be known, above the text; with mark-up.
    void SetInfo(const MString& text);
    [[nodiscard]] MString GetText() const { return editor->GetText(); }

    /// The changed text; none if the user has left the dialog, or there are no windows.
    [[nodiscard]] static std::optional<MString> EditText(const MString& caption, const MString& text,
                                                         Lines lines, MControl* owner,
                                                         const MCharFilter::Interface* filter = nullptr);

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;

private:
    MControl* info = nullptr;
    MEdit* editor;  ///< children
};
