#pragma once

#include "foundation/text/MString.h"

/// The file that remembers which font file answered a request, so that later runs need not open every font of
/// the machine: an XML element `MSystemFontCache` with one attribute per request, whose value is a path.
class MSystemFontCache {
public:
    explicit MSystemFontCache(const MString& path) : path(path) {}

    /// The attribute of a request: the family without blanks and without ASCII characters that a name cannot
    /// have, then "B" or "0" for bold and "I" or "0" for italic.
    [[nodiscard]] static MString GetKey(const MString& family, bool isBold, bool isItalic);

    /// The path of a key; empty if there is none, or if there is no file that can be read.
    [[nodiscard]] MString Find(const MString& key) const;
    /// Adds a key to the file. Failures are caught.
    void Add(const MString& key, const MString& fontPath) const;
    /// Deletes the file, if there is one. Raises as `MFile::Delete`.
    void Delete() const;

private:
    MString path;
};
