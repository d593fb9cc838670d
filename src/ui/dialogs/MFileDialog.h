#pragma once

#include "ui/dialogs/MDialogWindow.h"
#include "ui/widgets/edits/MEdit.h"
#include "ui/widgets/files/MFileSelector.h"
#include "ui/widgets/menus/MMenu.h"

#include <vector>

/// Asks for a file, to be opened or to be written. What the user had chosen is there again the next time: the window
/// keeps its state, whose attributes are "filterindex", "RootPath", "Path" and "FileName", with the items "Selector" and
/// "Custom".
class MFileDialog : public MDialogWindow {
public:
    enum class Mode { Open, Save };

    explicit MFileDialog(Mode mode, const MString& name = "FileDialog", const MString& caption = MString());

    /// The first one is what is shown unless the user has chosen another one before. `patterns`: "*.wav;*.aif".
    void AddFilter(const MString& filterName, const MString& patterns);
    /// The folder that nothing outside of can be chosen; empty for none.
    void SetRootPath(const MString& path);
    /// Where a folder is missing, the nearest one above it is shown.
    void SetPath(const MString& path) { selector->SetPath(selector->GetTree().GetNearest(path)); }
    void SetFileName(const MString& fileName) { fileNameEdit->SetText(fileName); }
    /// For controls of the caller's below the name.
    [[nodiscard]] MContainer& GetCustomPanel() const { return *custom; }
    [[nodiscard]] MFileSelector& GetSelector() const { return *selector; }

    /// Whether it is waiting for the disk.
    [[nodiscard]] bool IsWaiting() const {
        return beginning.IsRunning() || acceptance.IsRunning() || selector->GetList().IsReading() ||
               selector->GetTree().IsReading();
    }
    /// What was chosen when it was closed with `Ok`.
    [[nodiscard]] const MString& GetFilePath() const { return filePath; }

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void OnPrepared() override;
    void OnClosed() override;
    bool SaveState(MXMLItem& item) override;
    void LoadState(MXMLItem& item) override;

private:
    struct Filter {
        MString name;
        MString patterns;
    };
    /// What the disk says of what was chosen.
    struct Target {
        MString path;
        bool isDirectory = false;
        bool isInDirectory = false;
        bool isFile = false;
        bool exists = false;
    };

    void SetFilterIndex(int32_t index);
    /// Takes what the name says: closes, goes to a folder, or tells what is wrong with it. The dialog goes on
    /// while the disk is asked, which may never answer.
    void Accept(const MString& fileName);
    void AcceptTarget(const Target& target);
    /// Tells that a folder cannot be entered.
    void Refuse(const MString& directory);
    /// What a name without an extension gets, or nothing.
    [[nodiscard]] MString GetMissingExtension(const MString& path) const;
    /// Whether nobody has said yet where to begin.
    [[nodiscard]] bool IsNowhere() const;

    void OnPath(const MOnStringParams& params);
    void OnRefused(const MOnStringParams& params);
    void OnFile(const MOnStringParams& params);
    void OnAcceptFile(const MOnStringParams& params);
    void OnPathEntered(const MOnNotifyParams& params);
    void OnNameEntered(const MOnNotifyParams& params);
    void OnAcceptClick(const MOnClickParams& params);
    void OnFilterClick(const MOnClickParams& params);
    void OnFilterItem(const MOnItemParams<MMenuItem>& params);

    const Mode mode;
    MEdit* pathEdit;
    MFileSelector* selector;
    MEdit* fileNameEdit;
    MButton* filterButton;
    MContainer* custom;
    MMenu filterMenu{"FilterMenu"};
    std::vector<Filter> filters;
    int32_t filterIndex = -1;
    MString filePath;
    MString lastPath;         ///< where the user was the last time
    MAwaitedTask beginning;   ///< looks where to begin
    MAwaitedTask acceptance;  ///< looks what was chosen
};
