#pragma once

#include "streams/basic/MSizeStream.h"

#include <memory>

/// One item of a resource library, from 0 to its size in bytes. A plainly stored item can be sought in
/// both directions, a compressed one is read forward only.
class MLargeResourceLibraryStream : public MSizeStream {
public:
    /// A plainly stored item that starts at the library's position. The library is not owned.
    MLargeResourceLibraryStream(MStream* library, int64_t size);
    /// A compressed item. The decompressor is owned; what it reads from is not.
    MLargeResourceLibraryStream(std::unique_ptr<MStream> decompressor, int64_t size);

    /// With the last byte of a compressed item its check sums are tested too. Raises
    /// "Source compressed stream has invalid content.", and "Could not read required data from
    /// stream." (0x100) if the data end before the item does.
    int32_t Read(void* block, int32_t size) override;
    void Seek(int64_t offset, MSeekOrigin origin) override;

private:
    bool isCompressed;
    bool isChecked = false;
};
