#include "builder/updates/MUpdateFiles.h"

#include "builder/checks/MFileNameRules.h"
#include "builder/packing/MEqualContents.h"
#include "builder/updates/MUpdatePaths.h"
#include "foundation/base/MRaise.h"
#include "foundation/text/MUnicode.h"

namespace {

std::string GetKey(const MString& path) {
    return MEncodeUTF8Exact(path);
}

std::string GetFoldedKey(const MString& path) {
    return MEncodeUTF8Exact(MFileNameRules::FoldCase(path));
}

MString GetOp(const MXMLItem& item) {
    return item.GetAttribute("op", "");
}

bool IsWritten(const MXMLItem& file) {
    const MString op = GetOp(file);
    return op == "create" || op == "update";
}

bool IsSwitchEqual(const MXMLItem& first, const MXMLItem& second, const char* attribute) {
    return (first.GetInt32Attribute(attribute, 1) != 0) == (second.GetInt32Attribute(attribute, 1) != 0);
}

/// Whether files that exist in a container are never replaced or removed.
bool IsProtected(const MXMLItem& container) {
    for (const MXMLItem* item = &container; item; item = item->GetParent())
        if (item->GetInt32Attribute("rewritable", 1) == 0) return true;
    return false;
}

MXMLItem& AddItem(MXMLItem& target, const MString& element, const MString& name, const char* op) {
    MXMLItem& item = *target.AddSubItem(element);
    item.SetAttribute("name", name);
    item.SetAttribute("op", op);
    return item;
}

/// Adds an element with the attributes of another, but where its content is.
MXMLItem& AddLike(const MXMLItem& source, const MString& name, MXMLItem& target) {
    MXMLItem& item = *target.AddSubItem(source.GetName());
    for (const MAttribute* attribute : source.GetAttributes())
        item.SetAttribute(attribute->name, attribute->value);
    for (const char* attribute : {"filestart", "filesize", "path"}) item.RemoveAttribute(attribute);
    item.SetAttribute("name", name);
    return item;
}

}  // namespace

MUpdateFiles::Tree::Tree(const MXMLItem& files) {
    directories[std::string()].push_back(&files);
    Add(files, MString());
}

void MUpdateFiles::Tree::Add(const MXMLItem& parent, const MString& path) {
    for (const MXMLItem* child : parent.GetSubItems()) {
        const bool isDirectory = child->GetName() == "dir";
        if (!isDirectory && !(child->GetName() == "file")) continue;
        const MString childPath = MUpdatePaths::Append(path, MUpdatePaths::GetName(parent, *child));
        const bool isThere = !(GetOp(*child) == "delete");
        if (isThere) (isDirectory ? foldedDirectories : foldedFiles).insert(GetFoldedKey(childPath));
        if (isDirectory) {
            if (isThere) directories[GetKey(childPath)].push_back(child);
            Add(*child, childPath);
        } else {
            files.emplace(GetKey(childPath), child);
        }
    }
}

bool MUpdateFiles::Write(const MXMLItem& oldFiles, const MXMLItem& newFiles, MXMLItem& target) {
    files = &newFiles;
    before = std::make_unique<Tree>(oldFiles);
    after = std::make_unique<Tree>(newFiles);
    cleaned.clear();
    isChanged = false;
    RequireSameKinds();
    WriteChildren(newFiles, MString(), target);
    return isChanged;
}

void MUpdateFiles::RequireSameKinds() const {
    const auto refuse = [](const std::string& path, const char* old, const char* now) {
        MRaise(
            MExceptionGeneral,
            "\"{0}\" was a {1} and is a {2}. The uninstaller would know both and miss one: give the new one "
            "another name.",
            MDecodeUTF8Exact(path), old, now);
    };
    for (const std::string& path : before->foldedFiles)
        if (after->foldedDirectories.contains(path)) refuse(path, "file", "directory");
    for (const std::string& path : before->foldedDirectories)
        if (after->foldedFiles.contains(path)) refuse(path, "directory", "file");
}

void MUpdateFiles::WriteChildren(const MXMLItem& parent, const MString& path, MXMLItem& target) {
    WriteDeleted(path, target);
    for (const MXMLItem* child : parent.GetSubItems()) {
        const bool isDirectory = child->GetName() == "dir";
        if (!isDirectory && !(child->GetName() == "file")) continue;
        const MString name = MUpdatePaths::GetName(parent, *child);
        const MString childPath = MUpdatePaths::Append(path, name);
        if (isDirectory)
            WriteDirectory(*child, name, childPath, target);
        else
            WriteFile(*child, name, childPath, target);
    }
}

void MUpdateFiles::WriteDirectory(const MXMLItem& child, const MString& name, const MString& path,
                                  MXMLItem& target) {
    MXMLItem& item = AddLike(child, name, target);
    const auto known = before->directories.find(GetKey(path));
    if (known == before->directories.end()) {
        isChanged = true;
    } else {
        if (GetOp(child) == "create") item.SetAttribute("op", "leave");
        const MXMLItem& old = *known->second.front();
        if (!IsSwitchEqual(old, child, "rewritable") || !IsSwitchEqual(old, child, "uninstall"))
            isChanged = true;
    }
    WriteChildren(child, path, item);
}

void MUpdateFiles::WriteFile(const MXMLItem& child, const MString& name, const MString& path,
                             MXMLItem& target) {
    MXMLItem& item = AddLike(child, name, target);
    const auto found = before->files.find(GetKey(path));
    const MXMLItem* old = found == before->files.end() ? nullptr : found->second;
    if (!IsWritten(child)) {
        if (!old || !(GetOp(*old) == GetOp(child))) isChanged = true;
        return;
    }
    const MSourceItem* content = newer.FindContent(child);
    if (!content)
        MRaise(MExceptionGeneral, "\"{0}\" brings no content. \"{1}\" is damaged; make it again.", path,
               newer.GetPath());
    const MSourceItem* oldContent = old && IsWritten(*old) ? older.FindContent(*old) : nullptr;
    if (oldContent && MHasEqualContent(*oldContent, *content)) return item.SetAttribute("op", "leave");
    item.SetAttribute("op", oldContent ? "update" : "create");
    contents.Add({&item, content->path, content->size, content->payload, content->stored});
    isChanged = true;
}

void MUpdateFiles::WriteDeleted(const MString& path, MXMLItem& target) {
    const auto found = before->directories.find(GetKey(path));
    if (found == before->directories.end() || !cleaned.insert(GetKey(path)).second) return;
    for (const MXMLItem* parent : found->second) {
        if (IsProtected(*parent)) continue;
        for (const MXMLItem* child : parent->GetSubItems()) {
            const MString name = MUpdatePaths::GetName(*parent, *child);
            const MString childPath = MUpdatePaths::Append(path, name);
            if (child->GetName() == "dir" && !(GetOp(*child) == "delete"))
                DeleteDirectory(name, childPath, target);
            if (child->GetName() == "file" && IsWritten(*child)) DeleteFile(name, childPath, target);
        }
    }
}

void MUpdateFiles::DeleteFile(const MString& name, const MString& path, MXMLItem& target) {
    if (after->files.contains(GetKey(path))) return;
    const MUpdateTargets::Share needed = GetStillNeeded(path);
    if (needed == MUpdateTargets::Share::Some)
        MRaise(
            MExceptionGeneral,
            "\"{0}\" is no longer in \"{1}\", and another group brings it to one of its places, but not to all: "
            "no update can delete it in the others alone. Give it another name, or leave it where it was.",
            path, files->GetAttribute("name", ""));
    if (needed == MUpdateTargets::Share::All) return;
    AddItem(target, "file", name, "delete");
    isChanged = true;
}

void MUpdateFiles::DeleteDirectory(const MString& name, const MString& path, MXMLItem& target) {
    if (after->directories.contains(GetKey(path)) || cleaned.contains(GetKey(path))) return;
    const bool isNeeded = GetStillNeeded(path) == MUpdateTargets::Share::All;
    MXMLItem& item = AddItem(target, "dir", name, isNeeded ? "leave" : "delete");
    WriteDeleted(path, item);
    if (item.GetSubItemCount() == 0 && isNeeded)
        target.RemoveSubItem(target.GetSubItemCount() - 1);
    else
        isChanged = true;
}

MUpdateTargets::Share MUpdateFiles::GetStillNeeded(const MString& path) const {
    // A name that differs in case only is deleted before the new one is written.
    const std::string folded = GetFoldedKey(path);
    if (after->foldedFiles.contains(folded) || after->foldedDirectories.contains(folded))
        return MUpdateTargets::Share::None;
    return targets.GetFilled(*files, path);
}
