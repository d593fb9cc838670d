#include "update/MUpdateTrust.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/hashes/MSHA256Stream.h"
#include "update/MUpdateServer.h"

MUpdateTrust::MUpdateTrust(const MXMLItem& state) {
    const MString text = state.GetAttribute("updatekey", "");
    if (text.IsEmpty()) return;
    try {
        key = MRSAKey::ReadPublicLine(MEncodeUTF8Exact(text));
    } catch (const MException&) {
        MRaise(MExceptionGeneral,
               "The key of the maker in \"setup.state\" cannot be read. Please reinstall the software.");
    }
}

void MUpdateTrust::Require(const MString& name, MStream& content, const MUpdateServer& server,
                           const MString& query) const {
    if (!key) return;
    MMemoryStream answer;
    MGuard("MUpdateTrust", [&] { server.FetchFile(query, answer, nullptr, MRSAKey::MaximumBits / 8); });
    MSHA256Stream hash;
    content.Rewind();
    content.CopyAllToInLargePieces(hash);
    hash.Finish();
    const std::span signature(static_cast<const uint8_t*>(answer.GetBuffer().GetBlock()),
                              static_cast<size_t>(answer.GetSize()));
    if (!key->IsSignature(signature, hash.GetDigest()))
        MRaise(
            MExceptionGeneral,
            "{0} is not signed by the maker of this software, or has been changed on its way. Nothing of it has been "
            "installed. Please try again later, or get it from the maker's web site.",
            name);
}
