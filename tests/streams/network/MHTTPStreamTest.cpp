#include "streams/network/MHTTPStream.h"

#include "foundation/base/MRaise.h"
#include "foundation/module/MPlatform.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestServer.h"
#include "tests/support/MTestText.h"

TEST(MHTTPStream, SplitsAddresses) {
    const std::pair<const char*, const char*> cases[] = {
        {"http://host/dir/file.zip?a=b", "host 80 /dir/file.zip?a=b"},
        {"host", "host 80 /"},
        {"any://host:8080", "host 8080 /"},
        {"host:0/a", "host 80 /a"},
        {"host:-5", "host 80 /"},
        {"host:65535", "host 65535 /"},
        {"host:65536", "host 80 /"},
        {"host:81:82/a:b", "host 81 /a:b"},
        {"/path", " 80 /path"},
        {"", " 80 /"},
    };
    for (const auto& [url, expected] : cases) {
        MString host, path;
        uint16_t port = 1;
        MHTTPStream::ParseUrl(url, host, path, port);
        EXPECT_EQ(Text(MFormat("{0} {1} {2}", host, int32_t{port}, path)), expected) << url;
    }
}

TEST(MHTTPStream, SendsRequestsByteForByte) {
    MTestServer server([](const std::string&) { return MTestBody(""); });
    const uint16_t port = server.GetPort();
    const std::string tail = "Host: 127.0.0.1:" + std::to_string(port) + "\nConnection: Close\n";
    const std::string postHead = "Content-Type: application/x-www-form-urlencoded\nContent-Length: ";
    MHTTPFieldList fields, form;
    fields.Add({"a", "1"});
    fields.Add({"b c", "x y/\xE9%"});
    form.Add({"name", "\xFE x&y=z"});
    form.Add({"text", Wide(u"\u0159\n")});
    const struct {
        std::function<void(MHTTPStream&)> prepare;
        std::string request;
    } cases[] = {
        {[&](MHTTPStream& stream) { stream.Get(server.GetURL("/a b%20\t.zip?c=d e&f")); },
         "GET /a%20b%20%09.zip?c=d%20e&f HTTP/1.0\n" + tail + "\n"},
        {[&](MHTTPStream& stream) { stream.Get("127.0.0.1", "/?p=q&r", nullptr, port); },
         "GET /?p=q&r HTTP/1.0\n" + tail + "\n"},
        {[&](MHTTPStream& stream) { stream.Get("127.0.0.1", "/path", &fields, port); },
         "GET /path?a=1&b c=x%20y%2F%E9%25 HTTP/1.0\n" + tail + "\n"},
        {[&](MHTTPStream& stream) {
             stream.AddRequestHeader("Range", "bytes=5-");
             stream.AddRequestHeader("Accept", "*/*");
             stream.Get(server.GetURL("/"));
         },
         "GET / HTTP/1.0\n" + tail + "Range: bytes=5-\nAccept: */*\n\n"},
        {[&](MHTTPStream& stream) { stream.Post("127.0.0.1", "/form?x", form, port); },
         "POST /form?x HTTP/1.0\n" + postHead + "23\n" + tail + "\nname=\xEF\xBF\xBE x&y=z&text=\xC5\x99\n"},
        {[&](MHTTPStream& stream) { stream.Post("127.0.0.1", "/", {}, port); },
         "POST / HTTP/1.0\n" + postHead + "0\n" + tail + "\n"},
    };
    for (const auto& [prepare, request] : cases) {
        MHTTPStream stream;
        prepare(stream);
        EXPECT_EQ(-1, stream.GetStatus());
        EXPECT_TRUE(stream.Send(0));
        EXPECT_EQ(request, server.GetRequests().back());
    }
}

TEST(MHTTPStream, TellsWhatTheServerAnswersToOneRequestAfterTheOther) {
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
    EXPECT_EQ("none", MReadAll(stream));
    stream.Get(server.GetURL("/empty"));
    EXPECT_TRUE(stream.Send(5));
    EXPECT_EQ(204, stream.GetStatus());
    EXPECT_EQ("", MReadAll(stream));
    EXPECT_EQ(0, stream.GetReplyHeaders().GetCount());
}

TEST(MHTTPStream, FollowsRedirectionsToTheEndOfTheBudget) {
    MTestServer other([](const std::string& request) { return MTestBody(MTestServer::GetPath(request)); });
    const std::pair<const char*, std::string> table[] = {
        {"/a/c.zip?q=/1/2", "b.zip"},
        {"/a/b/c.zip", "../d e/f.zip"},
        {"/a/directory", "directory/"},
        {"/a/d/e", "/f"},
        {"/away", Text(other.GetURL("/there?x=y"))},
        {"/again", "again"},
        {"/old?x", "new"},
    };
    MTestServer server([&](const std::string& request) -> MTestReply {
        const std::string path = MTestServer::GetPath(request);
        for (const auto& [from, to] : table)
            if (from == path) return "HTTP/1.0 302 Found\r\nLocation: " + to + "\r\n\r\nelsewhere";
        return MTestBody(path);
    });
    const std::pair<const char*, const char*> cases[] = {{"/a/c.zip?q=/1/2", "/a/b.zip"},
                                                         {"/a/b/c.zip", "/a/d%20e/f.zip"},
                                                         {"/a/directory", "/a/directory/"},
                                                         {"/a/d/e", "/a/d/f"},
                                                         {"/away", "/there?x=y"}};
    MHTTPStream stream;
    for (const auto& [path, reached] : cases) {
        stream.Get(server.GetURL(path));
        EXPECT_TRUE(stream.Send(1)) << path;
        EXPECT_EQ(reached, MReadAll(stream)) << path;
    }
    for (const int32_t budget : {-1, 0, 1, 10}) {
        const size_t before = server.GetRequests().size();
        stream.Get(server.GetURL("/again"));
        EXPECT_FALSE(stream.Send(budget));
        EXPECT_EQ(302, stream.GetStatus());
        EXPECT_EQ(static_cast<size_t>(std::max(budget, 0)) + 1, server.GetRequests().size() - before);
    }

    MHTTPFieldList form;
    form.Add({"a", "b"});
    stream.Post("127.0.0.1", "/old?x", form, server.GetPort());
    EXPECT_TRUE(stream.Send(1));
    std::vector<std::string> requests = server.GetRequests();
    const std::string repeated = requests.back();
    requests.pop_back();
    EXPECT_EQ("/new", MTestServer::GetPath(repeated));
    EXPECT_EQ(requests.back().substr(requests.back().find('\n')), repeated.substr(repeated.find('\n')));
}

TEST(MHTTPStream, BodiesOfEitherDirectionMayBeLargeAndComeInPieces) {
    const std::string large = MTestNoise(5000000);
    MTestServer server([&](const std::string& request) {
        const std::string path = MTestServer::GetPath(request);
        if (path == "/form") return MTestBody(std::to_string(request.size() - request.find("\n\n") - 2));
        MTestReply reply = MTestBody(path == "/large" ? large : large.substr(0, 3000));
        if (path == "/bytes") reply.pieceSize = 1;
        if (path == "/cut") reply.bytes.resize(reply.bytes.size() - 500);
        return reply;
    });
    const struct {
        const char* path;
        int32_t pieceSize;
        size_t promised, sent;
    } cases[] = {{"/large", 1 << 20, 5000000, 5000000},
                 {"/large", 1024, 5000000, 5000000},
                 {"/bytes", 7, 3000, 3000},
                 {"/bytes", 1 << 20, 3000, 3000},
                 {"/cut", 1, 3000, 2500}};
    const auto goOn = [](std::chrono::steady_clock::duration) { return true; };
    for (const auto& [path, pieceSize, promised, sent] : cases) {
        MHTTPStream stream;
        if (pieceSize < 2000) stream.SetWatcher(goOn);
        stream.Get(server.GetURL(path));
        ASSERT_TRUE(stream.Send(0));
        EXPECT_EQ(static_cast<int64_t>(promised), stream.GetSize());
        EXPECT_TRUE(MReadAll(stream, pieceSize) == large.substr(0, sent)) << path << " by " << pieceSize;
        EXPECT_TRUE(stream.IsClosed());
        EXPECT_EQ("", MReadAll(stream)) << "the end stays the end";
    }
    MHTTPFieldList form;
    form.Add({"text", Heap(std::string(3000000, 'x').c_str())});
    for (const MSocketStream::Watcher& watcher : {MSocketStream::Watcher(), MSocketStream::Watcher(goOn)}) {
        MHTTPStream stream;
        stream.SetWatcher(watcher);
        stream.Post("127.0.0.1", "/form", form, server.GetPort());
        EXPECT_TRUE(stream.Send(0));
        EXPECT_EQ("3000005", MReadAll(stream));
    }
}

TEST(MHTTPStream, TellsWhatKeepsAReplyAway) {
    MTestServer server([](const std::string& request) -> MTestReply {
        const std::string path = MTestServer::GetPath(request);
        if (path == "/nowhere") return "HTTP/1.0 304 Not Modified\n\n";
        MTestReply reply = path == "/head" ? "HTTP/1.0 200 OK\nServer: s\n" : "";
        reply.isReset = path == "/reset";
        return reply;
    });
    const std::pair<const char*, const char*> cases[] = {
        {"/nothing", "201: Invalid HTTP reply header."},
        {"/head", "201: MHTTPStream reading HTTP reply header."},
        {"/nowhere", "201: Requested HTTP header not found."},
        {"/reset", "201: Invalid HTTP reply header."},
    };
    MHTTPStream stream;
    EXPECT_EQ("200: Could not write to socket stream.", FailureOf([&] { (void)stream.Send(0); }));
    for (const auto& [path, failure] : cases) {
        stream.Get(server.GetURL(path));
        EXPECT_EQ(failure, FailureOf([&] { (void)stream.Send(1); })) << path;
    }
    EXPECT_TRUE(stream.IsClosed());

    const uint16_t port = MTestServer([](const std::string&) { return ""; }).GetPort();
    EXPECT_EQ(Text(MFormat("200: Could not connect to a TCP server (host 127.0.0.1, port {0}, code -1).",
                           int32_t{port})),
              FailureOf([&] { stream.Get("localhost", "/", nullptr, port); }));
    EXPECT_EQ("200: Could not resolve network name \"\".", FailureOf([&] { stream.Get("http://:80/"); }));
}
