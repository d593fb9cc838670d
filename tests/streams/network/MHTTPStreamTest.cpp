#include "streams/network/MHTTPStream.h"

#include "foundation/base/MRaise.h"
#include "foundation/module/MPlatform.h"
#include "tests/support/MTestServer.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string ReadAll(MHTTPStream& stream, int32_t pieceSize = 1000) {
    std::string bytes;
    std::string piece(static_cast<size_t>(pieceSize), 0);
    int32_t count;
    while ((count = stream.Read(piece.data(), pieceSize)) > 0)
        bytes.append(piece, 0, static_cast<size_t>(count));
    return bytes;
}

MTestReply Redirection(const std::string& location) {
    return "HTTP/1.0 302 Found\r\nLocation: " + location + "\r\n\r\nelsewhere";
}

/// Redirects by the table, and sends the path of any other request as its body.
MTestServer::Handler RedirectBy(const std::vector<std::pair<std::string, std::string>>& table) {
    return [table](const std::string& request) {
        const std::string path = MTestServer::GetPath(request);
        for (const auto& [from, to] : table)
            if (from == path) return Redirection(to);
        return MTestBody(path);
    };
}

std::string MakeBytes(size_t size) {
    std::string bytes(size, 0);
    uint32_t state = 7;
    for (char& byte : bytes) byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}

}  // namespace

TEST(MHTTPStream, SplitsAddresses) {
    const struct {
        const char* url;
        const char* host;
        const char* path;
        int port;
    } cases[] = {
        {"http://host/dir/file.zip?a=b", "host", "/dir/file.zip?a=b", 80},
        {"host", "host", "/", 80},
        {"HTTP://host:8080", "host", "/", 8080},
        {"any://host:8080/", "host", "/", 8080},
        {"host:0/a", "host", "/a", 80},
        {"host:abc", "host", "/", 80},
        {"host:-5", "host", "/", 80},
        {"host:65535", "host", "/", 65535},
        {"host:65536", "host", "/", 80},
        {"host:81:82/a:b", "host", "/a:b", 81},
        {"/path", "", "/path", 80},
        {"", "", "/", 80},
    };
    for (const auto& [url, expectedHost, expectedPath, expectedPort] : cases) {
        MString host = "before";
        MString path = "before";
        uint16_t port = 1;
        MHTTPStream::ParseUrl(url, host, path, port);
        EXPECT_EQ(expectedHost, Text(host)) << url;
        EXPECT_EQ(expectedPath, Text(path)) << url;
        EXPECT_EQ(expectedPort, port) << url;
    }
}

TEST(MHTTPStream, SendsRequestsByteForByte) {
    MTestServer server([](const std::string&) { return MTestBody(""); });
    const std::string tail = "Host: 127.0.0.1:" + std::to_string(server.GetPort()) + "\nConnection: Close\n";
    const MHTTPFieldList fields = [] {
        MHTTPFieldList list;
        list.Add({"a", "1"});
        list.Add({"b c", "x y/\xE9%"});
        return list;
    }();
    const auto expectRequest = [&](auto prepare, const std::string& expected) {
        MHTTPStream stream;
        prepare(stream);
        EXPECT_EQ(-1, stream.GetStatus());
        EXPECT_TRUE(stream.Send(0));
        EXPECT_EQ(expected, server.GetRequests().back());
    };

    expectRequest([&](auto& stream) { stream.Get(server.GetURL("/a b%20\t.zip?c=d e&f")); },
                  "GET /a%20b%20%09.zip?c=d%20e&f HTTP/1.0\n" + tail + "\n");
    expectRequest([&](auto& stream) { stream.Get("127.0.0.1", "/?p=q&r", nullptr, server.GetPort()); },
                  "GET /?p=q&r HTTP/1.0\n" + tail + "\n");
    expectRequest([&](auto& stream) { stream.Get("127.0.0.1", "/path", &fields, server.GetPort()); },
                  "GET /path?a=1&b c=x%20y%2F%E9%25 HTTP/1.0\n" + tail + "\n");
    expectRequest(
        [&](auto& stream) {
            stream.AddRequestHeader("Range", "bytes=5-");
            stream.AddRequestHeader("Accept", "*/*");
            stream.Get(server.GetURL("/"));
        },
        "GET / HTTP/1.0\n" + tail + "Range: bytes=5-\nAccept: */*\n\n");

    const std::string postHead = "Content-Type: application/x-www-form-urlencoded\nContent-Length: ";
    MHTTPFieldList form;
    form.Add({"name", "\xFE x&y=z"});
    form.Add({"text", MString::Copy(u"\u0159\n")});
    expectRequest([&](auto& stream) { stream.Post("127.0.0.1", "/form?x", form, server.GetPort()); },
                  "POST /form?x HTTP/1.0\n" + postHead + "23\n" + tail +
                      "\nname=\xEF\xBF\xBE x&y=z&text=\xC5\x99\n");
    expectRequest([&](auto& stream) { stream.Post("127.0.0.1", "/", {}, server.GetPort()); },
                  "POST / HTTP/1.0\n" + postHead + "0\n" + tail + "\n");
}

TEST(MHTTPStream, SendsALargeForm) {
    MTestServer server([](const std::string& request) {
        return MTestBody(std::to_string(request.size() - request.find("\n\n") - 2));
    });
    MHTTPFieldList form;
    form.Add({"text", MString("")});
    form[0].value.Append(MChar('x'), 3000000);
    MHTTPStream stream;
    stream.Post("127.0.0.1", "/", form, server.GetPort());
    EXPECT_TRUE(stream.Send(0));
    EXPECT_EQ("3000005", ReadAll(stream));
}

TEST(MHTTPStream, TellsWhatTheServerAnswers) {
    MTestServer server([](const std::string& request) -> MTestReply {
        if (MTestServer::GetPath(request) == "/empty") return "HTTP/1.0 204\n\n";
        return "HTTP/1.1 404 Not here\r\nServer: test\r\nContent-length: 4\r\n\r\nnone";
    });
    MHTTPStream stream;
    stream.Get(server.GetURL("/missing"));
    EXPECT_FALSE(stream.Send(5));
    EXPECT_EQ(404, stream.GetStatus());
    EXPECT_EQ("Not here", Text(stream.GetStatusText()));
    EXPECT_EQ("test", Text(stream.GetHeader("SERVER")));
    EXPECT_EQ("201: Requested HTTP header not found.", FailureOf([&] { (void)stream.GetHeader("Date"); }));
    EXPECT_EQ(4, stream.GetSize());
    EXPECT_EQ("none", ReadAll(stream));

    // The same stream serves for the next request.
    stream.Get(server.GetURL("/empty"));
    EXPECT_TRUE(stream.Send(5));
    EXPECT_EQ(204, stream.GetStatus());
    EXPECT_EQ("", Text(stream.GetStatusText()));
    EXPECT_EQ(0, stream.GetSize());
    EXPECT_EQ("", ReadAll(stream));
    EXPECT_EQ(0, stream.GetReplyHeaders().GetCount());
}

TEST(MHTTPStream, FollowsRedirections) {
    MTestServer other(RedirectBy({}));
    const std::string elsewhere = Text(other.GetURL("/there?x=y"));
    MTestServer server(RedirectBy({
        {"/a/c.zip?q=/1/2", "b.zip"},
        {"/c.zip", "b.zip"},
        {"/a/b/c.zip", "../d e/f.zip"},
        {"/a/directory", "directory/"},
        {"/a/d/e", "/f"},
        {"/away", elsewhere},
    }));
    const struct {
        const char* path;
        const char* reached;
    } cases[] = {
        {"/a/c.zip?q=/1/2", "/a/b.zip"},   {"/c.zip", "/b.zip"}, {"/a/b/c.zip", "/a/d%20e/f.zip"},
        {"/a/directory", "/a/directory/"}, {"/a/d/e", "/a/d/f"}, {"/away", "/there?x=y"},
    };
    for (const auto& [path, reached] : cases) {
        MHTTPStream stream;
        stream.Get(server.GetURL(path));
        EXPECT_TRUE(stream.Send(1)) << path;
        EXPECT_EQ(reached, ReadAll(stream)) << path;
    }
    EXPECT_EQ(1, other.GetRequestCount());
}

TEST(MHTTPStream, RepeatsAFormForARedirection) {
    MTestServer server(RedirectBy({{"/old?x", "new"}}));
    MHTTPFieldList form;
    form.Add({"a", "b"});
    MHTTPStream stream;
    stream.Post("127.0.0.1", "/old?x", form, server.GetPort());
    EXPECT_TRUE(stream.Send(1));
    const std::vector<std::string> requests = server.GetRequests();
    ASSERT_EQ(2U, requests.size());
    EXPECT_EQ("/new", MTestServer::GetPath(requests[1]));
    EXPECT_EQ(requests[0].substr(requests[0].find('\n')), requests[1].substr(requests[1].find('\n')));
}

TEST(MHTTPStream, StopsAtTheEndOfTheBudgetForRedirections) {
    MTestServer server([](const std::string& request) -> MTestReply {
        if (MTestServer::GetPath(request) == "/nowhere") return "HTTP/1.0 304 Not Modified\n\n";
        return Redirection("again");
    });
    MHTTPStream stream;
    for (const int32_t budget : {-1, 0, 1, 10}) {
        const int32_t before = server.GetRequestCount();
        stream.Get(server.GetURL("/a"));
        EXPECT_FALSE(stream.Send(budget));
        EXPECT_EQ(302, stream.GetStatus());
        EXPECT_EQ(std::max(budget, 0) + 1, server.GetRequestCount() - before);
    }
    stream.Get(server.GetURL("/nowhere"));
    EXPECT_EQ("201: Requested HTTP header not found.", FailureOf([&] { (void)stream.Send(1); }));
    stream.Get(server.GetURL("/nowhere"));
    EXPECT_FALSE(stream.Send(0));
}

TEST(MHTTPStream, ReadsBodiesHoweverTheyCome) {
    const std::string large = MakeBytes(5000000);
    const std::string small = MakeBytes(3000);
    MTestServer server([&](const std::string& request) {
        MTestReply reply = MTestBody(MTestServer::GetPath(request) == "/large" ? large : small);
        if (MTestServer::GetPath(request) == "/bytes") reply.pieceSize = 1;
        return reply;
    });
    const struct {
        const char* path;
        int32_t pieceSize;
    } cases[] = {{"/large", 1 << 20}, {"/large", 1024}, {"/bytes", 7}, {"/bytes", 1 << 20}, {"/small", 1}};
    for (const auto& [path, pieceSize] : cases) {
        const std::string& expected = MString(path) == "/large" ? large : small;
        MHTTPStream stream;
        stream.Get(server.GetURL(path));
        ASSERT_TRUE(stream.Send(0));
        EXPECT_EQ(static_cast<int64_t>(expected.size()), stream.GetSize());
        EXPECT_TRUE(ReadAll(stream, pieceSize) == expected) << path << " by " << pieceSize;
        EXPECT_TRUE(stream.IsClosed());
        EXPECT_EQ(0, stream.Read(&stream, 1)) << "the end stays the end";
    }
}

TEST(MHTTPStream, GivesWhatCameOfABodyThatIsCutShort) {
    const std::string body = MakeBytes(2000);
    MTestServer server([&](const std::string&) {
        MTestReply reply = MTestBody(body);
        reply.bytes.resize(reply.bytes.size() - 500);
        return reply;
    });
    MHTTPStream stream;
    stream.Get(server.GetURL("/"));
    ASSERT_TRUE(stream.Send(0));
    EXPECT_EQ(2000, stream.GetSize());
    EXPECT_TRUE(ReadAll(stream) == body.substr(0, 1500));
    EXPECT_TRUE(stream.IsClosed());
}

TEST(MHTTPStream, TellsThatTheServerHangsUp) {
    MTestServer server([](const std::string& request) -> MTestReply {
        const std::string path = MTestServer::GetPath(request);
        MTestReply reply = path == "/head" ? "HTTP/1.0 200 OK\nServer: s\n" : "";
        reply.isReset = path == "/reset";
        return reply;
    });
    MHTTPStream stream;
    stream.Get(server.GetURL("/nothing"));
    EXPECT_EQ("201: Invalid HTTP reply header.", FailureOf([&] { (void)stream.Send(0); }));
    EXPECT_EQ(-1, stream.GetStatus());
    stream.Get(server.GetURL("/head"));
    EXPECT_EQ("201: MHTTPStream reading HTTP reply header.", FailureOf([&] { (void)stream.Send(0); }));
    stream.Get(server.GetURL("/reset"));
    EXPECT_EQ("201: Invalid HTTP reply header.", FailureOf([&] { (void)stream.Send(0); }));
    EXPECT_TRUE(stream.IsClosed());
}

TEST(MHTTPStream, TellsThatThereIsNoServer) {
    const uint16_t port = MTestServer([](const std::string&) { return ""; }).GetPort();
    MPlatform::StartSubsystems();
    MHTTPStream stream;
    EXPECT_EQ(Text(MFormat("200: Could not connect to a TCP server (host 127.0.0.1, port {0}, code -1).",
                           int32_t{port})),
              FailureOf([&] { stream.Get("localhost", "/", nullptr, port); }));
    EXPECT_EQ("200: Could not resolve network name \"\".", FailureOf([&] { stream.Get("http://:80/"); }));
    EXPECT_FALSE(stream.IsOpen());
    MPlatform::StopSubsystems();
}

TEST(MHTTPStream, NeedsARequest) {
    MHTTPStream stream;
    EXPECT_FALSE(stream.IsOpen());
    EXPECT_EQ("200: Could not write to socket stream.", FailureOf([&] { (void)stream.Send(0); }));
    EXPECT_EQ("200: The network socket stream has not been initialized.",
              FailureOf([&] { (void)stream.ReadInt8(); }));
}
