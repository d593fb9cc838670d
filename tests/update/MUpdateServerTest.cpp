#include "update/MUpdateServer.h"

#include "foundation/MProductConstants.h"
#include "foundation/MStringFormatter.h"
#include "foundation/MXMLItem.h"
#include "streams/MMemoryStream.h"
#include "tests/support/MStreamBytes.h"
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

TEST(MUpdateServerTest, FetchesFilesAndTellsRefusalFromSilence) {
    std::string reply;
    std::string request;
    MTestServer http([&](const std::string& text) {
        request = text;
        return MTestReply(reply);
    });
    const MString address = MFormat("127.0.0.1:{0}/sub", int32_t{http.GetPort()});
    MXMLItem state;
    const MUpdateServer server(SetState(state, "updateaddress", address));

    reply = "HTTP/1.0 200 OK\r\nContent-Length: 5\r\n\r\nhello";
    LastProgress bar;
    MMemoryStream body;
    server.FetchFile("op=getupdate&updatename=a", body, &bar);
    EXPECT_EQ(MBytesOf(body), "hello");
    EXPECT_EQ(bar.value / bar.maximum, 1);
    EXPECT_TRUE(request.starts_with("GET /sub/?op=getupdate&updatename=a HTTP/1.0\n")) << request;

    const std::string refused = "0: Could not download a file from the update server.";
    const std::string silent =
        "0: Could not connect to the update server. The computer probably does not have internet access. Please "
        "visit " +
        std::string(MProductWebAddress) + " for potential updates.";
    const std::pair<const char*, std::string> failures[] = {
        {"HTTP/1.0 404 Not Found\n\n", refused},
        {"HTTP/1.0 200 OK\nContent-Length: 6\n\nhello", refused},
        {"", silent},
        {"no-reply\n\n", silent},
        {"HTTP/1.0 200 OK\n\nhello world", "0: The server has sent more than 10 bytes."},
    };
    for (const auto& [text, failure] : failures) {
        reply = text;
        MMemoryStream lost;
        EXPECT_EQ(FailureOf([&] { server.FetchFile("op=getindex", lost, nullptr, 10); }), failure);
        MUpdateOffers offers;
        if (failure != silent && failure != refused) continue;
        EXPECT_EQ(FailureOf([&] { offers.Fetch(server, state); }),
                  "0: Could not connect the server. Please try again later.");
    }
    reply = "HTTP/1.0 200 OK\n\n<a><update name=\"n\" time=\"2027-01-01 00:00:00\"/></a>";
    MUpdateOffers offers;
    offers.Fetch(server, state);
    EXPECT_EQ(offers.GetUpdates().GetCount(), 1);
}
