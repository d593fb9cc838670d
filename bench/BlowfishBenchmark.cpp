#include "bench/MComparison.h"
#include "foundation/base/MException.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/ciphers/MBlowfishStream.h"

#include <array>
#include <cstring>
#include <openssl/blowfish.h>
#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;
using Key = std::array<uint8_t, MBlowfishStream::KeySize>;

constexpr int32_t DataSize = 32 << 20;
constexpr int Rounds = 21;

/// The data before and after a way there and back.
struct Trip {
    Bytes plain;
    Bytes enciphered;
    Bytes deciphered;
};

Trip MakeTrip() {
    Trip trip{Bytes(DataSize), Bytes(DataSize), Bytes(DataSize)};
    uint32_t state = 1;
    for (uint8_t& byte : trip.plain)
        byte = static_cast<uint8_t>((state = state * 1664525 + 1013904223) >> 24);
    return trip;
}

Key MakeKey() {
    Key key;
    for (size_t i = 0; i < key.size(); ++i) key[i] = static_cast<uint8_t>(i * 73 + 5);
    return key;
}

/// A stream on memory that is there, without growing: the reference has its target ready too.
class Target : public MStream {
public:
    explicit Target(Bytes& bytes) : position(bytes.data()) {}
    void Write(const void* block, int32_t size) override {
        std::memcpy(position, block, static_cast<size_t>(size));
        position += size;
    }

private:
    uint8_t* position;
};

void Travel(const Key& key, Trip& trip) {
    MBlowfishStream stream;
    MMemoryStream keySource(key.data(), MBlowfishStream::KeySize);
    stream.SetKey(keySource);

    Target target(trip.enciphered);
    stream.Open(&target, true);
    stream.Write(trip.plain.data(), DataSize);
    stream.FinishBlock();

    MMemoryStream source(trip.enciphered.data(), DataSize);
    stream.Open(&source, false);
    stream.ReadRequired(trip.deciphered.data(), DataSize);
}

// The reference counts its old ciphers as deprecated, and has no others of this kind.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

void TravelByReference(const Key& key, Trip& trip) {
    BF_KEY schedule;
    BF_set_key(&schedule, MBlowfishStream::KeySize, key.data());
    uint8_t encipherChain[BF_BLOCK] = {};
    BF_cbc_encrypt(trip.plain.data(), trip.enciphered.data(), DataSize, &schedule, encipherChain, BF_ENCRYPT);
    uint8_t decipherChain[BF_BLOCK] = {};
    BF_cbc_encrypt(trip.enciphered.data(), trip.deciphered.data(), DataSize, &schedule, decipherChain,
                   BF_DECRYPT);
}

#pragma GCC diagnostic pop

MComparison CompareBlowfish() {
    const Key key = MakeKey();
    Trip ours = MakeTrip();
    Trip reference = MakeTrip();
    MComparison comparison =
        MCompareSpeeds(Rounds, MClock::Processor, DataSize / 1e6, {{}, [&] { Travel(key, ours); }},
                       {{}, [&] { TravelByReference(key, reference); }});
    if (ours.enciphered != reference.enciphered || ours.deciphered != ours.plain)
        MRaise(MExceptionGeneral, "The results differ.");
    comparison.unit = "MB/s";
    comparison.goal = 0.8;
    return comparison;
}

[[maybe_unused]] const bool isRegistered = MRegisterComparison("Blowfish", CompareBlowfish);

}  // namespace
