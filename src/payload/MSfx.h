#pragma once

#include "streams/basic/MSizeStream.h"
#include "streams/basic/MStdFileStream.h"

#include <memory>

/// The payload behind an executable, as a stream: position 0 is the first byte of the payload, and the
/// end is the last byte before the trailer. An executable without trailer gives a closed stream, which
/// is no error. See MPayloadFormat.h for the bytes.
class MSfx : public MSizeStream {
public:
    /// Looks into the running program's own executable.
    MSfx();
    /// Looks into the file at `path`. Raises what `MStdFileStream` raises if it cannot be opened, or
    /// "Could not perform file seek." (0x100) if it is shorter than a trailer or its payload.
    explicit MSfx(const MString& path);

    /// A new stream over the executable without its payload and trailer.
    [[nodiscard]] std::unique_ptr<MStream> OpenExecutable();

private:
    void FindTrailer();

    MString path;
    MStdFileStream executable;
};
