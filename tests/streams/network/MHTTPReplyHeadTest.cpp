#include "streams/network/MHTTPReplyHead.h"

#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <limits>
#include <string>

namespace {

/// Status, text, length, and the fields in their order.
std::string Describe(const MHTTPReplyHead& head) {
    std::string text = std::to_string(head.GetStatus()) + " [" + Text(head.GetStatusText()) + "] " +
                       std::to_string(head.GetContentLength());
    for (const MHTTPField& field : head.GetFields())
        text += "; " + Text(field.name) + "=" + Text(field.value);
    return text;
}

/// `rest` becomes what was not read.
std::string Load(MHTTPReplyHead& head, const std::string& bytes, std::string& rest) {
    MMemoryStream stream = MStreamOf(bytes);
    MBreakingStream connection(&stream);
    std::string failure = FailureOf([&] { head.Load(connection); });
    rest = bytes.substr(static_cast<size_t>(stream.GetPosition()));
    return failure;
}

}  // namespace

TEST(MHTTPReplyHead, TellsWhatTheLinesSay) {
    const struct {
        const char* bytes;
        const char* head;
        const char* body;
    } cases[] = {
        {"HTTP/1.0 200 OK\r\n\r\nbody", "200 [OK] 0", "body"},
        {"HTTP/1.0 200\n\n", "200 [] 0", ""},
        {"x\t404  Not  here \n\n\n", "404 [Not  here] 0", "\n"},
        {"ICY 302Found\nlocation:\t http://a:8/b?c=d \n\n", "302 [Found] 0; location=http://a:8/b?c=d", ""},
        {"HTTP/1.1 200 OK\nServer: s\ncontent-LENGTH: 12 \nAge:\nContent-Length:13\n\nabc",
         "200 [OK] 13; Age=; content-LENGTH=12; Content-Length=13; Server=s", "abc"},
        {"HTTP/1.1 200 OK\nContent-Length: 9223372036854775807\n\n",
         "200 [OK] 9223372036854775807; Content-Length=9223372036854775807", ""},
        {"HTTP/1.0 200 OK\nB: 1\nset: x\nSet: y\nA: 3\n\n", "200 [OK] 0; A=3; B=1; set=x; Set=y", ""},
        {"HTTP/1.1 299 \xC5\x99\n: empty\nB \t: \xC5\x99\n\n", "299 [\xC5\x99] 0; =empty; B=\xC5\x99", ""},
    };
    for (const auto& [bytes, expected, body] : cases) {
        MHTTPReplyHead head;
        std::string rest;
        EXPECT_EQ("none", Load(head, bytes, rest)) << bytes;
        EXPECT_EQ(expected, Describe(head)) << bytes;
        EXPECT_EQ(body, rest) << bytes;
        const MString* const first = head.FindField("SET");
        EXPECT_EQ(std::string(bytes).find("set:") != std::string::npos ? "x" : "none",
                  first ? Text(*first) : "none");
    }
}

TEST(MHTTPReplyHead, RefusesWhatIsNoReply) {
    const std::string statusLine = "201: Invalid HTTP reply header line.";
    const std::string fieldLine = "201: MHTTPStream invalid HTTP reply header line.";
    const std::string cut = "201: MHTTPStream reading HTTP reply header.";
    const std::string ok = "HTTP/1.0 200 OK\n";
    const std::pair<std::string, std::string> cases[] = {
        {"", "201: Invalid HTTP reply header."},
        {"\n", statusLine},
        {"HTTP/1.0\n\n", statusLine},
        {"HTTP/1.0 20\n\n", statusLine},
        {"HTTP/1.0 -20 OK\n\n", statusLine},
        {"HTTP/1.0  200 OK\n\n", statusLine},
        {"HTTP/1.0 200 O\x1BK\n\n", statusLine},
        {"HTTP/1.0 200 OK", cut},
        {ok + "A: b\nC", fieldLine},
        {ok + "A: b\nC: d", cut},
        {ok + "no colon\n\n", fieldLine},
        {ok + "A: \x01\n\n", fieldLine},
        {ok + "A\x7F: b\n\n", fieldLine},
        {ok + "Content-Length: 9223372036854775808\n\n", fieldLine},
        {ok + "Content-Length: 1 2\n\n", fieldLine},
        {ok + "Content-Length:\n\n", fieldLine},
    };
    for (const auto& [bytes, failure] : cases) {
        MHTTPReplyHead head;
        std::string rest;
        EXPECT_EQ("none", Load(head, "HTTP/1.0 200 OK\nA: b\n\nrest", rest));
        EXPECT_EQ(failure, Load(head, bytes, rest)) << bytes;
        EXPECT_EQ("-1 [] 0", Describe(head)) << bytes;
    }
}

TEST(MHTTPReplyHead, ReadsNoMoreOfAnEndlessHeadThanItsLimit) {
    const std::string ok = "HTTP/1.0 200 OK\n";
    std::string lines = ok;
    while (lines.size() < 1 << 20) lines += "a:b\n";
    for (const std::string& bytes : {std::string(1 << 20, 'a'), ok + std::string(1 << 20, 'a'), lines}) {
        MHTTPReplyHead head;
        MMemoryStream stream = MStreamOf(bytes);
        EXPECT_EQ("201: HTTP reply header is longer than 65536 bytes.",
                  FailureOf([&] { head.Load(stream); }));
        EXPECT_EQ(MHTTPReplyHead::MaximumSize, stream.GetPosition());
    }
    MHTTPReplyHead head;
    std::string rest;
    EXPECT_EQ("none", Load(head, lines.substr(0, 60000) + "\n", rest));
    EXPECT_EQ((60000 - static_cast<int32_t>(ok.size())) / 4, head.GetFields().GetCount());
}
