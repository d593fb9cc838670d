#include "streams/ciphers/MBufferingStream.h"

#include "foundation/base/MException.h"

#include <algorithm>
#include <cstring>

MBufferingStream::MBufferingStream() {
    SetModification(nullptr);
}

MBufferingStream::~MBufferingStream() noexcept(false) = default;

void MBufferingStream::Open(MStream* newSource, bool encode) {
    source = newSource;
    isEncoding = encode;
    StartOver();
}

void MBufferingStream::SetModification(BlockModificationProcessor* object) {
    modification.reset(object ? object : new BlockModificationProcessor);
    StartOver();
}

void MBufferingStream::SetBlockSizes(int32_t newInputSize, int32_t newOutputSize) {
    inputSize = outputSize = 0;
    inputBlock.ResizeCount(std::max(newInputSize, 0));
    outputBlock.ResizeCount(std::max(newOutputSize, 0));
    inputSize = newInputSize;
    outputSize = newOutputSize;
    StartOver();
}

void MBufferingStream::StartOver() {
    fillCount = readIndex = 0;
    modification->Init(std::max(inputSize, 0), std::max(outputSize, 0));
}

void MBufferingStream::RequireInitialized() const {
    if (inputSize < 1 || outputSize < 1 || !source)
        MRaise(MExceptionStreamNotInitialized, "Buffering stream has not been initialized.");
}

void MBufferingStream::RequireWritable() const {
    RequireInitialized();
    if (!isEncoding) RaiseNotImplemented("write to stream");
}

void MBufferingStream::Write(const void* block, int32_t size) {
    RequireWritable();
    const auto* bytes = static_cast<const uint8_t*>(block);
    while (size > 0) {
        const int32_t count = std::min(size, inputSize - fillCount);
        std::memcpy(inputBlock.Edit() + fillCount, bytes, static_cast<size_t>(count));
        bytes += count;
        size -= count;
        fillCount += count;
        if (fillCount == inputSize) WriteBlock();
    }
}

void MBufferingStream::WriteBlock() {
    int32_t size = fillCount;
    fillCount = 0;
    uint8_t* input = inputBlock.Edit();
    if (!modification->BeforeEncode(input, size)) {
        source->Write(input, size);
        return;
    }
    uint8_t* output = outputBlock.Edit();
    EncodeBlock(input, output);
    source->Write(output, modification->AfterEncode(output));
}

void MBufferingStream::FinishBlock() {
    RequireWritable();
    if (fillCount > 0) WriteBlock();
}

int32_t MBufferingStream::Read(void* block, int32_t size) {
    RequireInitialized();
    if (isEncoding) RaiseNotImplemented("read from stream");
    auto* bytes = static_cast<uint8_t*>(block);
    int32_t total = 0;
    while (total < size && (GetWaitingCount() > 0 || ReadBlock())) {
        const int32_t count = std::min(size - total, GetWaitingCount());
        std::memcpy(bytes + total, readBlock + readIndex, static_cast<size_t>(count));
        readIndex += count;
        total += count;
    }
    return total;
}

bool MBufferingStream::ReadBlock() {
    fillCount = readIndex = 0;
    uint8_t* output = outputBlock.Edit();
    int32_t size = ReadSource(output, outputSize);
    if (size == 0) return false;
    std::fill(output + size, output + outputSize, uint8_t(0));
    if (!modification->BeforeDecode(output, size)) {
        readBlock = output;
        fillCount = size;
        return true;
    }
    uint8_t* input = inputBlock.Edit();
    DecodeBlock(output, input);
    readBlock = input;
    fillCount = modification->AfterDecode(input);
    return true;
}

int32_t MBufferingStream::ReadSource(void* block, int32_t size) {
    auto* bytes = static_cast<uint8_t*>(block);
    int32_t total = 0;
    while (total < size) {
        const int32_t count = source->Read(bytes + total, size - total);
        if (count <= 0) break;
        total += count;
    }
    return total;
}

void MBufferingStream::Flush() {
    RequireInitialized();
    source->Flush();
}

bool MBufferingStream::IsEnd() {
    RequireInitialized();
    return GetWaitingCount() == 0 && source->IsEnd();
}
