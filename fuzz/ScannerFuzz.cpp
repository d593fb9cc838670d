// The first line is a format string and the rest its input. Dates and numbers are read from the input too.

#include "foundation/base/MDateTime.h"
#include "foundation/base/MException.h"
#include "foundation/text/MStringScanner.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

void TakeAll(MStringScanner scanner) {
    int64_t wide = 0;
    uint8_t narrow = 0;
    double real = 0;
    MString text;
    for (int32_t i = 0; i < 12; ++i) scanner.Take(text).Take(wide).Take(real).Take(narrow);
    if (scanner.GetCapturedCount() < 0) __builtin_trap();
}

void ReadMoment(const MString& text) {
    const MDateTime moment = MDateTime::Parse(text);
    if (moment.GetMicroseconds() / MTime::MicrosecondsPerSecond - moment.GetSeconds() > 4000)
        __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto* text = reinterpret_cast<const char*>(data);
    const auto* lineEnd = std::find(text, text + size, '\n');
    const auto* rest = lineEnd == text + size ? lineEnd : lineEnd + 1;
    const MString format = MString::Copy(text, static_cast<int32_t>(lineEnd - text));
    const MString input = MString::Copy(rest, static_cast<int32_t>(text + size - rest));
    for (const int32_t radix : {2, 10, 16, 36}) {
        int32_t consumed = 0;
        static_cast<void>(MParseInt64(input, 0, radix, &consumed));
        if (consumed > input.GetLength()) __builtin_trap();
    }
    try {
        TakeAll(MStringScanner(format, input));
        ReadMoment(input);
    } catch (const MException&) {}
    return 0;
}
