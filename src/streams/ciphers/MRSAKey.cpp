#include "streams/ciphers/MRSAKey.h"

#include "foundation/base/MRaise.h"

#include <mbedtls/asn1.h>
#include <mbedtls/pem.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace {

using Bytes = std::vector<uint8_t>;

[[noreturn]] void RaiseNoKey(const char* kind) {
    MRaise(
        MExceptionGeneral,
        "This is no {0} RSA key of {1} to {2} bits in PEM form. \"openssl genpkey -algorithm RSA\" makes a private "
        "one, and \"openssl pkey -pubout\" the public one of it.",
        kind, MRSAKey::MinimumBits, MRSAKey::MaximumBits);
}

/// What stands between the lines "-----BEGIN label-----" and "-----END label-----"; empty if there are none.
Bytes ReadPEM(const std::string& text, const std::string& label) {
    mbedtls_pem_context context;
    mbedtls_pem_init(&context);
    size_t used = 0;
    const std::string header = "-----BEGIN " + label + "-----";
    const std::string footer = "-----END " + label + "-----";
    const int result =
        mbedtls_pem_read_buffer(&context, header.c_str(), footer.c_str(),
                                reinterpret_cast<const uint8_t*>(text.c_str()), nullptr, 0, &used);
    Bytes bytes;
    if (result == 0) bytes.assign(context.buf, context.buf + context.buflen);
    mbedtls_pem_free(&context);
    return bytes;
}

/// Walks through elements of DER (ITU-T X.690); what is not there gives nothing from then on.
class DERReader {
public:
    explicit DERReader(const Bytes& bytes)
        : position(const_cast<uint8_t*>(bytes.data())), end(position + bytes.size()) {}

    /// Goes into an element.
    void Enter(int tag) {
        size_t length = 0;
        if (Take(tag, length)) end = position + length;
    }
    void Skip(int tag) {
        size_t length = 0;
        if (Take(tag, length)) position += length;
    }
    /// A bit string or octet string that holds DER.
    void EnterString(int tag) {
        Enter(tag);
        if (isGood && tag == MBEDTLS_ASN1_BIT_STRING) isGood = position < end && *position++ == 0;
    }
    [[nodiscard]] MBigInteger TakeNumber() {
        size_t length = 0;
        if (!Take(MBEDTLS_ASN1_INTEGER, length) || length == 0 || (*position & 0x80) != 0) {
            isGood = false;
            return MBigInteger();
        }
        Bytes bytes(position, position + length);
        position += length;
        while (bytes.size() > 1 && bytes.front() == 0) bytes.erase(bytes.begin());
        std::ranges::reverse(bytes);
        MBigInteger number;
        number.SetBytes(bytes);
        return number;
    }
    [[nodiscard]] bool IsGood() const { return isGood; }

private:
    bool Take(int tag, size_t& length) {
        isGood = isGood && mbedtls_asn1_get_tag(&position, end, &length, tag) == 0;
        return isGood;
    }

    uint8_t* position;
    uint8_t* end;
    bool isGood = true;
};

constexpr int Sequence = MBEDTLS_ASN1_CONSTRUCTED | MBEDTLS_ASN1_SEQUENCE;

bool IsUsable(const MBigInteger& modulus, const MBigInteger& exponent) {
    const int32_t bits = modulus.GetBitCount();
    return bits >= MRSAKey::MinimumBits && bits <= MRSAKey::MaximumBits && modulus.IsOdd() &&
           exponent.IsOdd() && exponent.GetBitCount() > 1 && exponent.Compare(modulus) < 0;
}

}  // namespace

MRSAKey::MRSAKey(const MBigInteger& modulus, const MBigInteger& publicExponent,
                 const MBigInteger& privateExponent)
    : modulus(modulus),
      publicExponent(publicExponent),
      privateExponent(privateExponent),
      size((modulus.GetBitCount() + 7) / 8) {}

MRSAKey MRSAKey::ReadPrivate(const std::string& pem) {
    if (pem.find("BEGIN ENCRYPTED") != std::string::npos || pem.find(",ENCRYPTED") != std::string::npos)
        MRaise(MExceptionGeneral,
               "The key is encrypted. \"openssl pkey -in {0} -out {1}\" gives one that is not.", "KEY.pem",
               "PLAIN.pem");
    Bytes bytes = ReadPEM(pem, "RSA PRIVATE KEY");
    const bool isBare = !bytes.empty();
    if (!isBare) bytes = ReadPEM(pem, "PRIVATE KEY");
    DERReader reader(bytes);
    reader.Enter(Sequence);
    if (!isBare) {
        reader.Skip(MBEDTLS_ASN1_INTEGER);
        reader.Skip(Sequence);
        reader.EnterString(MBEDTLS_ASN1_OCTET_STRING);
        reader.Enter(Sequence);
    }
    reader.Skip(MBEDTLS_ASN1_INTEGER);
    const MBigInteger modulus = reader.TakeNumber();
    const MBigInteger publicExponent = reader.TakeNumber();
    const MBigInteger privateExponent = reader.TakeNumber();
    if (!reader.IsGood() || !IsUsable(modulus, publicExponent) || !IsUsable(modulus, privateExponent))
        RaiseNoKey("private");
    return {modulus, publicExponent, privateExponent};
}

MRSAKey MRSAKey::ReadPublicLine(const std::string& base64) {
    return ReadPublic("-----BEGIN PUBLIC KEY-----\n" + base64 + "\n-----END PUBLIC KEY-----\n");
}

MRSAKey MRSAKey::ReadPublic(const std::string& pem) {
    Bytes bytes = ReadPEM(pem, "RSA PUBLIC KEY");
    const bool isBare = !bytes.empty();
    if (!isBare) bytes = ReadPEM(pem, "PUBLIC KEY");
    DERReader reader(bytes);
    reader.Enter(Sequence);
    if (!isBare) {
        reader.Skip(Sequence);
        reader.EnterString(MBEDTLS_ASN1_BIT_STRING);
        reader.Enter(Sequence);
    }
    const MBigInteger modulus = reader.TakeNumber();
    const MBigInteger exponent = reader.TakeNumber();
    if (!reader.IsGood() || !IsUsable(modulus, exponent)) RaiseNoKey("public");
    return {modulus, exponent, MBigInteger()};
}

std::vector<uint8_t> MRSAKey::Sign(std::span<const uint8_t> digest) const {
    std::vector<uint8_t> signature = Raise(Pad(digest), privateExponent);
    if (!IsSignature(signature, digest))
        MRaise(MExceptionGeneral, "The private key of {0} bytes does not belong to itself. Make a new one.",
               size);
    return signature;
}

bool MRSAKey::IsSignature(std::span<const uint8_t> signature, std::span<const uint8_t> digest) const {
    if (static_cast<int32_t>(signature.size()) != size) return false;
    return std::ranges::equal(Raise(signature, publicExponent), Pad(digest));
}

/// EMSA-PKCS1-v1_5: 00 01 FF ... FF 00, the name of the hash, the digest.
std::vector<uint8_t> MRSAKey::Pad(std::span<const uint8_t> digest) const {
    static constexpr uint8_t hashName[] = {0x30, 0x31, 0x30, 0x0d, 0x06, 0x09, 0x60, 0x86, 0x48, 0x01,
                                           0x65, 0x03, 0x04, 0x02, 0x01, 0x05, 0x00, 0x04, 0x20};
    Bytes padded(static_cast<size_t>(size), 0xff);
    padded[0] = 0;
    padded[1] = 1;
    auto place = padded.end() - static_cast<int32_t>(sizeof hashName + digest.size());
    place[-1] = 0;
    std::ranges::copy(digest, std::ranges::copy(hashName, place).out);
    return padded;
}

std::vector<uint8_t> MRSAKey::Raise(std::span<const uint8_t> bytes, const MBigInteger& exponent) const {
    Bytes reversed(bytes.rbegin(), bytes.rend());
    MBigInteger number;
    number.SetBytes(reversed);
    // Beyond the modulus a number would stand for another one.
    if (number.Compare(modulus) >= 0) return {};
    number.PowerModulo(exponent, modulus).GetBytes(reversed);
    std::ranges::reverse(reversed);
    return reversed;
}
