#include "streams/network/MHTTPStream.h"

#include "foundation/module/MPlatform.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestListener.h"
#include "tests/support/MTestServer.h"
#include "tests/support/MTestText.h"

#include <csignal>
#include <pthread.h>

// Without SA_RESTART a signal makes the calls that wait fail with EINTR.
TEST(MSocketStreamPosix, GoesOnWaitingAfterASignal) {
    struct sigaction before;
    struct sigaction action {};
    static std::atomic<int> signalCount;
    signalCount = 0;
    action.sa_handler = [](int) { ++signalCount; };
    sigaction(SIGUSR1, &action, &before);

    const pthread_t client = pthread_self();
    MTestServer server([client](const std::string&) {
        for (int i = 0; i < 10; ++i) {
            pthread_kill(client, SIGUSR1);
            MPlatform::Sleep(5);
        }
        return MTestBody("body");
    });
    MHTTPStream stream;
    stream.Get(server.GetURL("/"));
    EXPECT_TRUE(stream.Send(0));
    EXPECT_EQ("body", MReadAll(stream));
    EXPECT_EQ(10, signalCount);
    sigaction(SIGUSR1, &before, nullptr);
}

// Wine takes both for an end.
TEST(MSocketStreamPosix, TellsABrokenConnectionFromAnEnd) {
    uint16_t port = 0;
    const MSystemSocket listener = MListenOnLoopback(port);
    for (const bool isBroken : {false, true}) {
        MTCPClient client;
        client.Connect(port, "127.0.0.1");
        const MSystemSocket peer = MAcceptConnection(listener);
        isBroken ? MResetConnection(peer) : MCloseSocket(peer);
        char byte;
        EXPECT_EQ(isBroken ? -1 : 0, client.Read(&byte, 1));
        EXPECT_TRUE(client.IsClosed());
    }
    MCloseSocket(listener);
}
