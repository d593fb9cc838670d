#pragma once

#include <csetjmp>
#include <cstddef>
#include <cstdio>

#include <jpeglib.h>

/// How libjpeg reports: warnings are dropped; an error leaves its text and jumps to `place`. The jump passes
/// over the frames of libjpeg and of our functions that it calls, so these hold plain data only.
struct MJPEGErrors {
    /// Errors of ours beside those of libjpeg, for `MJPEGFail`.
    enum Code { ReadError = 1000, ImageTooLarge, TooManyScans };

    MJPEGErrors();

    /// The base for libjpeg; it stands first, so that its address is that of the whole.
    jpeg_error_mgr manager;
    std::jmp_buf place;
    char text[JMSG_LENGTH_MAX] = {};
};

/// Ends the work of a decoder with an error.
void MJPEGFail(j_common_ptr decoder, MJPEGErrors::Code code);
