#include "streams/ciphers/MBufferingStream.h"

#include <algorithm>
#include <functional>

namespace {

void Combine(std::span<uint8_t> block, std::span<const uint8_t> other) {
    std::ranges::transform(block, other, block.begin(), std::bit_xor<>());
}

}  // namespace

void MBufferingStream::BlockModificationProcessor::Init(int32_t newInputSize, int32_t newOutputSize) {
    inputSize = newInputSize;
    outputSize = newOutputSize;
}

bool MBufferingStream::BlockModificationProcessor::BeforeEncode(uint8_t* block, int32_t& size) {
    std::fill(block + size, block + inputSize, uint8_t(0));
    return true;
}

int32_t MBufferingStream::BlockModificationProcessor::AfterEncode(uint8_t* /*block*/) {
    return outputSize;
}

bool MBufferingStream::BlockModificationProcessor::BeforeDecode(uint8_t* /*block*/, int32_t& /*size*/) {
    return true;
}

int32_t MBufferingStream::BlockModificationProcessor::AfterDecode(uint8_t* /*block*/) {
    return inputSize;
}

void MBufferingStream::CBCBlockModification::Init(int32_t newInputSize, int32_t newOutputSize) {
    BlockModificationProcessor::Init(newInputSize, newOutputSize);
    const int32_t size = std::min(inputSize, outputSize);
    savedBlock.ResizeCount(size);
    chainBlock.ResizeCount(size);
    std::ranges::fill(GetSavedBlock(), uint8_t(0));
    std::ranges::fill(GetChainBlock(), uint8_t(0));
    lastSize = 0;
}

bool MBufferingStream::CBCBlockModification::MaskIfShort(uint8_t* block, int32_t wholeSize) {
    if (lastSize >= wholeSize) return true;
    const size_t size = std::min(static_cast<size_t>(lastSize), GetSize());
    Combine({block, size}, GetSavedBlock());
    return false;
}

bool MBufferingStream::CBCBlockModification::BeforeEncode(uint8_t* block, int32_t& size) {
    lastSize = size;
    if (!MaskIfShort(block, inputSize)) return false;
    std::copy_n(block, GetSize(), GetSavedBlock().begin());
    Combine({block, GetSize()}, GetChainBlock());
    return true;
}

int32_t MBufferingStream::CBCBlockModification::AfterEncode(uint8_t* block) {
    std::copy_n(block, GetSize(), GetChainBlock().begin());
    return outputSize;
}

bool MBufferingStream::CBCBlockModification::BeforeDecode(uint8_t* block, int32_t& size) {
    lastSize = size;
    if (!MaskIfShort(block, outputSize)) return false;
    std::copy_n(block, GetSize(), GetSavedBlock().begin());
    return true;
}

int32_t MBufferingStream::CBCBlockModification::AfterDecode(uint8_t* block) {
    Combine({block, GetSize()}, GetChainBlock());
    std::ranges::copy(GetSavedBlock(), GetChainBlock().begin());
    std::copy_n(block, GetSize(), GetSavedBlock().begin());
    return inputSize;
}
