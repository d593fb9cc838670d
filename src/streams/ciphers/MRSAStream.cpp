#include "streams/ciphers/MRSAStream.h"

#include "foundation/base/MException.h"

#include <algorithm>

namespace {

constexpr int32_t DefaultKeyBits = 2048;
constexpr int32_t KeyBitsStep = 64;
constexpr uint32_t DefaultExponent = 0x10001;
constexpr int32_t PrimeRounds = 50;

[[noreturn]] void RaiseInvalidKey() {
    MRaise(MExceptionGeneral, "Cryptographic key is not valid.");
}

}  // namespace

MRSAStream::MRSAStream() {
    MRSAStream::SetKeyLength(DefaultKeyBits);
}

MRSAStream::~MRSAStream() noexcept(false) = default;

void MRSAStream::SetKeyLength(int32_t bits) {
    const int64_t steps = (std::max<int64_t>(bits, 0) + KeyBitsStep - 1) / KeyBitsStep;
    keySize = static_cast<int32_t>(steps * KeyBitsStep / 8);
    SetBlockSizes(keySize / 2, keySize);
    e = d = n = MBigInteger(keySize);
}

void MRSAStream::GenerateKeys(bool isExponentRandom) {
    MBigInteger p(keySize / 2);
    MBigInteger q(keySize / 2);
    MBigInteger phi;
    do {
        p.SetRandomPrime(PrimeRounds);
        do {
            q.SetRandomPrime(PrimeRounds);
        } while (p.Compare(q) == 0);
        n = p.Multiply(q);
        p.Subtract(1);
        q.Subtract(1);
        phi = p.Multiply(q);
    } while (!MakeExponents(phi, isExponentRandom));
}

bool MRSAStream::MakeExponents(const MBigInteger& phi, bool isExponentRandom) {
    if (isExponentRandom)
        e.SetRandomPrime(keySize / 4 + PrimeRounds);
    else
        e.SetValue(DefaultExponent);
    d = e.InvertModulo(phi);
    return e.Multiply(d).Modulo(phi).IsEqual(1);
}

void MRSAStream::GetKey(MStream& target, bool isPrivate) {
    n.Write(target);
    (isPrivate ? d : e).Write(target);
}

void MRSAStream::SetKey(MStream& keySource, bool isPrivate) {
    MBigInteger modulus(keySize);
    MBigInteger exponent(keySize);
    modulus.Read(keySource);
    exponent.Read(keySource);
    if (!modulus.IsOdd() || modulus.IsEqual(1)) RaiseInvalidKey();
    n = modulus;
    (isPrivate ? d : e) = exponent;
}

void MRSAStream::EncodeBlock(const void* input, void* output) {
    const auto size = static_cast<size_t>(keySize);
    Transform({static_cast<const uint8_t*>(input), size / 2}, {static_cast<uint8_t*>(output), size}, e);
}

void MRSAStream::DecodeBlock(const void* input, void* output) {
    const auto size = static_cast<size_t>(keySize);
    Transform({static_cast<const uint8_t*>(input), size}, {static_cast<uint8_t*>(output), size / 2}, d);
}

void MRSAStream::Transform(std::span<const uint8_t> input, std::span<uint8_t> output,
                           const MBigInteger& exponent) {
    if (exponent.IsEqual(0)) RaiseInvalidKey();
    message.SetBytes(input);
    if (message.Compare(n) >= 0) MRaise(MExceptionGeneral, "Block does not fit the cryptographic key.");
    power = message.PowerModulo(exponent, n);
    power.GetBytes(output);
}
