#include "streams/ciphers/MCryptoStream.h"

void MCryptoStream::SetKeyLength(int32_t /*bits*/) {
    RaiseNotImplemented("set crypto key length");
}

void MCryptoStream::GenerateKeys(bool /*flag*/) {
    RaiseNotImplemented("generate crypto-stream keys");
}

void MCryptoStream::GetKey(MStream& /*target*/, bool /*isPrivate*/) {
    RaiseNotImplemented("retrieve crypto-stream key");
}

void MCryptoStream::SetKey(MStream& /*keySource*/, bool /*isPrivate*/) {
    RaiseNotImplemented("set crypto-stream key");
}

void MCryptoStream::SetKeyText(const MString& /*text*/, bool /*flag*/) {
    RaiseNotImplemented("set crypto-stream key in text form");
}
