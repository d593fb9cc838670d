#include "ui/widgets/files/MDirectoryTreeControl.h"

#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"

#include <string>
#include <unordered_set>
#include <utility>

namespace {

/// Whether both are one path by the rules for names of the platform.
bool IsSamePath(const MString& a, const MString& b) {
    return MPlatform::HasRootDirectory() ? a.IsExactly(b) : a == b;
}

bool IsBelow(const MString& path, const MString& folder) {
    if (folder.IsEmpty() || IsSamePath(path, folder)) return true;
    const MString begin = folder.EndsWith("/") ? folder : folder + "/";
    return IsSamePath(path.Substring(0, begin.GetLength()), begin);
}

}  // namespace

MDirectoryTreeControl::MDirectoryTreeControl(MControl* parent, const MString& name)
    : MTreeControlT<MDirectoryTreeItem>(parent, name),
      reader([this](const MFolderContents& contents) { Show(contents); }) {
    infoText = MTranslate("Directory tree");
    SetRootPath(MString());
}

void MDirectoryTreeControl::LoadFromXml(MXMLItem& item) {
    MTreeControlT<MDirectoryTreeItem>::LoadFromXml(item);
    if (item.HasAttribute("rootpath")) SetRootPath(item.GetCachedAttribute());
}

void MDirectoryTreeControl::SetRootPath(const MString& path) {
    reader.Cancel();
    pathToSelect = MString();
    MDirectoryTreeItem& top = GetRootItem();
    SelectTreeItem(nullptr);
    RemoveItemsBelow(top);
    SetItemOpen(top, false);
    top.path = MFile::Normalize(path);
    top.text = path.IsEmpty() ? MTranslate("Drives") : MFile::GetFileName(top.path);
    if (top.text.IsEmpty()) top.text = top.path;
    top.icon = MStdIcon::Directory;
    top.isRead = false;
    top.mayHaveChildren = true;
    UpdateRows();
}

void MDirectoryTreeControl::SetHiddenShown(bool isShown) {
    if (std::exchange(hasHidden, isShown) == isShown) return;
    const MString root = GetRootPath();
    const MString path = GetSelectedPath();
    SetRootPath(root);
    SelectPath(path);
}

void MDirectoryTreeControl::Read(MDirectoryTreeItem& item) {
    pathBeingRead = item.path;
    MFolderQuestion question;
    question.directory = item.path;
    question.hasFiles = false;
    question.hasHidden = hasHidden;
    reader.Read(question);
}

void MDirectoryTreeControl::OnOpening(MTreeItemBase& item) {
    auto& folder = static_cast<MDirectoryTreeItem&>(item);
    const MControlRef self(this);
    if (!folder.isRead) {
        // Who opens something else than what is being waited for does not want that any more.
        if (!IsBelow(pathToSelect, folder.path)) pathToSelect = MString();
        Read(folder);
    }
    if (self) MTreeControlT<MDirectoryTreeItem>::OnOpening(item);
}

MDirectoryTreeItem& MDirectoryTreeControl::AddFolder(MDirectoryTreeItem& parent, const MString& name) {
    MDirectoryTreeItem& item = AddItem(parent, name);
    item.path = parent.path.IsEmpty() ? name : MFile::Join(parent.path, name);
    item.icon = MStdIcon::Directory;
    item.mayHaveChildren = true;
    return item;
}

void MDirectoryTreeControl::Show(const MFolderContents& contents) {
    MDirectoryTreeItem* const item = FindItem(contents.directory);
    if (!item) return;
    const bool wasRead = std::exchange(item->isRead, true);
    // Items that are still there stay as they are, and with them what is open below.
    std::unordered_set<std::string> names;
    for (const MFolderEntry& entry : contents.entries) names.insert(MEncodeUTF8Exact(entry.name));
    for (int32_t i = item->GetChildCount() - 1; wasRead && i >= 0; --i)
        if (!names.contains(MEncodeUTF8Exact(GetChild(*item, i).text))) RemoveItem(GetChild(*item, i));
    int32_t index = 0;
    for (const MFolderEntry& entry : contents.entries) {
        const bool isKnown =
            index < item->GetChildCount() && GetChild(*item, index).text.IsExactly(entry.name);
        if (!isKnown) {
            auto folder = std::make_unique<MDirectoryTreeItem>(entry.name);
            folder->path = item->path.IsEmpty() ? entry.name : MFile::Join(item->path, entry.name);
            folder->icon = MStdIcon::Directory;
            folder->mayHaveChildren = true;
            AddItem(*item, std::move(folder), index);
        }
        ++index;
    }
    item->mayHaveChildren = item->GetChildCount() > 0;
    UpdateRow(FindRow(*item));
    const MControlRef self(this);
    SetItemOpen(*item, item->mayHaveChildren);
    if (self) Advance();
}

MDirectoryTreeItem* MDirectoryTreeControl::FindChildOnWay(MDirectoryTreeItem& item, const MString& path) {
    for (int32_t i = 0; i < item.GetChildCount(); ++i)
        if (IsBelow(path, GetChild(item, i).path)) return &GetChild(item, i);
    return nullptr;
}

MDirectoryTreeItem* MDirectoryTreeControl::FindItem(const MString& path) {
    MDirectoryTreeItem* item = &GetRootItem();
    while (item && !IsSamePath(item->path, path)) item = FindChildOnWay(*item, path);
    return item;
}

bool MDirectoryTreeControl::Holds(const MString& path) {
    return IsBelow(path, GetRootPath());
}

MString MDirectoryTreeControl::GetNearest(const MString& path) {
    MString nearest = path;
    while (!MFile::IsValidDirectory(nearest)) nearest = MFile::GetDirectory(nearest);
    return Holds(nearest) ? nearest : GetRootPath();
}

void MDirectoryTreeControl::SelectPath(const MString& path) {
    if (!Holds(path)) return;
    MDirectoryTreeItem& top = GetRootItem();
    if (IsSamePath(path, top.path)) {
        pathToSelect = MString();
        SelectTreeItem(&top);
        // It alone tells nothing.
        return SetItemOpen(top, true);
    }
    pathToSelect = path;
    Advance();
}

void MDirectoryTreeControl::Advance() {
    MDirectoryTreeItem* item = &GetRootItem();
    while (!pathToSelect.IsEmpty()) {
        if (IsSamePath(item->path, pathToSelect)) {
            pathToSelect = MString();
            return SelectTreeItem(item);
        }
        if (!item->isRead) {
            if (!reader.IsReading() || !IsSamePath(pathBeingRead, item->path)) Read(*item);
            // What was there within a moment has gone on by itself.
            return;
        }
        MDirectoryTreeItem* next = FindChildOnWay(*item, pathToSelect);
        if (!next) {
            // One that is not shown by itself, since its name begins with a dot.
            const int32_t start = item->path.IsEmpty() || item->path.EndsWith("/")
                                      ? item->path.GetLength()
                                      : item->path.GetLength() + 1;
            const MString rest = pathToSelect.Substring(start);
            const int32_t end = rest.FindChar('/');
            const MString name = end == MString::NotFound ? rest : rest.Substring(0, end);
            // The way leads down only.
            if (name.IsEmpty() || name.IsExactly(".") || name.IsExactly("..")) {
                pathToSelect = MString();
                return;
            }
            next = &AddFolder(*item, name);
            item->mayHaveChildren = true;
        }
        item = next;
    }
}

MString MDirectoryTreeControl::GetSelectedPath() {
    const MDirectoryTreeItem* const item = GetSelectedItem();
    return item ? item->path : MString();
}

void MDirectoryTreeControl::Refresh(const MString& path) {
    MDirectoryTreeItem* const item = FindItem(path);
    if (item && item->isRead) Read(*item);
}
