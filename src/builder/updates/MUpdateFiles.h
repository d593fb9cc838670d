#pragma once

#include "builder/updates/MUpdateTargets.h"
#include "builder/updates/MUpdateVersion.h"

#include <set>

/// Compares two versions of one `files` element, and writes what an update needs to know of it: every file and
/// directory of the newer version by its name, with an `op`.
///
/// | op | what |
/// |---|---|
/// | "create" | it was not there before |
/// | "update" | a file whose content differs |
/// | "leave" | as it was; no content, but the installation goes on knowing it |
/// | "delete" | it was there, and is no more |
///
/// What is deleted stands before what is created beside it. Nothing is deleted that another part of the newer
/// version brings to the same place, nor in containers with `rewritable` 0, which belong to the user.
class MUpdateFiles {
public:
    /// All of them outlive the object. `targets` are those of the newer version.
    MUpdateFiles(const MUpdateVersion& older, const MUpdateVersion& newer, const MUpdateTargets& targets)
        : older(older), newer(newer), targets(targets) {}

    /// Fills an empty `files` element, and gives whether anything differs. Raises what reading contents raises,
    /// "\"{0}\" was a {1} and is a {2}. ..." (0), "\"{0}\"
    /// is no longer in this group, ..." (0) and "\"{0}\" brings no content. ..." (0).
    [[nodiscard]] bool Write(const MXMLItem& oldFiles, const MXMLItem& newFiles, MXMLItem& target);
    /// What the elements that were written bring, in their order.
    [[nodiscard]] const MSourceItemList& GetContents() const { return contents; }

private:
    /// The items of one version by their paths; a name may have several `dir` elements.
    struct Tree {
        std::unordered_map<std::string, const MXMLItem*> files;
        std::unordered_map<std::string, std::vector<const MXMLItem*>> directories;
        std::set<std::string> foldedFiles;
        std::set<std::string> foldedDirectories;

        explicit Tree(const MXMLItem& files);
        void Add(const MXMLItem& parent, const MString& path);
    };

    void WriteChildren(const MXMLItem& parent, const MString& path, MXMLItem& target);
    void WriteDirectory(const MXMLItem& child, const MString& name, const MString& path, MXMLItem& target);
    void WriteFile(const MXMLItem& child, const MString& name, const MString& path, MXMLItem& target);
    /// Adds what only the older version has in a directory.
    void WriteDeleted(const MString& path, MXMLItem& target);
    void DeleteDirectory(const MString& name, const MString& path, MXMLItem& target);
    void DeleteFile(const MString& name, const MString& path, MXMLItem& target);
    /// How much of the newer version would be deleted with what the older one has at a path.
    [[nodiscard]] MUpdateTargets::Share GetStillNeeded(const MString& path) const;
    void RequireSameKinds() const;

    const MUpdateVersion& older;
    const MUpdateVersion& newer;
    const MUpdateTargets& targets;
    MSourceItemList contents;

    const MXMLItem* files = nullptr;  ///< of the newer version
    std::unique_ptr<Tree> before;
    std::unique_ptr<Tree> after;
    std::set<std::string> cleaned;  ///< the directories that have their deletions
    bool isChanged = false;
};
