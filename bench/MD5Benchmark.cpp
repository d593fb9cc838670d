#include "bench/MComparison.h"
#include "foundation/base/MException.h"
#include "streams/hashes/MMD5Stream.h"

#include <algorithm>
#include <array>
#include <openssl/evp.h>
#include <vector>

namespace {

using Digest = std::array<uint8_t, MMD5Stream::DigestSize>;

constexpr int32_t DataSize = 64 << 20;
constexpr int Rounds = 21;

std::vector<uint8_t> MakeData() {
    std::vector<uint8_t> data(DataSize);
    uint32_t state = 1;
    for (uint8_t& byte : data) byte = static_cast<uint8_t>((state = state * 1664525 + 1013904223) >> 24);
    return data;
}

Digest Hash(const std::vector<uint8_t>& data) {
    MMD5Stream stream;
    stream.Write(data.data(), static_cast<int32_t>(data.size()));
    stream.Finish();
    Digest digest;
    std::ranges::copy(stream.GetDigest(), digest.begin());
    return digest;
}

Digest HashByReference(const std::vector<uint8_t>& data) {
    Digest digest;
    if (EVP_Digest(data.data(), data.size(), digest.data(), nullptr, EVP_md5(), nullptr) != 1)
        MRaise(MExceptionGeneral, "The reference gives no MD5.");
    return digest;
}

MComparison CompareMD5() {
    const std::vector<uint8_t> data = MakeData();
    Digest ours{};
    Digest reference{};
    MComparison comparison =
        MCompareSpeeds(Rounds, MClock::Processor, DataSize / 1e6, {{}, [&] { ours = Hash(data); }},
                       {{}, [&] { reference = HashByReference(data); }});
    if (ours != reference) MRaise(MExceptionGeneral, "The digests differ.");
    comparison.unit = "MB/s";
    comparison.goal = 0.9;
    return comparison;
}

[[maybe_unused]] const bool isRegistered = MRegisterComparison("MD5", CompareMD5);

}  // namespace
