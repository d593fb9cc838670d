#include "ui/widgets/files/MFileListBox.h"

#include "foundation/files/MFile.h"

#include <utility>

MFileListBox::MFileListBox(MControl* parent, const MString& name)
    : MListBoxT<MFileListItem>(parent, name),
      reader([this](const MFolderContents& contents) { Show(contents); }) {
    infoText = MTranslate("Available files");
}

void MFileListBox::SetDirectory(const MString& newDirectory) {
    const bool isOther = !newDirectory.IsExactly(question.directory);
    question.directory = newDirectory;
    question.order.reset();
    if (isOther) {
        RemoveAllItems();
        ScrollTo(0);
        nameToSelect = MString();
    }
    reader.Read(question);
}

void MFileListBox::Refresh() {
    const int32_t row = GetSelectedRow();
    if (row >= 0 && nameToSelect.IsEmpty()) nameToSelect = GetItem(row)->text;
    reader.Read(question);
}

void MFileListBox::SetPatterns(const MString& patterns) {
    if (patterns == question.patterns) return;
    question.patterns = patterns;
    Refresh();
}

void MFileListBox::SetHiddenShown(bool isShown) {
    if (std::exchange(question.hasHidden, isShown) != isShown) Refresh();
}

void MFileListBox::SetOrder(MFolderSettings::Order order) {
    question.order = order;
    settings.order = order;
    // The volume may take its time, or not take it at all.
    if (!question.directory.IsEmpty())
        MBackgroundTask([directory = question.directory, saved = settings] { saved.Save(directory); });
    Refresh();
}

void MFileListBox::Show(const MFolderContents& contents) {
    failure = contents.failure;
    settings = contents.settings;
    RemoveAllItems();
    const MString name = std::exchange(nameToSelect, MString());
    for (const MFolderEntry& entry : contents.entries) {
        auto item = std::make_unique<MFileListItem>(entry.name);
        item->isDirectory = entry.isDirectory;
        if (entry.isDirectory) item->icon = MStdIcon::Directory;
        AddItem(std::move(item));
    }
    const MControlRef self(this);
    readEvent.Fire({this});
    if (self && !name.IsEmpty()) SelectName(name);
}

void MFileListBox::SelectName(const MString& name) {
    if (reader.IsReading()) {
        nameToSelect = name;
        return;
    }
    for (int32_t row = 0; row < GetItemCount(); ++row)
        if (GetItem(row)->text.IsExactly(name)) return SelectRow(row);
    SelectRow(-1);
}

MString MFileListBox::GetSelectedPath() {
    const MFileListItem* const item = GetSelectedItem();
    return item ? MFile::Join(question.directory, item->text) : MString();
}
