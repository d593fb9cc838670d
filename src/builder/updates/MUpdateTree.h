#pragma once

#include "builder/definition/MUpdateInformation.h"
#include "builder/updates/MUpdateVersion.h"

/// The tree of an update, or of a package, that is laid over an installation of the older version:
///
///     update = <update>
///                  <updateinformation .../>              the offer (MUpdateInformation.h)
///                  { <files [removelastfilefrompath="1"]>  { dir | file }  </files>
///                  | <files unchanged="1"/> }
///              </update>
///
/// An installation keeps its `files` elements with all attributes and takes over their children, matching them
/// by position, so both versions must have the same elements but for what is in them. One in which nothing
/// differs is passed over, so that an installation keeps what it knows of it.
class MUpdateTree {
public:
    /// All of them outlive the tree.
    MUpdateTree(const MUpdateVersion& older, const MUpdateVersion& newer, const MUpdateInformation& offer)
        : older(older), newer(newer), offer(offer), root("update") {}

    /// Each fault becomes a problem that says what is wrong, where and what to do. Raises what comparing raises
    /// (MUpdateFiles.h).
    void Build(MList<MString>& problems);

    [[nodiscard]] const MXMLItem& GetRoot() const { return root; }
    [[nodiscard]] const MSourceItemList& GetContents() const { return contents; }

private:
    [[nodiscard]] bool IsComparable(MList<MString>& problems) const;
    void CompareElements(const MString& place, const MXMLItem& old, const MXMLItem& now,
                         MList<MString>& problems) const;
    /// Where the older version's destination names the one file of the element.
    void CheckSingleFile(const MString& place, const MXMLItem& old, MList<MString>& problems) const;

    const MUpdateVersion& older;
    const MUpdateVersion& newer;
    const MUpdateInformation& offer;
    MXMLItem root;
    MSourceItemList contents;
};
