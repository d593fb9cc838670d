#include "builder/definition/MSourceTree.h"

#include "builder/definition/MDefinitionText.h"
#include "builder/definition/MSortedFileList.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLSubItems.h"
#include "streams/basic/MStdFileStream.h"

#include <algorithm>

namespace {

bool IsContent(const MXMLItem& item) {
    return item.GetName() == "dir" || item.GetName() == "file";
}

bool HasContent(const MXMLItem& files) {
    const MXMLItem::SubItemList& children = files.GetSubItems();
    return std::any_of(children.begin(), children.end(),
                       [](const MXMLItem* child) { return IsContent(*child); });
}

void SetMissing(MXMLItem& item, const char* attribute, const char* value) {
    if (!item.HasAttribute(attribute)) item.SetAttribute(attribute, value);
}

MXMLItem* AddCreated(MXMLItem& parent, const char* elementName, const MString& name) {
    MXMLItem* item = parent.AddSubItem(elementName);
    item->SetAttribute("name", name);
    item->SetAttribute("op", "create");
    item->SetAttribute("update", "0");
    return item;
}

}  // namespace

std::unique_ptr<MStream> MSourceItem::Open() const {
    if (payload) return payload->OpenItem(stored);
    auto file = std::make_unique<MStdFileStream>();
    file->Open(path, MOpenRead);
    return file;
}

void MSourceTree::Collect() {
    for (MXMLItem* element : definition.GetRoot().GetSubItems()) {
        const MString& name = element->GetName();
        if (name == "files") CollectFiles(*element);
        if (name == "licence") CollectNamed(*element);
        if (name == "topimage" || name == "leftimage") {
            CollectNamed(*element);
            for (MXMLItem& scaled : MXMLSubItems(*element, "scaled")) CollectNamed(scaled);
        }
    }
}

void MSourceTree::CollectNamed(MXMLItem& element) {
    const MString name = element.GetAttribute("name", "");
    // A missing name is told as a missing attribute.
    if (!name.IsEmpty()) AddItem(element, definition.GetSourcePath(name));
}

void MSourceTree::CollectFiles(MXMLItem& files) {
    const MString source = files.GetAttribute("path", "");
    const MString path = definition.GetSourcePath(source);
    if (!HasContent(files) && source.IsEmpty()) {
        problems.AddWarning(definition.GetLine(files),
                            "This \"files\" installs nothing. Give it a \"path\", or \"dir\" and \"file\" "
                            "elements, unless it is kept for a package.");
        return;
    }
    if (!HasContent(files)) FillFromDisk(files, path);
    CollectChildren(files, path);
}

void MSourceTree::CollectChildren(MXMLItem& parent, const MString& path) {
    for (MXMLItem* child : parent.GetSubItems()) {
        if (!IsContent(*child)) continue;
        const MString childPath = MFile::Join(path, child->GetAttribute("name", ""));
        if (child->GetName() == "dir")
            CollectChildren(*child, childPath);
        else
            CollectFile(*child, childPath);
    }
}

void MSourceTree::CollectFile(MXMLItem& file, const MString& path) {
    SetMissing(file, "op", "create");
    const MString op = file.GetAttribute("op");
    if (!(op == "create" || op == "update")) return;
    if (!AddItem(file, path)) return;
    file.SetAttribute("time", MFileTimeToText(MFile::GetFileTime(path)));
    SetMissing(file, "update", "0");
}

bool MSourceTree::AddItem(MXMLItem& element, const MString& path) {
    if (!MFile::Exists(path)) {
        AddProblem(element, "The source \"{0}\" does not exist. Put it there, or correct the path.", path);
        return false;
    }
    if (MFile::IsDirectory(path) || MFile::IsDevice(path)) {
        AddProblem(element, "The source \"{0}\" is no file. Name a file here.", path);
        return false;
    }
    try {
        items.Add({&element, path, MFile::GetFileSize(path)});
        return true;
    } catch (const MException& exception) {
        AddProblem(element, "The source cannot be read: {0} Make it readable.", exception.GetMessage());
        return false;
    }
}

void MSourceTree::FillFromDisk(MXMLItem& files, const MString& path) {
    if (MFile::IsDirectory(path))
        FillFromDirectory(files, path);
    else
        AddCreated(files, "file", "");
}

void MSourceTree::FillFromDirectory(MXMLItem& parent, const MString& path) {
    MList<MFileListEntry> entries;
    try {
        entries = MGetSortedFileList(path);
    } catch (const MException& exception) {
        AddProblem(parent, "A directory of the source cannot be read: {0} Make it readable.",
                   exception.GetMessage());
    }
    for (const MFileListEntry& entry : entries) {
        const MString entryPath = MFile::Join(path, entry.name);
        if (!MFile::IsDirectory(entryPath)) {
            AddCreated(parent, "file", entry.name);
        } else if (MFile::IsLink(entryPath)) {
            AddProblem(
                parent,
                "\"{0}\" is a link to a directory. Put the directory itself there, or delete the link.",
                entryPath);
        } else {
            FillFromDirectory(*AddCreated(parent, "dir", entry.name), entryPath);
        }
    }
}

void MSourceTree::AddProblem(const MXMLItem& element, const char* text, const MString& value) {
    problems.AddError(definition.GetLine(element), MFormat(text, value));
}
