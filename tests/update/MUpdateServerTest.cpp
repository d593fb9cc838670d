#include "update/MUpdateServer.h"

#include "foundation/MProductConstants.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestServer.h"
#include "tests/support/MTestText.h"
#include "update/MUpdateOffers.h"

#include <gtest/gtest.h>

namespace {

MXMLItem& SetState(MXMLItem& state, const char* attribute, const MString& value) {
    state.SetAttribute("time", "2026-03-01 12:00:00");
    state.SetAttribute(attribute, value);
    return state;
}

class LastProgress final : public MProgressView {
public:
    void SetProgress(double newMaximum, double newValue) override {
        maximum = newMaximum;
        value = newValue;
    }
    double maximum = 0;
    double value = 0;
};

}  // namespace

TEST(MUpdateServerTest, TheAddressComesFromTheState) {
    const std::tuple<const char*, const char*, int32_t, const char*> cases[] = {
        {"example", "example", 80, "/?"},
        {"example/", "example", 80, "/?"},
        {"example:8080/updates", "example", 8080, "/updates/?"},
        {"example/updates/", "example", 80, "/updates/?"},
    };
    for (const auto& [address, host, port, path] : cases) {
        MXMLItem state;
        const MUpdateServer server(SetState(state, "updateaddress", address));
        EXPECT_EQ(Text(server.GetHost()), host);
        EXPECT_EQ(server.GetPort(), port);
        EXPECT_EQ(Text(server.GetBasePath()), path);
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

class FetchTest : public testing::Test {
protected:
    ~FetchTest() noexcept override = default;

    [[nodiscard]] MXMLItem& StateFor(MXMLItem& state, size_t reply) const {
        return SetState(state, "updateaddress",
                        MFormat("127.0.0.1:{0}/{1}", int32_t{http.GetPort()}, static_cast<int32_t>(reply)));
    }

    MTestServer http{[](const std::string& request) {
        return MTestReply(Replies[std::stoul(MTestServer::GetPath(request).substr(1))].first);
    }};
};

}  // namespace

TEST_F(FetchTest, FetchesAFileAndShowsItsBytes) {
    MXMLItem state;
    const MUpdateServer server(StateFor(state, 0));
    LastProgress bar;
    MMemoryStream body;
    server.FetchFile("op=getupdate&updatename=a", body, &bar);
    EXPECT_EQ(MBytesOf(body), "hello");
    EXPECT_EQ(bar.value / bar.maximum, 1);
    const std::string request = http.GetRequests().back();
    EXPECT_TRUE(request.starts_with("GET /0/?op=getupdate&updatename=a HTTP/1.0\n")) << request;
}

TEST_F(FetchTest, TellsRefusalFromSilence) {
    for (size_t reply = 0; reply < std::size(Replies); ++reply) {
        MXMLItem state;
        const MUpdateServer server(StateFor(state, reply));
        MMemoryStream body;
        const std::string& failure = Replies[reply].second;
        EXPECT_EQ(FailureOf([&] { server.FetchFile("op=getindex", body, nullptr, 10); }), failure);
        if (failure != Refused && failure != Silent) continue;
        MUpdateOffers offers;
        EXPECT_EQ(FailureOf([&] { offers.Fetch(server, state); }),
                  "0: Could not connect the server. Please try again later.");
    }
}

TEST_F(FetchTest, TheListOfAServerBecomesOffers) {
    MXMLItem state;
    const MUpdateServer server(StateFor(state, std::size(Replies) - 1));
    MUpdateOffers offers;
    offers.Fetch(server, state);
    EXPECT_EQ(offers.GetUpdates().GetCount(), 1);
}
