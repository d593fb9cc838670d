#include "ui/dialogs/MFileDialog.h"

#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MEntities.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/windows/MWindows.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/content/MLabel.h"

namespace {

MLabel& AddLabel(MControl& owner, const MString& name, const char* text, MControl& of) {
    auto& label = *new MLabel(&owner, name);
    label.SetText(MTranslate(text));
    label.layoutRatio = {0, 0};
    label.LinkTo(of);
    return label;
}

/// A strip of controls, the ones behind the others.
MControlContainer& AddRow(MControl& owner, MLayout& layout) {
    auto& row = *new MControlContainer(&owner);
    row.layoutRatio.y = 0;
    layout.Add(row);
    return row;
}

/// What is in the first of the patterns behind "*.", or nothing if that is another pattern.
MString GetDefaultExtension(const MString& patterns) {
    const MList<MString> all = patterns.Split(';');
    const MString first = all.IsEmpty() ? MString() : all[0].Trimmed();
    const MString extension = first.StartsWith("*.") ? first.Substring(2) : MString();
    return extension.FindChar('*') == MString::NotFound && extension.FindChar('?') == MString::NotFound
               ? extension
               : MString();
}

}  // namespace

MFileDialog::MFileDialog(Mode mode, const MString& name, const MString& caption)
    : MDialogWindow(name, caption), mode(mode) {
    if (caption.IsEmpty())
        SetCaption(MTranslate(mode == Mode::Open ? "Open file" : "Save file"), MCaptionType::Normal);
    Set(MControlFlag::Resizable);
    Set(MControlFlag::AutoSaveState);
    MControl& container = GetContainer();

    auto& top = AddRow(container, *new MLayoutTop(container));
    pathEdit = new MEdit(&top, "path");
    auto* const pathLayout = new MLayoutGrid(top, 2);
    pathLayout->Add(AddLabel(top, "pathlabel", "Path", *pathEdit));
    pathLayout->Add(*pathEdit);

    auto& bottom = AddRow(container, *new MLayoutBottom(container));
    custom = new MContainer(&container, "custom");
    custom->SetControlType(MControlType::Empty);
    custom->layoutRatio.y = 0;
    (new MLayoutBottom(container))->Add(*custom);
    fileNameEdit = new MEdit(&bottom, "filename");
    filterButton = new MButton(&bottom, "Filter");
    filterButton->layoutRatio.x = 0;
    filterButton->SetVisible(false);
    auto* const nameLayout = new MLayoutGrid(bottom, 3);
    nameLayout->Add(AddLabel(bottom, "filenamelabel", "Filename", *fileNameEdit));
    nameLayout->Add(*fileNameEdit);
    nameLayout->Add(*filterButton);

    selector = new MFileSelector(&container, "fileselector");
    container.SetClientControl(selector);
    MButton& accept =
        AddButton("accept", MTranslate(mode == Mode::Open ? "Open" : "Save"), MModalValue::None);
    (void)AddButton("cancel", MTranslate("Cancel"), MModalValue::Cancel);
    SetDefaultButton(accept,
                     mode == Mode::Open ? static_cast<MControl*>(&selector->GetList()) : fileNameEdit);

    selector->OnPath().Connect(this, &MFileDialog::OnPath);
    selector->OnRefused().Connect(this, &MFileDialog::OnRefused);
    selector->OnFile().Connect(this, &MFileDialog::OnFile);
    selector->OnAccept().Connect(this, &MFileDialog::OnAcceptFile);
    pathEdit->OnChange(Change::Committed).Connect(this, &MFileDialog::OnPathEntered);
    fileNameEdit->OnChange(Change::Committed).Connect(this, &MFileDialog::OnNameEntered);
    accept.OnClick(Click::Left).Connect(this, &MFileDialog::OnAcceptClick);
    filterButton->OnClick(Click::Left).Connect(this, &MFileDialog::OnFilterClick);
    filterMenu.OnItem().Connect(this, &MFileDialog::OnFilterItem);
}

void MFileDialog::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStyle* const style = GetStyle();
    x = style ? style->ScaleX(560) : 560;
    y = style ? style->ScaleY(380) : 380;
}

void MFileDialog::AddFilter(const MString& filterName, const MString& patterns) {
    filters.push_back({filterName, patterns});
    filterButton->SetVisible(true);
    if (filters.size() == 1) SetFilterIndex(0);
}

void MFileDialog::SetFilterIndex(int32_t index) {
    if (index < 0 || index >= static_cast<int32_t>(filters.size())) return;
    filterIndex = index;
    const Filter& filter = filters[static_cast<size_t>(index)];
    filterButton->SetText(MFormat("{0} ({1})", filter.name, filter.patterns));
    selector->SetPatterns(filter.patterns);
}

void MFileDialog::SetRootPath(const MString& path) {
    selector->SetRootPath(path);
}

void MFileDialog::OnFilterClick(const MOnClickParams&) {
    filterMenu.Clear();
    for (size_t i = 0; i < filters.size(); ++i)
        filterMenu
            .AddItem(MFormat("{0} ({1})", filters[i].name, filters[i].patterns), static_cast<int32_t>(i))
            .check = static_cast<int32_t>(i) == filterIndex ? 1 : 0;
    const MPoint place = filterButton->GetScreenPoint({0, 0});
    filterMenu.Open(*filterButton,
                    MRect::FromSize(place.x, place.y, filterButton->size.x, filterButton->size.y));
}

void MFileDialog::OnFilterItem(const MOnItemParams<MMenuItem>& params) {
    SetFilterIndex(params.item->id);
}

void MFileDialog::OnPath(const MOnStringParams& params) {
    pathEdit->SetText(params.text);
}

void MFileDialog::OnRefused(const MOnStringParams& params) {
    pathEdit->SetText(selector->GetPath());
    Refuse(params.text);
}

void MFileDialog::Refuse(const MString& directory) {
    const MWindows* const windows = MWindows::GetInstance();
    if (windows && windows->dialogs)
        windows->dialogs->ShowInformation(
            *this,
            MFormat(MTranslate("Sorry, directory {0} is not accessible."), MEntities::Escape(directory)));
}

void MFileDialog::OnFile(const MOnStringParams& params) {
    if (!params.text.IsEmpty()) fileNameEdit->SetText(params.text);
}

void MFileDialog::OnAcceptFile(const MOnStringParams& params) {
    Accept(params.text);
}

void MFileDialog::OnPathEntered(const MOnNotifyParams&) {
    selector->SetPath(MFile::Normalize(pathEdit->GetText().Trimmed()));
}

void MFileDialog::OnNameEntered(const MOnNotifyParams&) {
    Accept(fileNameEdit->GetText());
}

void MFileDialog::OnAcceptClick(const MOnClickParams&) {
    Accept(fileNameEdit->GetText());
}

MString MFileDialog::GetMissingExtension(const MString& path) const {
    if (mode == Mode::Open || filterIndex < 0 || !MFile::GetExtension(path).IsEmpty()) return {};
    return GetDefaultExtension(filters[static_cast<size_t>(filterIndex)].patterns);
}

void MFileDialog::Accept(const MString& fileName) {
    const MString name = fileName.Trimmed();
    if (name.IsEmpty()) return AcceptTarget({});
    const auto target = std::make_shared<Target>();
    target->path = MFile::IsAbsolute(name) ? MFile::Normalize(name) : MFile::Join(selector->GetPath(), name);
    const MString extension = GetMissingExtension(target->path);
    const auto ask = [target, extension] {
        if (!extension.IsEmpty() && !MFile::IsDirectory(target->path)) target->path += "." + extension;
        target->isDirectory = MFile::IsDirectory(target->path);
        target->isInDirectory = MFile::IsDirectory(MFile::GetDirectory(target->path));
        target->isFile = MFile::IsFile(target->path);
        target->exists = MFile::Exists(target->path);
    };
    acceptance.Begin(ask, [this, target] { AcceptTarget(*target); });
}

void MFileDialog::AcceptTarget(const Target& target) {
    const MWindows* const windows = MWindows::GetInstance();
    if (!windows || !windows->dialogs) return;
    if (target.isDirectory) {
        fileNameEdit->SetText(MString());
        return selector->SetPath(target.path);
    }
    const bool isChoice = mode == Mode::Open
                              ? target.isFile
                              : !target.path.IsEmpty() && MIsSafeFileName(MFile::GetFileName(target.path));
    if (!isChoice) return windows->dialogs->ShowInformation(*this, MTranslate("You have to select a file."));
    if (!target.isInDirectory || !selector->Holds(target.path))
        return Refuse(MFile::GetDirectory(target.path));
    const MControlRef self(this);
    if (mode == Mode::Save && target.exists) {
        const MString question = MFormat(MTranslate("Are you sure you want to rewrite file \"{0}\"?"),
                                         MEntities::Escape(MFile::GetFileName(target.path)));
        if (!windows->dialogs->AskYesNo(*this, question) || !self) return;
    }
    filePath = target.path;
    CloseWindow(MModalValue::Ok);
}

bool MFileDialog::IsNowhere() const {
    return selector->GetPath().IsEmpty() && !selector->GetList().IsReading();
}

void MFileDialog::OnPrepared() {
    const MControlRef self(this);
    MDialogWindow::OnPrepared();
    if (!self || !IsNowhere()) return;
    const MString root = selector->GetTree().GetRootPath();
    const MString first = root.IsEmpty() ? MFile::GetSpecialPath(MSpecialFolderUserDocuments) : root;
    const auto chosen = std::make_shared<MString>();
    const auto look = [chosen, last = lastPath, first] {
        for (const MString& path : {last, first})
            if (chosen->IsEmpty() && !path.IsEmpty() && MFile::IsDirectory(path)) *chosen = path;
    };
    beginning.Begin(look, [this, chosen] {
        if (IsNowhere()) selector->SetPath(*chosen);
    });
}

void MFileDialog::OnClosed() {
    beginning.Cancel();
    acceptance.Cancel();
    MDialogWindow::OnClosed();
}

bool MFileDialog::SaveState(MXMLItem& item) {
    (void)MDialogWindow::SaveState(item);
    item.SetAttribute("filterindex", filterIndex);
    item.SetAttribute("RootPath", selector->GetTree().GetRootPath());
    item.SetAttribute("Path", selector->GetPath());
    item.SetAttribute("FileName", fileNameEdit->GetText());
    (void)selector->SaveState(*item.AddSubItem("Selector"));
    (void)custom->SaveState(*item.AddSubItem("Custom"));
    return true;
}

void MFileDialog::LoadState(MXMLItem& item) {
    MDialogWindow::LoadState(item);
    SetFilterIndex(item.GetInt32Attribute("filterindex", filterIndex));
    // A folder of another root may not be entered here.
    const MString path = item.GetAttribute("Path", MString());
    const bool isSameRoot =
        item.GetAttribute("RootPath", MString()).IsExactly(selector->GetTree().GetRootPath());
    lastPath = isSameRoot ? path : MString();
    if (fileNameEdit->GetLength() == 0) fileNameEdit->SetText(item.GetAttribute("FileName", MString()));
    if (MXMLItem* const state = item.FindSubItem("Selector")) selector->LoadState(*state);
    if (MXMLItem* const state = item.FindSubItem("Custom")) custom->LoadState(*state);
}
