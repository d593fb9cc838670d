#pragma once

#include "ui/dialogs/MDialogWindow.h"
#include "ui/widgets/files/MDirectoryTreeControl.h"

/// Asks for a folder.
class MDirectoryDialog : public MDialogWindow {
public:
    explicit MDirectoryDialog(const MString& name = "DirectoryDialog", const MString& caption = MString());

    /// The folder that nothing outside of can be chosen; empty for none.
    void SetRootPath(const MString& path) { tree->SetRootPath(path); }
    /// Where a folder is missing, the nearest one above it is selected.
    void SetPath(const MString& path) { tree->SelectPath(tree->GetNearest(path)); }
    /// The folder that is selected; empty for none.
    [[nodiscard]] MString GetPath() const { return tree->GetSelectedPath(); }
    [[nodiscard]] MDirectoryTreeControl& GetTree() const { return *tree; }

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void OnClosed() override;

private:
    void OnAcceptClick(const MOnClickParams& params);

    MDirectoryTreeControl* tree;
    MAwaitedTask acceptance;  ///< looks whether the folder can be entered
};
