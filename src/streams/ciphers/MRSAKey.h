#pragma once

#include "streams/ciphers/MBigInteger.h"

#include <string>

/// An RSA key (PKCS 1, RFC 8017), and signatures by it as RSASSA-PKCS1-v1_5 with SHA-256 makes them.
class MRSAKey {
public:
    static constexpr int32_t MinimumBits = 2048;
    static constexpr int32_t MaximumBits = 8192;

    /// Reads the text of a PEM file (RFC 7468). A private key is "RSA PRIVATE KEY" or an unencrypted "PRIVATE KEY"
    /// (RFC 5208), a public one "PUBLIC KEY" (RFC 5280) or "RSA PUBLIC KEY". Raises "The key is encrypted. ..." and
    /// "This is no {0} RSA key of {1} to {2} bits in PEM form. ..." (0).
    [[nodiscard]] static MRSAKey ReadPrivate(const std::string& pem);
    [[nodiscard]] static MRSAKey ReadPublic(const std::string& pem);
    /// Reads what stands between the first and the last line of a "PUBLIC KEY", and raises as `ReadPublic`.
    [[nodiscard]] static MRSAKey ReadPublicLine(const std::string& base64);

    /// Of the modulus and of each signature, in bytes.
    [[nodiscard]] int32_t GetSize() const { return size; }
    /// The signature of data with this SHA-256 digest, highest byte first. Raises "The private key does not belong
    /// to itself. ..." (0) for a key whose numbers do not fit each other.
    [[nodiscard]] std::vector<uint8_t> Sign(std::span<const uint8_t> digest) const;
    /// Whether a signature is that of data with this digest.
    [[nodiscard]] bool IsSignature(std::span<const uint8_t> signature, std::span<const uint8_t> digest) const;

private:
    MRSAKey(const MBigInteger& modulus, const MBigInteger& publicExponent,
            const MBigInteger& privateExponent);
    [[nodiscard]] std::vector<uint8_t> Pad(std::span<const uint8_t> digest) const;
    [[nodiscard]] std::vector<uint8_t> Raise(std::span<const uint8_t> bytes,
                                             const MBigInteger& exponent) const;

    MBigInteger modulus;
    MBigInteger publicExponent;
    MBigInteger privateExponent;  ///< without words in a public key
    int32_t size = 0;
};
