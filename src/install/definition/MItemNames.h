#pragma once

#include "foundation/base/MList.h"
#include "foundation/xml/MXMLItem.h"

#include <functional>

/// What `extension` elements do to the names in one pass over the items of a `files` element: a name that
/// ends in one of the first extensions gets the one at the same index of the second.
struct MItemExtensions {
    MList<MString> sourceExtensions;
    MList<MString> destinationExtensions;
};

/// The extensions of a pass, a `files` or `copy` element; a `files` has none. Raises "Could not find required
/// attribute ({0})." (0).
[[nodiscard]] MItemExtensions MGetItemExtensions(const MXMLItem& pass);

/// The name by which a `dir` or `file` is made or removed in a pass. The last name of the parent's `path`
/// stands for one that is missing, and a slash for each backslash. Nothing says that it is harmless.
[[nodiscard]] MString MGetItemName(const MXMLItem& parent, const MXMLItem& child,
                                   const MItemExtensions& extensions);

/// Every name in a definition by which a file, a directory or a link is made or removed, with its element:
/// those of `dir` and `file` at any depth, in each pass as `MGetItemName` tells them, and those of `shortcut`
/// and `shortcutdirectory`. A copy gives only the names that it changes, and none if its extensions cannot be
/// read: then nothing is made by it.
void MForEachItemName(const MXMLItem& root,
                      const std::function<void(const MXMLItem& item, const MString& name)>& visit);

/// Raises "The name \"{0}\" in the definition {1}. The installer is damaged or not trustworthy; please get it
/// again from its maker." (0), with what `MFindNameFault` finds, if it finds something.
void MRequireItemName(const MString& name);

/// Requires this of every name in a definition.
void MCheckItemNames(const MXMLItem& root);
