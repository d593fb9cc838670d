#include "streams/compression/MBZIPStream.h"

#include "foundation/base/MException.h"

#include <algorithm>
#include <bzlib.h>

struct MBZIPStream::State : bz_stream {
    State() : bz_stream{} {
        if (BZ2_bzDecompressInit(this, 0, 0) != BZ_OK)
            MRaise(MExceptionStreamOpen, "Could not initialize inflating.");
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State() { BZ2_bzDecompressEnd(this); }
};

MBZIPStream::MBZIPStream() = default;

MBZIPStream::~MBZIPStream() = default;

void MBZIPStream::Open(MStream* newSource) {
    Close();
    plainCount = 0;
    isEndReached = false;
    if (!newSource) return;
    state = std::make_unique<State>();
    source = newSource;
}

void MBZIPStream::Close() {
    source = nullptr;
    state = nullptr;
}

void MBZIPStream::Finish() {
    MRaise(MExceptionGeneral, "Data could not be compressed.");
}

void MBZIPStream::Write(const void* /*block*/, int32_t size) {
    if (size != 0) MRaise(MExceptionStreamError, "Data could not be compressed.");
}

void MBZIPStream::Decompress() {
    if (state->avail_in == 0) {
        state->next_in = reinterpret_cast<char*>(inputArea);
        state->avail_in = static_cast<unsigned>(std::max(source->Read(inputArea, InputAreaSize), 0));
    }
    const bool hadInput = state->avail_in > 0;
    const unsigned room = state->avail_out;
    const int result = BZ2_bzDecompress(state.get());
    isEndReached = result == BZ_STREAM_END;
    // Without input the decompressor may still have plain bytes to give; when it has none, none will ever
    // come.
    const bool isCutOff = !isEndReached && !hadInput && state->avail_out == room;
    if (result < 0 || isCutOff)
        MRaise(MExceptionStreamError, "Source compressed stream has invalid content.");
}

int32_t MBZIPStream::Read(void* block, int32_t size) {
    if (size <= 0 || isEndReached) return 0;
    if (!state) MRaise(MExceptionStreamError, "Source compressed stream has invalid content.");
    state->next_out = static_cast<char*>(block);
    state->avail_out = static_cast<unsigned>(size);
    while (state->avail_out > 0 && !isEndReached) Decompress();
    const int32_t delivered = size - static_cast<int32_t>(state->avail_out);
    plainCount += delivered;
    return delivered;
}

void MBZIPStream::Flush() {
    source->Flush();
}
