#pragma once

#include <cstddef>
#include <cstdio>

#include <jpeglib.h>

class MStream;

/// Feeds libjpeg from a stream. One that gives no bytes, or fails, is the error `MJPEGErrors::ReadError`.
struct MJPEGSource {
    explicit MJPEGSource(MStream& stream);

    /// The base for libjpeg; it stands first, so that its address is that of the whole.
    jpeg_source_mgr manager{};
    MStream* stream;
    JOCTET buffer[4096];
};
