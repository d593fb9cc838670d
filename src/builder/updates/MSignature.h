#pragma once

#include "streams/basic/MStream.h"
#include "streams/ciphers/MRSAKey.h"

/// What the name of a signature has behind that of its file.
inline constexpr const char* MSignatureSuffix = ".sig";

/// Reads the private key in a PEM file. Raises what reading raises, and what `MRSAKey` raises with the path in front.
[[nodiscard]] MRSAKey MReadSigningKey(const MString& path);

/// Writes the signature of a file beside it, as "openssl dgst -sha256 -sign" does. Raises what reading and writing
/// raise.
void MWriteSignature(const MString& path, const MRSAKey& key);
