#pragma once

#include "foundation/xml/MXMLItem.h"

#include <cstdint>
#include <string>

/// The XML of a tree in exact UTF-8, one element on a line, as the library reads it back to the same tree.
/// The library's own writer drops a unit behind a surrogate pair, and file names must keep all of theirs.
[[nodiscard]] std::string MGetDefinitionText(const MXMLItem& root);

/// A file's time, as `MFile::GetFileTime` gives it, in whole seconds: "2014-12-23 14:19:26", UTC.
[[nodiscard]] MString MFileTimeToText(int64_t time);

/// The way back. Raises "Invalid datetime format." (0).
[[nodiscard]] int64_t MFileTimeFromText(const MString& text);
