#include "streams/network/MHTTPStream.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MNumberText.h"
#include "foundation/text/encodings/MEncodingWriter.h"

#include <limits>

namespace {

void AppendPercentForm(MString& text, MChar character) {
    text.Append('%');
    text.Append(MChar::FromHexDigit(character >> 4));
    text.Append(MChar::FromHexDigit(character));
}

/// A text with all characters that `isEncoded` finds in their percent form.
template <class Condition>
MString Encode(const MString& text, Condition isEncoded) {
    MString encoded;
    for (int32_t i = 0; i < text.GetLength(); ++i) {
        if (isEncoded(text[i]))
            AppendPercentForm(encoded, text[i]);
        else
            encoded.Append(text[i]);
    }
    return encoded;
}

MString EncodePath(const MString& path) {
    return Encode(path, [](MChar character) { return character.IsBlank(); });
}

MString EncodeValue(const MString& value) {
    return Encode(value, [](MChar character) { return !character.IsAlphanumeric(); });
}

MString BuildQuery(const MHTTPFieldList& fields) {
    MString query;
    for (const MHTTPField& field : fields) {
        if (!query.IsEmpty()) query.Append('&');
        query += field.name + "=" + EncodeValue(field.value);
    }
    return query;
}

void WriteForm(const MHTTPFieldList& fields, MStream& target) {
    MEncoding::Writer writer(target, "utf-8");
    for (int32_t i = 0; i < fields.GetCount(); ++i)
        writer.WriteText((i > 0 ? "&" : "") + fields[i].name + "=" + fields[i].value);
}

void DropScheme(MString& url) {
    const MString separator = "://";
    const int32_t found = url.Find(separator);
    if (found != MString::NotFound) url.Remove(0, found + separator.GetLength());
}

uint16_t ParsePort(const MString& text) {
    const int64_t port = MParseInt64(text);
    const bool isValid = port > 0 && port <= std::numeric_limits<uint16_t>::max();
    return isValid ? static_cast<uint16_t>(port) : MHTTPStream::DefaultPort;
}

/// A location that holds no host, seen from the path of the request.
MString FollowPath(const MString& path, const MString& location) {
    const int32_t query = path.FindChar('?');
    const MString names = query == MString::NotFound ? path : path.Substring(0, query);
    const MString followed = MFile::Join(names.Substring(0, names.FindCharBackward('/') + 1), location);
    // Paths of files do not end in a slash, those of servers may.
    return location.EndsWith("/") && !followed.EndsWith("/") ? followed + "/" : followed;
}

}  // namespace

void MHTTPStream::ParseUrl(const MString& url, MString& host, MString& path, uint16_t& port) {
    MString rest = url;
    DropScheme(rest);
    const int32_t slash = rest.FindChar('/');
    path = slash == MString::NotFound ? MString("/") : rest.Substring(slash);
    host = slash == MString::NotFound ? rest : rest.Substring(0, slash);
    port = DefaultPort;
    const int32_t colon = host.FindChar(':');
    if (colon == MString::NotFound) return;
    port = ParsePort(host.Substring(colon + 1));
    host.Cut(colon);
}

void MHTTPStream::Prepare(Method newMethod, const MString& newHost, const MString& newPath,
                          uint16_t newPort) {
    method = newMethod;
    host = newHost;
    path = newPath;
    port = newPort;
    query = MString();
    body.Reset();
    reply.Reset();
    Connect(port, host);
}

void MHTTPStream::Get(const MString& url) {
    MString urlHost;
    MString urlPath;
    uint16_t urlPort;
    ParseUrl(url, urlHost, urlPath, urlPort);
    const int32_t mark = urlPath.FindChar('?');
    const MString urlQuery = mark == MString::NotFound ? MString() : urlPath.Substring(mark + 1);
    if (mark != MString::NotFound) urlPath.Cut(mark);
    Get(urlHost, urlPath, nullptr, urlPort);
    query = EncodePath(urlQuery);
}

void MHTTPStream::Get(const MString& newHost, const MString& newPath, const MHTTPFieldList* fields,
                      uint16_t newPort) {
    Prepare(Method::Get, newHost, newPath, newPort);
    if (fields) query = BuildQuery(*fields);
}

void MHTTPStream::Post(const MString& newHost, const MString& newPath, const MHTTPFieldList& fields,
                       uint16_t newPort) {
    Prepare(Method::Post, newHost, newPath, newPort);
    WriteForm(fields, body);
}

bool MHTTPStream::Send(int32_t redirectBudget) {
    for (;; --redirectBudget) {
        reply.Reset();
        SendHead();
        SendBody();
        reply.Load(*this);
        const int32_t kind = GetStatus() / 100;
        if (redirectBudget <= 0 || kind != 3) return kind == 2;
        Redirect();
    }
}

void MHTTPStream::SendHead() {
    MEncoding::Writer writer(*this, "utf-8");
    const MString target = EncodePath(path);
    if (method == Method::Post) {
        writer.WriteLine(MFormat("POST {0} HTTP/1.0", target));
        writer.WriteLine("Content-Type: application/x-www-form-urlencoded");
        writer.WriteLine(MFormat("Content-Length: {0}", body.GetSize()));
    } else {
        writer.WriteLine(MFormat("GET {0} HTTP/1.0", query.IsEmpty() ? target : target + "?" + query));
    }
    writer.WriteLine(MFormat("Host: {0}:{1}", host, int32_t{port}));
    writer.WriteLine("Connection: Close");
    for (const MHTTPField& header : requestHeaders)
        writer.WriteLine(MFormat("{0}: {1}", header.name, header.value));
    writer.WriteLine("");
    writer.Flush();
}

void MHTTPStream::SendBody() {
    if (body.GetSize() == 0) return;
    body.Rewind();
    body.CopyAllTo(*this);
}

void MHTTPStream::Redirect() {
    const MString location = GetHeader("Location");
    if (location.Contains("://"))
        ParseUrl(location, host, path, port);
    else
        path = FollowPath(path, location);
    query = MString();
    Connect(port, host);
}

MString MHTTPStream::GetHeader(const MString& name) const {
    const MString* value = reply.FindField(name);
    if (!value) MRaise(MExceptionHTTP, "Requested HTTP header not found.");
    return *value;
}
