#pragma once

#include "foundation/views/MProgressView.h"
#include "streams/network/MHTTPStream.h"

class MXMLItem;

/// The server that knows what is new for an installation: the one that its state names in `updateaddress`, or
/// the maker's own.
class MUpdateServer {
public:
    /// `state` is the root of "setup.state". Raises "Could not find required attribute (id)." (0) for a state
    /// that has neither an address nor an id.
    explicit MUpdateServer(const MXMLItem& state);

    /// Asks for `query`, as "op=getindex", and writes the reply to `stream`; `bar` shows the bytes and may be
    /// null. Raises "Could not connect to the update server. The computer probably does not have internet
    /// access. ..." (0) if there is no connection or no HTTP reply, and "Could not download a file from the
    /// update server." (0) if the server refuses or the reply breaks off. A reply without length is taken as
    /// it comes; one of more than `limit` bytes raises "The server has sent more than {0} bytes." (0). A server from
    /// which nothing comes for a minute has broken off.
    void FetchFile(const MString& query, MStream& stream, MProgressView* bar,
                   int64_t limit = INT64_MAX) const;

    /// Asks for the content of an offer, by its `filename`. Raises as `FetchFile`.
    void FetchUpdate(const MString& fileName, MStream& stream, MProgressView* bar) const;
    /// What asks for the signature of that.
    [[nodiscard]] static MString GetSignatureQuery(const MString& fileName);

    [[nodiscard]] const MString& GetHost() const { return host; }
    /// 80, unless the address has one of its own, as "host:8080/path".
    [[nodiscard]] uint16_t GetPort() const { return port; }
    /// What stands before the query in a request, "?" or "&" included.
    [[nodiscard]] const MString& GetBasePath() const { return basePath; }

private:
    MString host;
    uint16_t port = MHTTPStream::DefaultPort;
    MString basePath;
};
