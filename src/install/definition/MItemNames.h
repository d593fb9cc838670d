#pragma once

#include "foundation/xml/MXMLItem.h"

/// Tests every name in a definition by which a file, a directory or a link is made or removed. Raises "The
/// name \"{0}\" in the definition leads out of its directory. ..." (0) for the first that would lead
/// elsewhere.
void MCheckItemNames(const MXMLItem& root);
