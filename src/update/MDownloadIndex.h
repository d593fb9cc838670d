#pragma once

#include "foundation/xml/MXMLItem.h"

/// The list of what a download fetches, and how far it is: "INDEX.ZIP" on the mirrors, and, with the
/// attributes marked by *, "downloader.dat" beside the fetched files. A compressed tree:
///
///     <index Size= Downloaded*= DownloadedTotal*= >
///         <Directory>name</Directory> ...
///         <File ID= md5= NextPartIndex*= NextPartSize*= Finished*= > name
///             <Part md5= >name</Part> ...
///         </File> ...
///     </index>
///
/// Sizes are in bytes. Names of files and directories are relative. A part with the name `p` of a file is
/// `ID.p.zip` on a mirror, and holds the file's bytes as they are.
class MDownloadIndex {
public:
    /// Replaces the tree by one that is read from its stored form. Raises what reading XML and zlib data
    /// raises, and "Invalid large resource library format." (0x100) if it inflates to more than any list.
    void Load(MStream& stored);
    /// Takes away what only a downloader writes. What came from a mirror has fetched and checked nothing.
    void ForgetProgress();
    /// Brings the names into one form: "/" alone between the components, and none of these empty or ".".
    /// Raises (0) "The name \"{0}\" in the download list leads out of its directory. ..." for the first name
    /// that does, that would take the place of the list itself or, for a file, is empty; "A name in the
    /// download list has more than {0} components or {1} characters. ..."; and "The download list has no
    /// parts for the file \"{0}\". ..." for a file that has none and is not empty.
    void Check();
    /// Writes the tree to a file, which keeps its old content until the new one is complete.
    /// Raises what `MOutputFile` raises.
    void Save(const MString& path) const;

    [[nodiscard]] MXMLItem& GetRoot() { return root; }
    [[nodiscard]] int64_t GetSize() const { return root.GetInt64Attribute("Size", 0); }

    static constexpr const char* FileName = "INDEX.ZIP";

private:
    MXMLItem root{"index"};
};
