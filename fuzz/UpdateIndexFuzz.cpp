// Reads hostile lists of updates against an installation.

#include "foundation/base/MException.h"
#include "streams/basic/MMemoryStream.h"
#include "update/MUpdateOffers.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MXMLItem state;
    state.SetAttribute("time", "2026-03-01 12:00:00");
    state.AddSubItem("package")->SetAttribute("time", "2026-01-01 08:00:00");
    MMemoryStream reply(data, static_cast<int32_t>(size));
    MUpdateOffers offers;
    try {
        offers.Read(reply, state);
    } catch (const MException&) {
        return 0;
    }
    for (const MXMLItem* offer : offers.GetUpdates())
        if (("/" + offer->GetAttribute("filename", "")).Contains("/../")) __builtin_trap();
    return 0;
}
