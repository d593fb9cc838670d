#pragma once

#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MStream.h"

#include <memory>

/// A product's data: the tree of its index, which is the install definition, with the means to open the
/// items that the tree refers to. The stream that it is attached to is not owned and must outlive it.
///
/// One thread at a time, and one item at a time: item streams share the library's stream.
class MLargeResourceLibrary : public MXMLItem {
public:
    /// Reads and parses the index at the end of `stream` (see MPayloadFormat.h).
    /// Raises "Invalid large resource library format." or "Resource library file is corrupt." (0x100),
    /// "Could not read required data from stream." (0x100), or what decompressing and parsing raise.
    void Attach(MStream* stream);

    /// The content of an element with `filestart` and `filesize`, in bytes, as a new stream from 0 to
    /// `filesize`. Raises "Could not find required attribute ({0})." (0) and, for a negative number or an end
    /// beyond 64 bits, "Invalid large resource library format." (0x100); what reading raises is told in
    /// MLargeResourceLibraryStream.h.
    [[nodiscard]] std::unique_ptr<MStream> OpenItem(MXMLItem* item);

    /// What it is attached to.
    [[nodiscard]] MStream& GetStream() const { return *library; }
    [[nodiscard]] bool AreItemsCompressed() const { return itemsCompressed; }

private:
    MStream* library = nullptr;
    bool itemsCompressed = false;
    bool useBzip2 = false;
};
