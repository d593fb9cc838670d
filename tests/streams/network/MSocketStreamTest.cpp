#include "streams/network/MTCPClient.h"

#include "foundation/module/MPlatform.h"
#include "tests/support/MTestListener.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace {

/// A client, and the other side of its connection.
class MSocketStreamTest : public testing::Test {
protected:
    void SetUp() override {
        MPlatform::StartSubsystems();
        listener = MListenOnLoopback(port);
        client.Connect(port, "127.0.0.1");
        peer = MAcceptConnection(listener);
    }
    void TearDown() override {
        client.Close();
        if (peer != MNoSocket) MCloseSocket(peer);
        MCloseSocket(listener);
        MPlatform::StopSubsystems();
    }

    void Send(const std::string& bytes) const {
        ASSERT_EQ(static_cast<int32_t>(bytes.size()),
                  MSendToSocket(peer, bytes.data(), static_cast<int32_t>(bytes.size())));
    }
    std::string Read(int32_t size) {
        std::string bytes(static_cast<size_t>(size), 0);
        bytes.resize(static_cast<size_t>(std::max(client.Read(bytes.data(), size), 0)));
        return bytes;
    }

    uint16_t port = 0;
    MSystemSocket listener = MNoSocket;
    MSystemSocket peer = MNoSocket;
    // Behind a pointer, for the destructors of streams may raise and those of tests may not.
    const std::unique_ptr<MTCPClient> owner = std::make_unique<MTCPClient>();
    MTCPClient& client = *owner;
};

}  // namespace

TEST_F(MSocketStreamTest, KnowsBothEnds) {
    EXPECT_TRUE(client.IsResolved());
    EXPECT_FALSE(client.GetName().IsEmpty());
    EXPECT_EQ("127.0.0.1", Text(client.GetRemote().GetName()));
    EXPECT_EQ(port, client.GetRemote().GetPort());

    MNetEntity entity;
    EXPECT_FALSE(entity.IsResolved());
    for (const auto& [name, address] : {std::pair("localhost", "127.0.0.1"), {"1.20.255.0", "1.20.255.0"}}) {
        entity.Resolve(name);
        EXPECT_EQ(address, Text(entity.FormatAddress()));
    }
    EXPECT_THROW(entity.Resolve(""), MException);
    EXPECT_FALSE(entity.IsResolved());
}

TEST_F(MSocketStreamTest, GivesAllThatCameAndThenTheEnd) {
    const std::string large(100000, 'x');
    Send("line\r\nab" + large + "end");
    MString line;
    EXPECT_TRUE(client.LoadLine(line));
    EXPECT_EQ("line", Text(line));
    EXPECT_EQ("ab", Read(2));
    EXPECT_TRUE(Read(static_cast<int32_t>(large.size())) == large);
    MCloseSocket(std::exchange(peer, MNoSocket));
    EXPECT_FALSE(client.IsClosed());
    EXPECT_EQ("end", Read(100));
    EXPECT_TRUE(client.IsClosed());
    EXPECT_EQ("", Read(100));
}

TEST_F(MSocketStreamTest, NoticesABrokenConnection) {
    Send("abc");
    EXPECT_EQ("abc", Read(3));
    MResetConnection(std::exchange(peer, MNoSocket));
    char byte;
    EXPECT_LE(client.Read(&byte, 1), 0);
    EXPECT_TRUE(client.IsClosed());
    EXPECT_EQ("200: All data were not sent before target disconnected.",
              FailureOf([&] { client.WriteInt8(1); }));
}

TEST_F(MSocketStreamTest, StartsOverWithANewConnection) {
    Send("of the first connection");
    EXPECT_EQ("of", Read(2));
    client.Connect(port, "127.0.0.1");
    MCloseSocket(peer);
    peer = MAcceptConnection(listener);
    Send("second");
    EXPECT_EQ("second", Read(6));
    client.WriteInt32(0x64636261);
    char bytes[4];
    EXPECT_EQ(4, MReceiveFromSocket(peer, bytes, sizeof(bytes)));

    client.Close();
    EXPECT_EQ(MSocketEnd, MReceiveFromSocket(peer, bytes, sizeof(bytes)));
    EXPECT_EQ("200: The network socket stream has not been initialized.", FailureOf([&] { Read(1); }));
    EXPECT_EQ("200: Could not write to socket stream.", FailureOf([&] { client.WriteInt8(1); }));
}
