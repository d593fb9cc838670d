#include "update/MUpdateOffers.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MSafeName.h"
#include "foundation/xml/MXMLSubItems.h"
#include "streams/basic/MMemoryStream.h"
#include "update/MUpdateServer.h"
#include "update/MUpdateTrust.h"

#include <algorithm>

namespace {

constexpr int64_t MaximumIndexSize = 0x1000000;

void CheckName(const MString& name) {
    const MString fault = MFindNameFault(name);
    if (fault.IsEmpty()) return;
    MRaise(
        MExceptionGeneral,
        "The name \"{0}\" in the list of updates {1}. The server is damaged or not trustworthy; nothing has been "
        "written.",
        name, fault);
}

int64_t GetMicroseconds(const MXMLItem& offer) {
    return MDateTime::Parse(offer.GetAttribute("time")).GetMicroseconds();
}

bool IsInstalled(const MXMLItem& state, const MString& time) {
    for (const MXMLItem& package : MXMLSubItems(state, "package"))
        if (package.GetAttribute("time", "") == time) return true;
    return false;
}

}  // namespace

void MUpdateOffers::Fetch(const MUpdateServer& server, const MXMLItem& state) {
    MMemoryStream reply;
    try {
        server.FetchFile("op=getindex", reply, nullptr, MaximumIndexSize);
    } catch (const MException&) {
        MRaise(MExceptionGeneral, "Could not connect the server. Please try again later.");
    }
    MUpdateTrust(state).Require(MTranslate("The list of updates"), reply, server, "op=getindexsignature");
    reply.Rewind();
    Read(reply, state);
}

void MUpdateOffers::Read(MStream& reply, const MXMLItem& state) {
    updates.Clear();
    packages.Clear();
    index.Clear();
    index.Load(reply);
    const MDateTime stateTime = MDateTime::Parse(state.GetAttribute("time"));
    for (const MXMLItem& offer : MXMLSubItems(index, "update")) Choose(offer, state, stateTime);
    // Each changes the one before it, in whatever order they are listed.
    std::stable_sort(updates.begin(), updates.end(), [](const MXMLItem* one, const MXMLItem* other) {
        return GetMicroseconds(*one) < GetMicroseconds(*other);
    });
}

void MUpdateOffers::Choose(const MXMLItem& offer, const MXMLItem& state, const MDateTime& stateTime) {
    CheckName(offer.GetAttribute("filename", ""));
    CheckName(offer.GetAttribute("execute", ""));
    const MString timeText = offer.GetAttribute("time");
    const MDateTime time = MDateTime::Parse(timeText);
    if (offer.GetInt32Attribute("package", 0) != 0) {
        if (!IsInstalled(state, timeText)) packages.Add(&offer);
    } else if (stateTime.GetMicroseconds() < time.GetMicroseconds()) {
        updates.Add(&offer);
    }
}
