#include "ui/dialogs/MDirectoryDialog.h"

#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MEntities.h"
#include "ui/control/windows/MWindows.h"

MDirectoryDialog::MDirectoryDialog(const MString& name, const MString& caption)
    : MDialogWindow(name, caption.IsEmpty() ? MTranslate("Select directory") : caption) {
    Set(MControlFlag::Resizable);
    tree = new MDirectoryTreeControl(&GetContainer(), "DirectoryTree");
    GetContainer().SetClientControl(tree);
    MButton& accept = AddButton("accept", MTranslate("OK"), MModalValue::None);
    (void)AddButton("cancel", MTranslate("Cancel"), MModalValue::Cancel);
    SetDefaultButton(accept, tree);
    accept.OnClick(Click::Left).Connect(this, &MDirectoryDialog::OnAcceptClick);
}

void MDirectoryDialog::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStyle* const style = GetStyle();
    x = style ? style->ScaleX(320) : 320;
    y = style ? style->ScaleY(380) : 380;
}

void MDirectoryDialog::OnClosed() {
    acceptance.Cancel();
    MDialogWindow::OnClosed();
}

void MDirectoryDialog::OnAcceptClick(const MOnClickParams&) {
    const MString path = GetPath();
    const auto isValid = std::make_shared<bool>(false);
    const auto ask = [path, isValid] { *isValid = !path.IsEmpty() && MFile::IsValidDirectory(path); };
    acceptance.Begin(ask, [this, path, isValid] {
        if (!path.IsExactly(GetPath())) return;
        if (*isValid) return CloseWindow(MModalValue::Ok);
        const MWindows* const windows = MWindows::GetInstance();
        if (!windows || !windows->dialogs) return;
        windows->dialogs->ShowInformation(
            *this, MFormat(MTranslate("Sorry, directory {0} is not accessible."), MEntities::Escape(path)));
    });
}
