// Reads the input as a PNG file. Since hardly a mutation has the right sums, it is also read with every
// chunk's sum put right.

#include "fuzz/ImageFuzz.h"

#include <vector>

#include <zlib.h>

namespace {

constexpr size_t SignatureSize = 8;
constexpr size_t ChunkHeadSize = 8;
constexpr size_t SumSize = 4;

size_t ReadWord(const uint8_t* bytes) {
    return size_t{bytes[0]} << 24 | size_t{bytes[1]} << 16 | size_t{bytes[2]} << 8 | bytes[3];
}

/// Of a chunk with so many bytes of content, which lies in the file as a whole.
void PutSumRight(uint8_t* chunk, size_t size) {
    const auto sum = crc32(0, chunk + 4, static_cast<uInt>(size + 4));
    for (size_t i = 0; i < SumSize; ++i)
        chunk[ChunkHeadSize + size + i] = static_cast<uint8_t>(sum >> (24 - 8 * i));
}

void PutSumsRight(std::vector<uint8_t>& file) {
    size_t position = SignatureSize;
    while (position + ChunkHeadSize + SumSize <= file.size()) {
        const size_t size = ReadWord(&file[position]);
        if (size > file.size() - position - ChunkHeadSize - SumSize) return;
        PutSumRight(&file[position], size);
        position += ChunkHeadSize + size + SumSize;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MFuzzImage(&MBitmap::LoadPNG, data, size);
    std::vector<uint8_t> file(data, data + size);
    PutSumsRight(file);
    MFuzzImage(&MBitmap::LoadPNG, file.data(), file.size());
    return 0;
}
