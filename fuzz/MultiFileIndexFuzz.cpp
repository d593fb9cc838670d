// Takes the input for the index of a file set whose parts are "a", "b" and "c" beside it and "up" above it,
// and reads the set forward, by seeks and for testing its parts.

#include "foundation/base/MException.h"
#include "streams/file_sets/MMultiFileStream.h"
#include "tests/support/MScratch.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

constexpr int32_t MaximumReads = 64;
constexpr int32_t MaximumParts = 16;

/// The directory of the process, with the parts in it.
struct Parts {
    Parts() {
        for (const auto& [name, content] : {std::pair("set/a", "abcd"), std::pair("set/b", ""),
                                            std::pair("set/c", "abc"), std::pair("up", "above")})
            scratch.WriteFile(name, content);
    }

    [[nodiscard]] MString GetIndexPath() const { return scratch.Join("set/index"); }

    MScratch scratch;
};

void Require(bool isTrue) {
    if (!isTrue) __builtin_trap();
}

void ReadForward(MMultiFileStream& set) {
    char piece[3];
    int64_t total = 0;
    for (int32_t reads = 0; reads < MaximumReads; ++reads) {
        const int32_t count = set.Read(piece, sizeof piece);
        total += count;
        Require(set.GetPosition() == total);
        if (count == sizeof piece) continue;
        Require(total == set.GetSize());
        return;
    }
}

void SeekBackward(MMultiFileStream& set) {
    const int64_t size = set.GetSize();
    for (int64_t position = size; position >= 0 && position > size - MaximumReads; --position) {
        set.Seek(position, MSeekOrigin::Begin);
        Require(set.GetPosition() == position);
        char byte;
        Require(set.Read(&byte, 1) == (position < size ? 1 : 0));
    }
}

void LookInto(const MString& path) {
    try {
        MMultiFileStream set;
        set.Open(path);
        ReadForward(set);
        SeekBackward(set);
        for (int32_t i = 0; i < std::min(set.GetPartCount(), MaximumParts); ++i)
            Require(!set.IsPartValid(i) || set.GetPartSize(i) == set.GetStatedPartSize(i));
    } catch (const MException&) {
        // Refusing is right; only crashing is wrong.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const Parts parts;
    MWriteTestFile(parts.GetIndexPath(), {reinterpret_cast<const char*>(data), size});
    LookInto(parts.GetIndexPath());
    return 0;
}
