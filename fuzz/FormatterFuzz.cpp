// The bytes are a format string, whose placeholders take a value of each kind.

#include "foundation/base/MException.h"
#include "foundation/text/MStringFormatter.h"

#include <cstddef>
#include <cstdint>
#include <limits>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const MString format = MString::Copy(reinterpret_cast<const char*>(data), static_cast<int32_t>(size));
    try {
        MStringFormatter formatter(format);
        for (int32_t i = 0; i < 10; ++i)
            formatter.Insert("text")
                .Insert(std::numeric_limits<int64_t>::min())
                .Insert(i * -1.25e300)
                .Insert(size);
        if (formatter.GetResult().GetLength() < 0) __builtin_trap();
    } catch (const MException&) {}
    return 0;
}
