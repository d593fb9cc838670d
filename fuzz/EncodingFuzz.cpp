// The first byte chooses an encoding; the rest is decoded as a whole and line by line. What a codec decodes
// and encodes again must be stable from then on, but for the units that UTF-8 drops behind a surrogate pair.

#include "foundation/base/MException.h"
#include "foundation/text/MUnicode.h"
#include "foundation/text/encodings/MEncodingReader.h"
#include "foundation/text/encodings/MEncodingTables.h"
#include "streams/basic/MMemoryStream.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

MString ChooseEncoding(uint8_t choice) {
    constexpr const char* Others[] = {"", "utf8", "utf16"};
    const int32_t index = choice % (MEncodingTableCount + 3);
    return index < 3 ? Others[index] : MEncodingTables[index - 3].names[0];
}

void CheckTables(const MEncoding::Codec& codec, std::string_view bytes) {
    const MString text = codec.Decode(bytes);
    const MString again = codec.Decode(codec.Encode(text, false));
    if (!again.IsExactly(text)) __builtin_trap();
}

void ReadLines(const MString& encoding, std::string_view bytes) {
    MMemoryStream stream(bytes.data(), static_cast<int32_t>(bytes.size()));
    MEncoding::Reader reader(stream, encoding);
    MString line;
    // An overlong form may stand for a line feed inside a line: the UTF-8 codec takes it for what it says.
    const bool mayHoldLineFeeds = encoding == "utf8";
    while (reader.ReadLine(line))
        if (!mayHoldLineFeeds && line.FindChar('\n') != MString::NotFound) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const MString encoding = ChooseEncoding(data[0]);
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const MEncoding::Codec& codec = MEncoding::FindCodec(encoding);
    static_cast<void>(codec.Encode(codec.Decode(bytes), true));
    if (data[0] % (MEncodingTableCount + 3) >= 2) CheckTables(codec, bytes);
    static_cast<void>(MDecodeUTF8Exact(MEncodeUTF8Exact(codec.Decode(bytes))));
    try {
        ReadLines(encoding, bytes);
    } catch (const MException&) {}
    return 0;
}
