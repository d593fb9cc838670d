#include "update/MSubmitNote.h"

#include "foundation/MProductConstants.h"
#include "foundation/base/MRaise.h"
#include "foundation/text/MUnicode.h"
#include "streams/hashes/MMD5Text.h"
#include "update/MHTTPBody.h"

#include <chrono>

namespace {

MString MakeHash(const MString& token, const MString& subject, const MString& email) {
    const std::string bytes = MEncodeUTF8Exact(token + subject + email);
    return MMD5OfBlock(bytes.data(), static_cast<int32_t>(bytes.size()));
}

}  // namespace

MString MGetNoteAddress() {
    MString host;
    MString path;
    uint16_t port = 0;
    MHTTPStream::ParseUrl(MProductWebAddress, host, path, port);
    return host + "/submitnoteprog.php";
}

MString MMakeNoteToken(const MDateTime& now) {
    return MFormat("{0}", now.date.day * MProductNoteFactor);
}

void SubmitNote(const MString& url, const MString& subject, const MString& token, const MString& text,
                const MString& email, const MString& attachmentName, const MString& attachment) {
    constexpr std::chrono::seconds Patience(4);
    constexpr int32_t RedirectBudget = 1;
    constexpr int64_t MaximumReplySize = 0x10000;
    MHTTPFieldList fields;
    fields.Add({"email", email});
    fields.Add({"text", text});
    fields.Add({"subject", subject});
    fields.Add({"hash", MakeHash(token, subject, email)});
    fields.Add({"attachementname", attachmentName});
    fields.Add({"attachement", attachment});

    MString host;
    MString path;
    uint16_t port = 0;
    MHTTPStream::ParseUrl(url, host, path, port);
    MHTTPStream request;
    const auto end = std::chrono::steady_clock::now() + Patience;
    request.SetWatcher(
        [end](std::chrono::steady_clock::duration) { return std::chrono::steady_clock::now() < end; });
    request.Post(host, path, fields, port);
    if (!request.Send(RedirectBudget))
        MRaise(MExceptionHTTP, "The note has not been taken ({0} {1}).", request.GetStatus(),
               request.GetStatusText());
    MMemoryStream reply;
    MReadHTTPBody(request, reply, MaximumReplySize);
    if (reply.GetSize() == 0) return;
    const std::string_view answer(static_cast<const char*>(reply.GetBuffer().GetBlock()),
                                  static_cast<size_t>(reply.GetSize()));
    throw MException(MString(), MDecodeUTF8Exact(answer), MExceptionGeneral);
}
