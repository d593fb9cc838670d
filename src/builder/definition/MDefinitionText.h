#pragma once

#include "foundation/xml/MXMLItem.h"

#include <string>

/// The XML of a tree in exact UTF-8, one element on a line, as the library reads it back to the same tree.
/// The library's own writer drops a unit behind a surrogate pair, and file names must keep all of theirs.
[[nodiscard]] std::string MGetDefinitionText(const MXMLItem& root);
