#include "ui/widgets/files/MFileSelector.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MEntities.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/windows/MWindows.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr int32_t KeyF2 = MKeyF1 + 1;
constexpr int32_t Keys[] = {MKeyMenu, KeyF2, MKeyDelete, MKeyBackspace};
/// Between two looks whether something is deleted, in milliseconds.
constexpr int32_t DeletionInterval = 50;

/// A path whose components lead down only: "." is left out, and ".." with what it leads out of.
MString WithoutDots(const MString& path) {
    MString clean;
    for (const MString& component : path.Split('/')) {
        if (component.IsExactly(".")) continue;
        if (!component.IsExactly(".."))
            clean += (clean.IsEmpty() && !path.StartsWith("/") ? MString() : MString("/")) + component;
        else
            clean.Cut(std::max(clean.FindCharBackward('/'), 0));
    }
    return clean.IsEmpty() && path.StartsWith("/") ? MString("/") : clean;
}

/// The name that the user gives something, none if that is left or is no name of a file.
std::optional<MString> AskName(MControl& control, const MString& caption, const MString& name) {
    const MWindows* const windows = MWindows::GetInstance();
    if (!windows || !windows->dialogs) return std::nullopt;
    const MCharFilter::AllFilter everything;
    std::optional<MString> answer = windows->dialogs->EditText(control.GetRoot(), caption, name, everything);
    if (answer) answer->Trim();
    if (!answer || answer->IsExactly(name) || !MIsSafeFileName(*answer)) return std::nullopt;
    return answer;
}

}  // namespace

MFileSelector::MFileSelector(MControl* parent, const MString& name)
    : MPanel(parent, name),
      splitter(new MSplitter(this, "splitter")),
      tree(new MDirectoryTreeControl(&splitter->GetPanel(0), "DirectoryTree")),
      list(new MFileListBox(&splitter->GetPanel(1), "FileList")) {
    SetControlType(MControlType::Empty);
    SetClientControl(splitter);
    splitter->GetPanel(0).SetClientControl(tree);
    splitter->GetPanel(1).SetClientControl(list);
    splitter->SetRatio(2, 3);
    tree->OnItem().Connect(this, &MFileSelector::OnTreeItem);
    list->OnItem().Connect(this, &MFileSelector::OnListItem);
    list->OnItemActivated().Connect(this, &MFileSelector::AcceptFiles);
    list->OnRead().Connect(this, &MFileSelector::OnListRead);
    menu.OnItem().Connect(this, &MFileSelector::OnMenuItem);
    for (MControl* control : {static_cast<MControl*>(tree), static_cast<MControl*>(list)}) {
        control->OnClick(Click::Right).Connect(this, &MFileSelector::OnRightClick);
        for (const int32_t key : Keys)
            control->GetShortcuts().Connect(this, &MFileSelector::OnKey,
                                            {key, MModifierNone, MShortcutPhase::Press});
    }
}

void MFileSelector::LoadFromXml(MXMLItem& item) {
    if (item.HasAttribute("rootpath")) SetRootPath(item.GetCachedAttribute());
    if (item.HasAttribute("path")) SetPath(item.GetCachedAttribute());
    MPanel::LoadFromXml(item);
}

void MFileSelector::SetRootPath(const MString& newPath) {
    tree->SetRootPath(newPath);
    if (list->GetDirectory().IsEmpty() || !Holds(list->GetDirectory())) SetPath(tree->GetRootPath());
}

bool MFileSelector::Holds(const MString& file) const {
    return tree->Holds(WithoutDots(file));
}

void MFileSelector::SetPath(const MString& newPath) {
    const MString clean = WithoutDots(newPath);
    if (!tree->Holds(clean)) return (void)refusedEvent.Fire({this, clean});
    list->SetDirectory(clean);
}

/// A folder counts as entered when its list could be read.
void MFileSelector::OnListRead(const MOnNotifyParams&) {
    const MString read = list->GetDirectory();
    if (list->GetFailure().IsEmpty()) return Enter();
    // Back to what was there, which was read before.
    const MControlRef self(this);
    if (!path.IsExactly(read)) list->SetDirectory(path);
    if (self) tree->SelectPath(path);
    if (self) refusedEvent.Fire({this, read});
}

void MFileSelector::Enter() {
    if (path.IsExactly(list->GetDirectory())) return;
    path = list->GetDirectory();
    const MControlRef self(this);
    if (!tree->GetSelectedPath().IsExactly(path)) tree->SelectPath(path);
    if (self) pathEvent.Fire({this, path});
}

void MFileSelector::OnTreeItem(const MOnItemParams<MDirectoryTreeItem>& params) {
    if (params.item && !params.item->path.IsExactly(path)) SetPath(params.item->path);
}

void MFileSelector::OnListItem(const MOnItemParams<MFileListItem>& params) {
    fileEvent.Fire({this, params.item && !params.item->isDirectory ? params.item->text : MString()});
}

void MFileSelector::AcceptFiles(const MOnItemParams<MFileListItem>& params) {
    MGuard("MFileSelector::AcceptFiles", [&] {
        const MString chosen = path.IsEmpty() ? params.item->text : MFile::Join(path, params.item->text);
        params.item->isDirectory ? SetPath(chosen) : (void)acceptEvent.Fire({this, chosen});
    });
}

MFileSelector::Target MFileSelector::GetTarget(const MControl& control) {
    if (&control == tree) return {tree->GetSelectedPath(), true};
    const MFileListItem* const item = list->GetSelectedItem();
    return item ? Target{list->GetSelectedPath(), item->isDirectory} : Target{};
}

void MFileSelector::OpenMenu(MControl& control, MPoint point) {
    menuTarget = GetTarget(control);
    const bool isFree = menuTarget.path.IsEmpty() || menuTarget.path.IsExactly(tree->GetRootPath());
    menu.Clear();
    menu.AddItem(MTranslate("Create"), Create, MStdIcon::Add).isEnabled = !path.IsEmpty();
    menu.AddItem(MTranslate("Rename"), Rename, MStdIcon::Pencil).isEnabled = !isFree;
    menu.AddItem(MTranslate("Delete"), Delete, MStdIcon::Delete).isEnabled = !isFree;
    menu.AddSeparator();
    constexpr const char* Orders[] = {"Sort by name", "Sort by time", "Sort by size"};
    for (int32_t order = 0; order < 3; ++order) {
        MMenuItem& item = menu.AddItem(MTranslate(Orders[order]), ByName + order);
        item.check = static_cast<int32_t>(list->GetOrder()) == order ? 1 : 0;
    }
    menu.OpenAt(control, point);
}

void MFileSelector::OnRightClick(const MOnClickParams& params) {
    OpenMenu(*params.control, params.point);
}

void MFileSelector::OnKey(const MOnKeyboardShortcutParams& params) {
    auto& rows = static_cast<MRowView&>(*params.control);
    const Target target = GetTarget(rows);
    const bool isFree = target.path.IsEmpty() || target.path.IsExactly(tree->GetRootPath());
    switch (params.key) {
    case MKeyMenu: {
        const MRect rect = rows.GetRowRect(rows.GetFocusedRow());
        return OpenMenu(rows, rect.IsEmpty() ? MPoint() : MPoint{rect.left, rect.bottom + 1});
    }
    case MKeyBackspace:
        if (!path.IsExactly(tree->GetRootPath())) SetPath(MFile::GetDirectory(path));
        return;
    case MKeyDelete:
        if (!isFree) DeleteTarget(target);
        return;
    default:
        if (!isFree) RenameTarget(target);
    }
}

void MFileSelector::OnMenuItem(const MOnItemParams<MMenuItem>& params) {
    switch (params.item->id) {
    case Create: return CreateDirectory(path);
    case Rename: return RenameTarget(menuTarget);
    case Delete: return DeleteTarget(menuTarget);
    default: return list->SetOrder(static_cast<MFolderSettings::Order>(params.item->id - ByName));
    }
}

void MFileSelector::Change(const MString& directory, const std::function<void()>& change) {
    MString failure;
    try {
        change();
    } catch (const MException& exception) {
        failure = exception.GetMessage();
    }
    ShowChange(directory, failure);
}

void MFileSelector::ShowChange(const MString& directory, const MString& failure) {
    const MControlRef self(this);
    const MWindows* const windows = MWindows::GetInstance();
    if (!failure.IsEmpty() && windows && windows->dialogs)
        windows->dialogs->ShowInformation(GetRoot(), MEntities::Escape(failure));
    if (self) tree->Refresh(directory);
    if (self && directory.IsExactly(path)) list->Refresh();
}

void MFileSelector::CreateDirectory(const MString& directory) {
    const MControlRef self(this);
    const std::optional<MString> name = AskName(*this, MTranslate("Enter new directory name"), MString());
    if (self && name) Change(directory, [&] { MFile::CreateDirectory(MFile::Join(directory, *name)); });
}

void MFileSelector::RenameTarget(const Target& target) {
    const MString old = MFile::GetFileName(target.path);
    const MString directory = MFile::GetDirectory(target.path);
    const char* const question =
        target.isDirectory ? "Rename directory \"{0}\" to" : "Rename file \"{0}\" to";
    const MControlRef self(this);
    const bool isShown = target.isDirectory && target.path.IsExactly(path);
    const std::optional<MString> name = AskName(*this, MFormat(MTranslate(question), old), old);
    if (!self || !name) return;
    const MString renamed = MFile::Join(directory, *name);
    bool isDone = false;
    Change(directory, [&] {
        MFile::Rename(target.path, renamed);
        isDone = true;
    });
    if (self && isDone && isShown) SetPath(renamed);
}

void MFileSelector::DeleteTarget(const Target& target) {
    const MWindows* const windows = MWindows::GetInstance();
    if (!windows || !windows->dialogs) return;
    const MString directory = MFile::GetDirectory(target.path);
    const char* const question =
        target.isDirectory ? "Are you sure you want to delete directory \"{0}\" and all subdirectories?"
                           : "Are you sure you want to delete file \"{0}\"?";
    const MControlRef self(this);
    const MString text = MFormat(MTranslate(question), MEntities::Escape(MFile::GetFileName(target.path)));
    if (!windows->dialogs->AskYesNo(GetRoot(), text) || !self) return;
    // What is shown of it goes first.
    if (target.isDirectory && target.path.IsExactly(path)) SetPath(directory);
    if (!self) return;
    const auto failure = std::make_shared<MString>();
    deletions.push_back({MBackgroundTask([file = target.path, failure] {
                             try {
                                 MFile::DeleteTree(file);
                             } catch (const MException& exception) {
                                 *failure = exception.GetMessage();
                             }
                         }),
                         directory, failure});
    if (deletions.back().task.WaitFor(MAwaitedTask::Patience))
        OnTimer();
    else
        StartTimer(DeletionInterval);
}

void MFileSelector::OnTimer() {
    const auto done = std::ranges::find_if(deletions, [](const Deletion& on) { return on.task.IsDone(); });
    if (done == deletions.end()) return;
    const Deletion deletion = *done;
    deletions.erase(done);
    if (deletions.empty()) StopTimer();
    ShowChange(deletion.directory, *deletion.failure);
}
