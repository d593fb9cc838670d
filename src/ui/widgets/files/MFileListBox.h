#pragma once

#include "ui/widgets/files/MFolderReader.h"
#include "ui/widgets/lists/MListBox.h"

/// A file or a folder in a list.
class MFileListItem final : public MListBoxItemBaseWithFeatures {
public:
    using MListBoxItemBaseWithFeatures::MListBoxItemBaseWithFeatures;

    bool isDirectory = false;
};

/// The folders and files of a folder. A folder that takes long is empty until it was read; what a window does
/// meanwhile goes on.
class MFileListBox : public MListBoxT<MFileListItem> {
public:
    explicit MFileListBox(MControl* parent = nullptr, const MString& name = MString());

    /// Shows another folder, or the same one anew. `OnRead` tells of the end.
    void SetDirectory(const MString& newDirectory);
    [[nodiscard]] const MString& GetDirectory() const { return question.directory; }
    void Refresh();
    /// Of files, as "*.wav;*.aif"; empty for all.
    void SetPatterns(const MString& patterns);
    void SetHiddenShown(bool isShown);
    /// For this folder, which remembers it.
    void SetOrder(MFolderSettings::Order order);
    [[nodiscard]] MFolderSettings::Order GetOrder() const { return settings.order; }
    [[nodiscard]] bool IsReading() const { return reader.IsReading(); }
    /// Why the folder could not be read; empty if it was.
    [[nodiscard]] const MString& GetFailure() const { return failure; }

    /// Selects what has a name alone; at once, or when it has been read.
    void SelectName(const MString& name);
    /// The path of the selected item; empty if there is none.
    [[nodiscard]] MString GetSelectedPath();
    /// The folder was read, or could not be.
    [[nodiscard]] MEvent<MOnNotifyParams>& OnRead() { return readEvent; }

private:
    void Show(const MFolderContents& contents);

    MFolderReader reader;
    MFolderQuestion question;
    MFolderSettings settings;
    MString failure;
    MString nameToSelect;
    MEvent<MOnNotifyParams> readEvent;
};
