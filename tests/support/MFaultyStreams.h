#pragma once

#include "streams/basic/MDispatchStream.h"

#include "foundation/base/MException.h"

#include <algorithm>

/// Passes a number of bytes, in either direction, and then fails with "Injected failure." (0x100).
class MFailingStream : public MDispatchStream {
public:
    MFailingStream(MStream* source, int64_t bytesLeft) : MDispatchStream(source), bytesLeft(bytesLeft) {}

    void Write(const void* block, int32_t size) override {
        Count(size);
        MDispatchStream::Write(block, size);
    }
    int32_t Read(void* block, int32_t size) override {
        Count(size);
        return MDispatchStream::Read(block, size);
    }

private:
    void Count(int32_t size) {
        bytesLeft -= size;
        if (bytesLeft < 0) MRaise(MExceptionStreamError, "Injected failure.");
    }

    int64_t bytesLeft;
};

/// Gives what its source has and then -1, as a connection that breaks.
class MBreakingStream : public MDispatchStream {
public:
    using MDispatchStream::MDispatchStream;

    int32_t Read(void* block, int32_t size) override {
        const int32_t count = MDispatchStream::Read(block, size);
        return count > 0 ? count : -1;
    }
};

/// Gives a single byte with each call, as a slow connection may.
class MTricklingStream : public MDispatchStream {
public:
    using MDispatchStream::MDispatchStream;

    int32_t Read(void* block, int32_t size) override {
        return MDispatchStream::Read(block, std::min(size, 1));
    }
};
