#pragma once

#include "builder/output/MBuilderOutput.h"
#include "streams/file_sets/MMultiFileStream.h"

#include <memory>

/// Whether a file is an XML document and no payload, which may begin with an item that is XML, but ends in flags
/// or a size, never in a tag. Raises what opening and reading raise.
[[nodiscard]] bool MIsXMLFile(const MString& path);

/// The file set whose index the file at `path` is, or null if it is none. What tells is the content, not the
/// name: an index is an XML document to its last byte, and its root has `File` elements.
/// Raises what opening the file and `MMultiFileStream::Open` raise.
[[nodiscard]] std::unique_ptr<MMultiFileStream> MOpenFileSet(const MString& path);

/// If the file at `path` is an index, tests its parts, tells of each one that is bad, and gives false if
/// there are any. Raises as `MOpenFileSet`.
[[nodiscard]] bool MVerifyFileSet(const MString& path, MBuilderOutput& output);
