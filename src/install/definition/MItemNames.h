#pragma once

#include "foundation/xml/MXMLItem.h"

/// True if `name`, joined to a directory, stays inside it: no "..", no absolute path, no drive.
[[nodiscard]] bool MIsInsideName(const MString& name);

/// Tests every name in a definition by which a file, a directory or a link is made or removed. Raises "The name \"{0}\" in the definition leads out of its directory. ..." (0) for the
/// first that would lead elsewhere.
void MCheckItemNames(const MXMLItem& root);
