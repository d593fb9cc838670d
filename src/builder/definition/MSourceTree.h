#pragma once

#include "builder/definition/MDefinition.h"
#include "foundation/base/MList.h"
#include "payload/MLargeResourceLibrary.h"

/// An element that stands for stored data, and where its data come from: a file, or an item of another payload.
struct MSourceItem {
    MXMLItem* element = nullptr;
    MString path;      ///< of the file; for an item of a payload what messages call it
    int64_t size = 0;  ///< in bytes
    MLargeResourceLibrary* payload = nullptr;  ///< null for a file; must outlive the item
    MXMLItem* stored = nullptr;                ///< the item's element in that payload

    /// The data from their beginning. Those of one payload are read one after the other. Raises what opening
    /// raises.
    [[nodiscard]] std::unique_ptr<MStream> Open() const;
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
