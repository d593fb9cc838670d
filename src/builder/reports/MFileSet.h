#pragma once

#include "builder/output/MBuilderOutput.h"
#include "streams/file_sets/MMultiFileStream.h"

#include <memory>

/// The file set whose index the file at `path` is, or null if it is none. What tells is the content, not the
/// name: an index is an XML document to its last byte, and its root has `File` elements.
/// Raises what opening the file and `MMultiFileStream::Open` raise.
[[nodiscard]] std::unique_ptr<MMultiFileStream> MOpenFileSet(const MString& path);

/// If the file at `path` is an index, tests its parts, tells of each one that is bad, and gives false if
/// there are any. Raises as `MOpenFileSet`.
[[nodiscard]] bool MVerifyFileSet(const MString& path, MBuilderOutput& output);
