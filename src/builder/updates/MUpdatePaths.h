#pragma once

#include "foundation/xml/MXMLItem.h"

/// Names and places of the files of a `files` element, as an update spells them out.
///
/// An installation keeps the attributes of its `files` elements, so the last name of a `path` cannot stand for a
/// name in an update. Where there was no `path` either, the `destination` named the one file itself.
class MUpdatePaths {
public:
    MUpdatePaths() = delete;

    /// Whether the `destination` names the one file of the element instead of a directory.
    [[nodiscard]] static bool IsSingleFile(const MXMLItem& files);
    /// The directory that a pass, the `files` element or a `copy` in it, fills; a slash for each backslash.
    [[nodiscard]] static MString GetDirectory(const MXMLItem& files, const MXMLItem& pass);
    /// The name of a `dir` or `file`, never empty unless nothing tells it.
    [[nodiscard]] static MString GetName(const MXMLItem& parent, const MXMLItem& child);
    /// `path`, "/" and `name`, as they stand; the name alone for an empty path.
    [[nodiscard]] static MString Append(const MString& path, const MString& name);
};
