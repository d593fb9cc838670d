#pragma once

#include "ui/widgets/files/MFolderReader.h"
#include "ui/widgets/trees/MTreeControl.h"

/// A folder in a tree.
class MDirectoryTreeItem final : public MTreeItemBase {
public:
    using MTreeItemBase::MTreeItemBase;

    MString path;
    bool isRead = false;
};

/// The folders below the drives, or below one folder. What is in a folder is read when it is opened for the first
/// time, one level at a time, so a link that leads back up does no harm; one that takes long opens when it was read.
class MDirectoryTreeControl : public MTreeControlT<MDirectoryTreeItem> {
public:
    explicit MDirectoryTreeControl(MControl* parent = nullptr, const MString& name = MString());

    /// "Drives", for an empty path, or one folder.
    void SetRootPath(const MString& path);
    [[nodiscard]] const MString& GetRootPath() { return GetRootItem().path; }
    /// Whether a path without "." and ".." is that of the root or leads below it.
    [[nodiscard]] bool Holds(const MString& path);
    /// The folder of a path, or the nearest one above it that is there; the root where that is outside of it.
    [[nodiscard]] MString GetNearest(const MString& path);
    void SetHiddenShown(bool isShown);
    /// Selects a folder, opening all above it as they are read. Nobody is told. Nothing happens for one that is not
    /// below the root, and for one with "." or ".." in it.
    void SelectPath(const MString& path);
    /// Empty for none, and for the drives.
    [[nodiscard]] MString GetSelectedPath();
    /// Reads the folders in a folder again; nothing happens if it has no item.
    void Refresh(const MString& path);
    [[nodiscard]] bool IsReading() const { return reader.IsReading(); }

    /// "rootpath", as well.
    void LoadFromXml(MXMLItem& item) override;

protected:
    void OnOpening(MTreeItemBase& item) override;

private:
    void Read(MDirectoryTreeItem& item);
    void Show(const MFolderContents& contents);
    /// Goes on the way to `pathToSelect`, as far as folders have been read.
    void Advance();
    /// The item of a path, among those that have been read, or null.
    [[nodiscard]] MDirectoryTreeItem* FindItem(const MString& path);
    [[nodiscard]] MDirectoryTreeItem* FindChildOnWay(MDirectoryTreeItem& item, const MString& path);
    MDirectoryTreeItem& AddFolder(MDirectoryTreeItem& parent, const MString& name);

    MFolderReader reader;
    bool hasHidden = false;
    MString pathBeingRead;
    MString pathToSelect;
};
