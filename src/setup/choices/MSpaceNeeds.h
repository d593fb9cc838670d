#pragma once

#include "foundation/files/MFolderFacts.h"
#include "setup/choices/MComponentRows.h"

/// A `directory` element and what is known about the folder that is chosen for it.
struct MDirectoryFacts {
    MString id;
    MFolderFacts facts;
};

/// Whether a directory has room for what goes there.
struct MDirectorySpace {
    MString id;
    int64_t needed = 0;           ///< bytes that go to this directory
    std::optional<int64_t> free;  ///< bytes on its volume, if the system tells
    bool isSufficient = true;     ///< for all directories on that volume; also true if nobody can tell

    /// "12.5 MB needed, 3.0 GB free"; only the first where the other is not known.
    [[nodiscard]] MString GetText() const;
};

/// How many bytes the parts of a product will write, as far as they are chosen at the moment of the question:
/// `enabled` is read each time. What stands there already, and gives way, is not taken off.
///
/// Operations raise what `MAddSize` raises for a sum that is too large.
class MSpaceNeeds {
public:
    /// Measures each tree once. The definition is not owned, and its `files` elements stay as they are but
    /// for `enabled`. Raises what `MMeasureTree` raises.
    explicit MSpaceNeeds(const MXMLItem& definition);

    /// Of all elements of a row, ticked or not.
    [[nodiscard]] int64_t GetBytes(const MComponentRow& row) const;
    /// Of the rows that are ticked, whether that is stored yet or not, and of the parts that are required.
    [[nodiscard]] int64_t GetTickedBytes(const MComponentRows& rows) const;
    /// Of what is enabled and goes to the `directory` of that id: the first one whose macro stands in the
    /// destination.
    [[nodiscard]] int64_t GetEnabledBytes(const MString& directoryId) const;

    /// What each directory needs and has. Directories on one volume share what is free there.
    [[nodiscard]] MList<MDirectorySpace> Compare(const MList<MDirectoryFacts>& directories) const;

private:
    /// One place that a tree goes to.
    struct Pass {
        const MXMLItem* element;
        MString directoryId;  ///< empty if it goes to none of them
        int64_t bytes;
    };

    template <class Condition>
    [[nodiscard]] int64_t Sum(Condition counts) const;

    MList<Pass> passes;
};
