#include "streams/compression/MZLibStream.h"

#include "foundation/base/MException.h"

#include <algorithm>
#include <exception>
#include <zlib.h>

namespace {

constexpr int WindowBits = 15;
constexpr int MemoryLevel = 8;

[[noreturn]] void RaiseInvalidContent(int32_t code) {
    MRaise(code, "Source compressed stream has invalid content.");
}

}  // namespace

MZLibStream::MZLibStream() = default;

MZLibStream::~MZLibStream() noexcept(false) {
    try {
        Close();
    } catch (const MException&) {
        if (std::uncaught_exceptions() == 0) throw;
    }
}

void MZLibStream::Open(MStream* newSource, bool compress, int32_t level) {
    Close();
    plainCount = 0;
    isComplete = false;
    isCompressing = compress;
    if (!newSource) return;

    auto newState = std::make_unique<z_stream>();
    const int result = compress ? deflateInit2(newState.get(), std::clamp(level, 0, 9), Z_DEFLATED,
                                               WindowBits, MemoryLevel, Z_DEFAULT_STRATEGY)
                                : inflateInit(newState.get());
    if (result != Z_OK)
        MRaise(MExceptionStreamOpen,
               compress ? "Could not initialize deflating." : "Could not initialize inflating.");
    state = std::move(newState);
    source = newSource;
}

void MZLibStream::Close() {
    if (!source) return;
    source = nullptr;
    const bool isUnfinished = isCompressing && state;
    Release();
    if (isUnfinished) MRaise(MExceptionStreamError, "ZLIB stream has not been terminated.");
}

void MZLibStream::Release() noexcept {
    if (!state) return;
    if (isCompressing)
        deflateEnd(state.get());
    else
        inflateEnd(state.get());
    state = nullptr;
}

void MZLibStream::Deflate(int flush, int32_t errorCode) {
    if (!isCompressing || !state) MRaise(errorCode, "Data could not be compressed.");
    do {
        state->next_out = outputArea;
        state->avail_out = AreaSize;
        const int result = deflate(state.get(), flush);
        if (result < 0 && result != Z_BUF_ERROR) MRaise(errorCode, "Data could not be compressed.");
        const auto produced = static_cast<int32_t>(AreaSize - state->avail_out);
        if (produced > 0) source->Write(outputArea, produced);
    } while (state->avail_out == 0);
}

void MZLibStream::Write(const void* block, int32_t size) {
    if (size <= 0) return;
    if (state) {
        state->next_in = static_cast<Bytef*>(const_cast<void*>(block));
        state->avail_in = static_cast<uInt>(size);
    }
    Deflate(Z_NO_FLUSH, MExceptionStreamError);
    plainCount += size;
}

void MZLibStream::Finish() {
    if (state) state->avail_in = 0;
    Deflate(Z_FINISH, MExceptionGeneral);
    Release();
}

void MZLibStream::ReadSource() {
    const int32_t count = source->Read(inputArea, AreaSize);
    if (count <= 0) RaiseInvalidContent(MExceptionGeneral);
    state->next_in = inputArea;
    state->avail_in = static_cast<uInt>(count);
}

int32_t MZLibStream::Read(void* block, int32_t size) {
    if (size <= 0) return 0;
    if (isCompressing || !state) RaiseInvalidContent(MExceptionStreamError);

    state->next_out = static_cast<Bytef*>(block);
    state->avail_out = static_cast<uInt>(size);
    int result = Z_OK;
    while (state->avail_out > 0 && result != Z_STREAM_END) {
        if (state->avail_in == 0) ReadSource();
        result = inflate(state.get(), Z_NO_FLUSH);
        isComplete = result == Z_STREAM_END;
        if (result == Z_NEED_DICT || (result < 0 && result != Z_BUF_ERROR))
            RaiseInvalidContent(MExceptionStreamError);
    }
    const int32_t delivered = size - static_cast<int32_t>(state->avail_out);
    plainCount += delivered;
    return delivered;
}

void MZLibStream::Flush() {
    source->Flush();
}

bool MZLibStream::IsEnd() {
    return source->IsEnd();
}
