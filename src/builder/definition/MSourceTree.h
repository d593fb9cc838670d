#pragma once

#include "builder/definition/MDefinition.h"
#include "foundation/base/MList.h"

/// An element of a definition that stands for stored data, and the file that its data come from.
struct MSourceItem {
    MXMLItem* element = nullptr;
    MString path;
    int64_t size = 0;  ///< in bytes
};

using MSourceItemList = MList<MSourceItem>;

/// Finds the files that a definition names, and fills its `files` elements from disk.
///
/// - A `files` with a `path` and neither `dir` nor `file` children is given what stands at `path`: for a
///   directory its entries as `dir` and `file`, in the order of their names' UTF-16 units; for a file one
///   `file` with an empty name.
/// - A `file` takes its content from the `path` of its `files`, the names of the `dir` around it and its
///   own name, joined; one with an empty name from where its parent leads.
/// - `licence`, `topimage`, `leftimage` and the `scaled` in these two take theirs from `name`.
///
/// A `file` whose `op` is "delete" or "leave" has no content. The others get `op` "create" unless they have
/// one, `time` and, unless they have it, `update` "0".
class MSourceTree {
public:
    /// The definition and the problems outlive the tree.
    MSourceTree(MDefinition& definition, MProblemList& problems)
        : definition(definition), problems(problems) {}

    /// What cannot be found or read is a problem with its line.
    void Collect();
    /// In the order of the definition.
    [[nodiscard]] const MSourceItemList& GetItems() const { return items; }

private:
    void CollectFiles(MXMLItem& files);
    void CollectNamed(MXMLItem& element);
    void CollectChildren(MXMLItem& parent, const MString& path);
    void CollectFile(MXMLItem& file, const MString& path);
    bool AddItem(MXMLItem& element, const MString& path);
    void FillFromDisk(MXMLItem& files, const MString& path);
    void FillFromDirectory(MXMLItem& parent, const MString& path);
    void AddProblem(const MXMLItem& element, const char* text, const MString& value);

    MDefinition& definition;
    MProblemList& problems;
    MSourceItemList items;
};
