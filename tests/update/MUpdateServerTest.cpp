#include "update/MUpdateServer.h"

#include "foundation/MProductConstants.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestServer.h"
#include "tests/support/MTestText.h"
#include "update/MUpdateOffers.h"

namespace {

MXMLItem& SetState(MXMLItem& state, const char* attribute, const MString& value) {
    state.SetAttribute("time", "2026-03-01 12:00:00");
    state.SetAttribute(attribute, value);
    return state;
}

class LastProgress final : public MProgressView {
public:
    void SetProgress(double maximum, double value) override { ratio = value / maximum; }
    double ratio = 0;
};

}  // namespace

TEST(MUpdateServerTest, TheAddressComesFromTheState) {
    const std::tuple<const char*, const char*, int32_t, const char*> cases[] = {
        {"example", "example", 80, "/?"},
        {"example:8080/updates", "example", 8080, "/updates/?"},
        {"example/updates/", "example", 80, "/updates/?"},
    };
    for (const auto& [address, host, port, path] : cases) {
        MXMLItem state;
        const MUpdateServer server(SetState(state, "updateaddress", address));
        EXPECT_EQ(std::tuple(Text(server.GetHost()), server.GetPort(), Text(server.GetBasePath())),
                  std::tuple(host, port, path));
    }
    MXMLItem state;
    const MUpdateServer server(SetState(state, "id", "reverb"));
    EXPECT_EQ(Text(server.GetHost()), MProductUpdateHost);
    EXPECT_EQ(Text(server.GetBasePath()), "/downloadupdate/?name=reverb&");
}

namespace {

const std::string Refused = "0: Could not download a file from the update server.";
const std::string Silent =
    "0: Could not connect to the update server. The computer probably does not have internet access. Please "
    "visit " +
    std::string(MProductWebAddress) + " for potential updates.";

/// What the server answers at the paths "/0/", "/1/" and so on, and how fetching at most 10 bytes of it fails.
const std::pair<std::string, std::string> Replies[] = {
    {"HTTP/1.0 200 OK\r\nContent-Length: 5\r\n\r\nhello", "none"},
    {"HTTP/1.0 404 Not Found\n\n", Refused},
    {"HTTP/1.0 200 OK\nContent-Length: 6\n\nhello", Refused},
    {"", Silent},
    {"no-reply\n\n", Silent},
    {"HTTP/1.0 200 OK\n\n<a><update name=\"n\" time=\"2027-01-01 00:00:00\"/></a>",
     "0: The server has sent more than 10 bytes."},
};

}  // namespace

TEST(MUpdateServerTest, FetchesFilesAndTellsRefusalFromSilence) {
    MTestServer http([](const std::string& request) {
        return MTestReply(Replies[std::stoul(MTestServer::GetPath(request).substr(1))].first);
    });
    for (int32_t i = 0; i < static_cast<int32_t>(std::size(Replies)); ++i) {
        const std::string& failure = Replies[i].second;
        MXMLItem state;
        const MUpdateServer server(
            SetState(state, "updateaddress", MFormat("127.0.0.1:{0}/{1}", int32_t{http.GetPort()}, i)));
        LastProgress bar;
        MMemoryStream body;
        EXPECT_EQ(FailureOf([&] { server.FetchFile("op=getupdate&updatename=a", body, &bar, 10); }), failure);
        const std::string request = http.GetRequests().back();
        EXPECT_NE(request.find("/?op=getupdate&updatename=a HTTP/1.0\n"), std::string::npos) << request;
        if (i == 0) {
            EXPECT_EQ(MBytesOf(body), "hello");
            EXPECT_EQ(bar.ratio, 1);
            continue;
        }
        const bool isList = i + 1 == static_cast<int32_t>(std::size(Replies));
        MUpdateOffers offers;
        EXPECT_EQ(FailureOf([&] { offers.Fetch(server, state); }),
                  isList ? "none" : "0: Could not connect the server. Please try again later.");
        EXPECT_EQ(offers.GetUpdates().GetCount(), isList ? 1 : 0);
    }
}
