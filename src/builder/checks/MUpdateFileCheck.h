#pragma once

#include "foundation/base/MList.h"
#include "foundation/xml/MXMLItem.h"

/// Whether the tree of a payload is an update or a package.
[[nodiscard]] bool MIsUpdate(const MXMLItem& root);

/// What an installation would not take in the tree of an update, without reading its contents; each fault is to
/// be read behind a name of the file.
[[nodiscard]] MList<MString> MFindUpdateFaults(const MXMLItem& root);
