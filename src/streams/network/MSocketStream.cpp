#include "streams/network/MSocketStream.h"

#include "foundation/base/MRaise.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int32_t BufferSize = 1 << 16;

}  // namespace

MSocketStream::~MSocketStream() {
    Close();
}

void MSocketStream::CreateSocket() {
    Close();
    if (!MFindTCPProtocol(protocol)) MRaise(MExceptionNetwork, "Could not retrieve TCP protocol info.");
    socket = MOpenStreamSocket(protocol);
    if (socket == MNoSocket) MRaise(MExceptionNetwork, "Could not create TCP socket.");
    ResolveLocalHost();
}

void MSocketStream::ConnectSocket() {
    bool isConnected = MBeginConnection(socket, remote.GetAddress(), remote.GetPort());
    if (isConnected) {
        Wait(MSocketDirection::Writing);
        isConnected = MEndConnection(socket);
    }
    if (!isConnected)
        MRaise(MExceptionNetwork, "Could not connect to a TCP server (host {0}, port {1}, code {2}).",
               remote.FormatAddress(), int32_t{remote.GetPort()}, -1);
    closed = false;
    if (!watcher) MMakeSocketBlocking(socket);
}

void MSocketStream::Close() noexcept {
    if (socket != MNoSocket) MCloseSocket(socket);
    socket = MNoSocket;
    closed = true;
    fillCount = readIndex = 0;
}

void MSocketStream::Write(const void* block, int32_t size) {
    if (socket == MNoSocket) MRaise(MExceptionNetwork, "Could not write to socket stream.");
    const auto* bytes = static_cast<const char*>(block);
    int32_t sent = 0;
    while (sent < size) {
        if (watcher) Wait(MSocketDirection::Writing);
        const int32_t count = MSendToSocket(socket, bytes + sent, size - sent);
        if (watcher && count == MSocketWouldBlock) continue;
        if (count < 0) closed = true;
        if (count < 0 && sent == 0)
            MRaise(MExceptionNetwork, "All data were not sent before target disconnected.");
        if (count <= 0) MRaise(MExceptionNetwork, "Not all data have been sent.");
        sent += count;
    }
}

int32_t MSocketStream::Read(void* block, int32_t size) {
    if (socket == MNoSocket) MRaise(MExceptionNetwork, "The network socket stream has not been initialized.");
    auto* bytes = static_cast<char*>(block);
    int32_t received = 0;
    while (received < size) {
        const int32_t count = Receive(bytes + received, size - received);
        if (count < 0) closed = true;
        if (count == MSocketError && received == 0) return -1;
        if (count <= 0) break;
        received += count;
    }
    return received;
}

void MSocketStream::Wait(MSocketDirection direction) {
    const auto start = std::chrono::steady_clock::now();
    while (!MWaitForSocket(socket, direction, WatchMilliseconds)) {
        if (!watcher || watcher(std::chrono::steady_clock::now() - start)) continue;
        Close();
        MRaise(MExceptionNetwork, "Nobody waits for the network any longer.");
    }
}

int32_t MSocketStream::ReceiveFromSocket(char* target, int32_t size) {
    if (!watcher) return MReceiveFromSocket(socket, target, size);
    int32_t count = MSocketWouldBlock;
    while (count == MSocketWouldBlock) {
        Wait(MSocketDirection::Reading);
        count = MReceiveFromSocket(socket, target, size);
    }
    return count;
}

int32_t MSocketStream::Receive(char* target, int32_t size) {
    if (readIndex < fillCount) return TakeFromBuffer(target, size);
    if (size >= BufferSize) return ReceiveFromSocket(target, size);
    const int32_t count = FillBuffer();
    return count > 0 ? TakeFromBuffer(target, size) : count;
}

int32_t MSocketStream::FillBuffer() {
    if (!buffer) buffer = std::make_unique_for_overwrite<char[]>(BufferSize);
    const int32_t count = ReceiveFromSocket(buffer.get(), BufferSize);
    readIndex = 0;
    fillCount = std::max(count, 0);
    return count;
}

int32_t MSocketStream::TakeFromBuffer(char* target, int32_t size) {
    const int32_t count = std::min(size, fillCount - readIndex);
    std::memcpy(target, buffer.get() + readIndex, static_cast<size_t>(count));
    readIndex += count;
    return count;
}
