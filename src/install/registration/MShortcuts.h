#pragma once

#include "foundation/xml/MXMLItem.h"

#include <functional>

/// What the shortcuts of a definition lead to.
struct MShortcutTargets {
    MString setup;                                  ///< the program that the installation leaves behind
    std::function<MString(const MString&)> expand;  ///< makes a path or an address of a `destination`
};

/// The installation whose links are to be removed.
struct MLinkOwner {
    MString mainPath;
    /// Whether the entry in the list of programs is that of another installation of the same name, so that
    /// this one has written last what both write.
    bool hasSuccessor = false;

    /// Whether a link file is another installation's: it leads into that one's directory, or it does not lead
    /// into ours and the other one has written last.
    [[nodiscard]] bool IsOfAnother(const MString& link) const;
};

/// The links of a product in the system's menu of programs and on the desktop: those of all users, or of the
/// one user, depending on whether the product was installed with administrator rights.
class MShortcuts {
public:
    explicit MShortcuts(bool adminRights) : adminRights(adminRights) {}

    /// Where the `shortcut` and `shortcutdirectory` children of a definition begin.
    [[nodiscard]] MString GetDirectory() const;
    /// Where earlier versions began.
    [[nodiscard]] MString GetFormerDirectory() const;

    /// Creates the links that the children of `item` say, and folders for them. A link without target, and
    /// one that cannot be created, is passed over in silence. Raises what `MFile::CreatePath` raises for a
    /// folder, and "Could not find required attribute ({0})." (0).
    void CreateLinks(const MString& directory, const MXMLItem& item, const MShortcutTargets& targets) const;
    /// Undoes `CreateLinks`: removes the links of `installation`, and the folders that hold nothing else. A
    /// link that another installation has put in the place of ours stays. What cannot be removed is passed
    /// over. Raises "Could not find required attribute ({0})." (0).
    void RemoveLinks(const MString& directory, const MXMLItem& item, const MLinkOwner& installation);

    /// The files of links that are still there after `RemoveLinks` and should not be, and folders that hold
    /// nothing.
    [[nodiscard]] const MList<MString>& GetFailures() const { return failures; }
    /// Folders that hold something else.
    [[nodiscard]] const MList<MString>& GetKeptFolders() const { return keptFolders; }

private:
    [[nodiscard]] MString GetLinkPath(const MString& directory, const MXMLItem& shortcut) const;

    bool adminRights;
    MList<MString> failures;
    MList<MString> keptFolders;
};
