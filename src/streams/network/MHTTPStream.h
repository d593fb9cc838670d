#pragma once

#include "streams/basic/MMemoryStream.h"
#include "streams/network/MHTTPReplyHead.h"
#include "streams/network/MTCPClient.h"

/// A client of HTTP/1.0 (RFC 1945), without TLS, proxies, kept connections, chunks and time-outs.
///
/// Prepare a request with `Get` or `Post`, which connect; then `Send` it; after a true result take the body
/// with `Read`, which gives 0 or less at its end. The body ends when the server closes the connection: one
/// that is shorter than `GetSize` says has been cut short.
class MHTTPStream : public MTCPClient {
public:
    static constexpr uint16_t DefaultPort = 80;

    /// Splits an address, whose scheme does not matter and may be missing. The path begins with "/" and may
    /// hold a query. A port that is no number from 1 to 65,535 gives the default one.
    static void ParseUrl(const MString& url, MString& host, MString& path, uint16_t& port);

    /// Prepare a request of GET for an address, with the query that it may hold, or for a path with a query
    /// of fields. Names of fields are sent as they are; of values, each character that is no ASCII letter or
    /// digit becomes "%" and two digits of its low byte. Raise as `MTCPClient::Connect` does.
    void Get(const MString& url);
    void Get(const MString& host, const MString& path, const MHTTPFieldList* fields = nullptr,
             uint16_t port = DefaultPort);
    /// Prepares a request of POST, whose body has the fields in UTF-8 and nothing in them encoded. Raises as
    /// `MTCPClient::Connect` does.
    void Post(const MString& host, const MString& path, const MHTTPFieldList& fields,
              uint16_t port = DefaultPort);
    /// Adds a line to the heads of this stream's requests.
    void AddRequestHeader(const MString& name, const MString& value) { requestHeaders.Add({name, value}); }

    /// Sends the request and reads the head of the reply, and follows at most `redirectBudget` redirections,
    /// which repeat a POST as it is. A "Location" without "://" always counts from the directory of the path,
    /// even with a slash in front. True if the server grants the request with a status of 2xx, false for any
    /// other status. Raises what `MHTTPReplyHead::Load`, `MTCPClient::Connect` and `Write` raise, and as
    /// `GetHeader` does for a redirection to nowhere.
    [[nodiscard]] bool Send(int32_t redirectBudget);

    /// -1 before a reply.
    [[nodiscard]] int32_t GetStatus() const { return reply.GetStatus(); }
    [[nodiscard]] const MString& GetStatusText() const { return reply.GetStatusText(); }
    /// A field of the reply's head. Raises "Requested HTTP header not found." (0x201).
    [[nodiscard]] MString GetHeader(const MString& name) const;
    [[nodiscard]] const MHTTPFieldList& GetReplyHeaders() const { return reply.GetFields(); }
    /// How many bytes the reply promises; 0 if it does not say.
    int64_t GetSize() override { return reply.GetContentLength(); }

private:
    enum class Method { Get, Post };

    void Prepare(Method newMethod, const MString& newHost, const MString& newPath, uint16_t newPort);
    void SendHead();
    void SendBody();
    void Redirect();

    MHTTPFieldList requestHeaders;
    MHTTPReplyHead reply;
    MString host;
    MString path;
    MString query;  ///< without "?"
    uint16_t port = 0;
    MMemoryStream body;
    Method method = Method::Get;
};
