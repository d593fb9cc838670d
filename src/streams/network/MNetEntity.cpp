#include "streams/network/MNetEntity.h"

#include "foundation/base/MList.h"
#include "foundation/base/MRaise.h"
#include "foundation/text/MNumberText.h"
#include "streams/network/MSystemSocket.h"

#include <array>
#include <bit>

namespace {

using AddressBytes = std::array<uint8_t, 4>;

MString AddressToText(uint32_t address) {
    const auto bytes = std::bit_cast<AddressBytes>(address);
    return MFormat("{0}.{1}.{2}.{3}", int32_t{bytes[0]}, int32_t{bytes[1]}, int32_t{bytes[2]},
                   int32_t{bytes[3]});
}

/// False for a text that no address turns into. Other ways to write an address are left to the system.
bool TextToAddress(const MString& text, uint32_t& address) {
    const MList<MString> parts = text.Split('.');
    AddressBytes bytes;
    if (parts.GetCount() != static_cast<int32_t>(bytes.size())) return false;
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<uint8_t>(MParseInt32(parts[static_cast<int32_t>(i)]));
    address = std::bit_cast<uint32_t>(bytes);
    return AddressToText(address).IsExactly(text);
}

struct LocalHost {
    LocalHost() {
        if (!MFindLocalHostName(name) || !MFindLocalHostAddress(name, address))
            MRaise(MExceptionNetwork, "Could not resolve host network name.");
    }

    MString name;
    uint32_t address = 0;
};

}  // namespace

void MNetEntity::ResolveLocalHost() {
    resolved = false;
    // Kept once it is known: to look it up may take the time of a request to a server of names.
    static const LocalHost local;
    name = local.name;
    address = local.address;
    resolved = true;
}

void MNetEntity::Resolve(const MString& hostName) {
    name = hostName;
    resolved = TextToAddress(name, address) || (!name.IsEmpty() && MFindHostAddress(name, address));
    if (!resolved) MRaise(MExceptionNetwork, "Could not resolve network name \"{0}\".", name);
}

MString MNetEntity::FormatAddress() const {
    return AddressToText(address);
}
