#pragma once

#include "streams/ciphers/MBufferingStream.h"

/// A cipher as a stream: it encrypts what is written and decrypts what is read. A cipher implements the key
/// services that it has; every other one raises "Service \"{0}\" is not implemented." (1). A key is set
/// before the stream is opened.
class MCryptoStream : public MBufferingStream {
public:
    /// Starts over with keys of a length in bits.
    virtual void SetKeyLength(int32_t bits);
    /// Makes new keys from the random source; the cipher says what the flag means.
    virtual void GenerateKeys(bool flag);
    /// Writes a key in the cipher's own form; the flag chooses the private one of a pair.
    virtual void GetKey(MStream& target, bool isPrivate);
    /// Reads what `GetKey` has written with the same flag.
    virtual void SetKey(MStream& keySource, bool isPrivate);
    virtual void SetKeyText(const MString& text, bool flag);
};
