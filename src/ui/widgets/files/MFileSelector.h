#pragma once

#include "ui/control/MContainers.h"
#include "ui/widgets/files/MDirectoryTreeControl.h"
#include "ui/widgets/files/MFileListBox.h"
#include "ui/widgets/menus/MMenu.h"
#include "ui/widgets/splitters/MSplitter.h"

#include <functional>
#include <memory>
#include <vector>

/// A tree of folders and the files of the one that is selected. The user goes from folder to folder in both, and may
/// create, rename and delete: by a context menu, F2 and Delete.
class MFileSelector : public MPanel, private MTimer {
public:
    explicit MFileSelector(MControl* parent = nullptr, const MString& name = MString());

    [[nodiscard]] MDirectoryTreeControl& GetTree() const { return *tree; }
    [[nodiscard]] MFileListBox& GetList() const { return *list; }

    /// The folder that nothing outside of is shown; empty, as in the beginning, for the drives.
    void SetRootPath(const MString& path);
    /// Whether a file or folder is the root or below it.
    [[nodiscard]] bool Holds(const MString& file) const;
    /// Goes to a folder. One that is outside of the root or cannot be read is told of by `OnRefused`, and the one
    /// before stays.
    void SetPath(const MString& path);
    /// The folder that is shown.
    [[nodiscard]] const MString& GetPath() const { return path; }
    void SetPatterns(const MString& patterns) { list->SetPatterns(patterns); }

    /// The folder that is shown is another one.
    [[nodiscard]] MEvent<MOnStringParams>& OnPath() { return pathEvent; }
    /// A folder could not be entered.
    [[nodiscard]] MEvent<MOnStringParams>& OnRefused() { return refusedEvent; }
    /// Another file is selected: its name, empty for none and for a folder.
    [[nodiscard]] MEvent<MOnStringParams>& OnFile() { return fileEvent; }
    /// A file was double clicked, or Enter was pressed on it: its path.
    [[nodiscard]] MEvent<MOnStringParams>& OnAccept() { return acceptEvent; }

    /// "rootpath", "path".
    void LoadFromXml(MXMLItem& item) override;

private:
    enum MenuId { Create, Rename, Delete, ByName, ByTime, BySize };

    /// What the menu works on.
    struct Target {
        MString path;  ///< empty for none
        bool isDirectory = true;
    };

    /// Something that is being deleted, which may take its time.
    struct Deletion {
        MBackgroundTask task;
        MString directory;  ///< that it is in
        std::shared_ptr<MString> failure;
    };

    void AcceptFiles(const MOnItemParams<MFileListItem>& params);
    void OnListItem(const MOnItemParams<MFileListItem>& params);
    void OnListRead(const MOnNotifyParams& params);
    void OnTreeItem(const MOnItemParams<MDirectoryTreeItem>& params);
    void OnRightClick(const MOnClickParams& params);
    void OnKey(const MOnKeyboardShortcutParams& params);
    void OnMenuItem(const MOnItemParams<MMenuItem>& params);

    [[nodiscard]] Target GetTarget(const MControl& control);
    void OpenMenu(MControl& control, MPoint point);
    void CreateDirectory(const MString& directory);
    void RenameTarget(const Target& target);
    void DeleteTarget(const Target& target);
    /// Does something to files, tells what fails, and shows what has become of `directory`.
    void Change(const MString& directory, const std::function<void()>& change);
    void ShowChange(const MString& directory, const MString& failure);
    void OnTimer() override;
    /// The folder is what is shown from now on.
    void Enter();

    MSplitter* const splitter;
    MDirectoryTreeControl* const tree;
    MFileListBox* const list;
    MMenu menu;
    Target menuTarget;
    std::vector<Deletion> deletions;
    MString path;
    MEvent<MOnStringParams> pathEvent;
    MEvent<MOnStringParams> refusedEvent;
    MEvent<MOnStringParams> fileEvent;
    MEvent<MOnStringParams> acceptEvent;
};
