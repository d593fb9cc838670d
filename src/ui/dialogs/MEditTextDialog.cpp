#include "ui/dialogs/MEditTextDialog.h"

#include "ui/control/windows/MWindows.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/edits/MMultiLineEdit.h"

MEditTextDialog::MEditTextDialog(const MString& caption, const MString& text, Lines lines,
                                 const MCharFilter::Interface* filter)
    : MDialogWindow(lines == Lines::One ? "EditDialog" : "EditDialogMultiLine", caption) {
    MControl& container = GetContainer();
    info = new MStaticMultiLine(&container, "Info");
    info->SetVisible(false);
    (new MLayoutTop(container))->Add(*info);
    if (lines == Lines::One)
        editor = new MEdit(&container, "Editor");
    else
        editor = new MMultiLineEdit(&container, "Editor");
    (new MLayoutVertical(container))->Add(*editor);
    if (lines == Lines::One) editor->layoutRatio.y = 0;
    editor->SetFilter(filter);
    editor->SetText(text);
    editor->SelectAll();
    Set(MControlFlag::Resizable);

    (void)AddButton("cancelbutton", MTranslate("Cancel"), MModalValue::Cancel);
    SetDefaultButton(AddButton("okbutton", MTranslate("OK"), MModalValue::Ok), editor);
}

void MEditTextDialog::SetInfo(const MString& text) {
    static_cast<MStaticMultiLine*>(info)->SetText(text);
    info->SetVisible(!text.IsEmpty());
}

void MEditTextDialog::GetMinimalContentSize(int32_t& x, int32_t& y) {
    constexpr MPoint OneLine{320, 0};
    constexpr MPoint SeveralLines{420, 200};
    const MPoint size = editor->IsMultiLine() ? SeveralLines : OneLine;
    MStyle* const style = GetStyle();
    x = style ? style->ScaleX(size.x) : size.x;
    y = style ? style->ScaleY(size.y) : size.y;
}

std::optional<MString> MEditTextDialog::EditText(const MString& caption, const MString& text, Lines lines,
                                                 MControl* owner, const MCharFilter::Interface* filter) {
    if (!MWindows::GetInstance()) return std::nullopt;
    MEditTextDialog dialog(caption, text, lines, filter);
    if (dialog.RunModal(owner) != MModalValue::Ok) return std::nullopt;
    return dialog.GetText();
}
