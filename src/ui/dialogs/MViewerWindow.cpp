#include "ui/dialogs/MViewerWindow.h"

#include "foundation/base/MException.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSpecialFolders.h"
#include "foundation/module/MModule.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MEntities.h"
#include "streams/basic/MOutputFile.h"
#include "ui/dialogs/MFileDialog.h"
#include "ui/dialogs/MMessageDialogWindow.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/stml/MSTMLHTMLWriter.h"
#include "ui/widgets/content/MHelpUsage.h"
#include "ui/widgets/scrolling/MViewer.h"

namespace {

constexpr const char* PageName = "Help.html";

/// What fails is told over the window.
template <class Function>
void TryOver(MControl& window, Function function) {
    try {
        function();
    } catch (const MException& failure) {
        (void)MMessageDialogWindow::MessageBox(MEntities::Escape(failure.GetMessage()),
                                               MMessageButtons::Close, MStdBitmap::Exclamation, &window);
    }
}

}  // namespace

MViewerWindow::MViewerWindow(const MString& title, const MString& text)
    : MDialogWindow("ViewerWindow", title.IsEmpty() ? MTranslate("Help") : title), text(text) {
    auto& viewer = *new MViewer(&GetContainer(), "viewer");
    (new MLayoutVertical(GetContainer()))->Add(viewer);
    viewer.SetText(text);
    Set(MControlFlag::Resizable);
    Set(MControlFlag::AutoSaveState);

    const auto add = [this](const char* id, const char* caption,
                            void (MViewerWindow::*onClick)(const MOnClickParams&)) {
        AddButton(id, MTranslate(caption), MModalValue::None).OnClick(Click::Left).Connect(this, onClick);
    };
    add("browsebutton", "Display in web browser", &MViewerWindow::OnBrowse);
    add("generatebutton", "Generate", &MViewerWindow::OnGenerate);
    SetDefaultButton(AddButton("closebutton", MTranslate("Close"), MModalValue::Ok), &viewer);
}

void MViewerWindow::GetMinimalContentSize(int32_t& x, int32_t& y) {
    constexpr MPoint Size{480, 320};
    MStyle* const style = GetStyle();
    x = style ? style->ScaleX(Size.x) : Size.x;
    y = style ? style->ScaleY(Size.y) : Size.y;
}

void MViewerWindow::WritePage(const MString& path) const {
    const std::string page = MEncodeUTF8Exact(MSTMLHTMLWriter::Write(GetCaption(), text));
    MOutputFile file(path);
    file.Write(page.data(), static_cast<int32_t>(page.size()));
    file.Commit();
}

void MViewerWindow::OnBrowse(const MOnClickParams&) {
    TryOver(*this, [this] {
        const MModule* const module = MModule::GetInstance();
        const MString path = module
                                 ? module->GetDataPath_File_User(PageName, MString(), true)
                                 : MFile::Join(MFile::GetSpecialPath(MSpecialFolderUserTemporary), PageName);
        WritePage(path);
        (void)MFile::Execute(path, {}, {}, false);
    });
}

void MViewerWindow::OnGenerate(const MOnClickParams&) {
    MFileDialog dialog(MFileDialog::Mode::Save);
    dialog.AddFilter("HTML", "*.html");
    dialog.SetFileName(PageName);
    if (dialog.RunModal(this) == MModalValue::Ok) TryOver(*this, [&] { WritePage(dialog.GetFilePath()); });
}

void MViewerWindow::WriteHelpInfo(MXMLItem& item) {
    MDialogWindow::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<name>Display in web browser button</name> generates the documentation as HTML and opens it in your "
        "web browser.",
        "<name>Generate button</name> stores that as a file."};
    MWriteUsage(item, "", Entries);
}
