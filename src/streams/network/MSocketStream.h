#pragma once

#include "streams/basic/MStream.h"
#include "streams/network/MNetEntity.h"
#include "streams/network/MSystemSocket.h"

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

/// A connection as a stream. The entity that it is itself is the local end. All calls block for as long as
/// the network takes, unless somebody watches them. What a connection cannot do, such as seeking, raises as
/// in `MStream`.
///
/// The library of the system must have been started, see `MPlatform::StartSubsystems`.
class MSocketStream : public MStream, public MNetEntity {
public:
    MSocketStream() = default;
    MSocketStream(const MSocketStream&) = delete;
    MSocketStream& operator=(const MSocketStream&) = delete;
    /// Closes.
    ~MSocketStream() override;

    /// Asked on the thread of the call again and again while a call waits for the network,
    /// `WatchMilliseconds` apart or less: how long nothing has moved, and whether to go on waiting.
    using Watcher = std::function<bool(std::chrono::steady_clock::duration quiet)>;
    static constexpr int32_t WatchMilliseconds = 100;
    /// Makes `ConnectSocket`, `Write` and `Read` close the connection and raise "Nobody waits for the network
    /// any longer." (0x200) when the watcher says no. An empty one lets them wait, which is how a stream
    /// begins. Counts from the next connection on; the system's resolver of names is not watched.
    void SetWatcher(Watcher newWatcher) { watcher = std::move(newWatcher); }

    /// Makes a new TCP socket in place of the one of before, and resolves the local end. Raises "Could not
    /// retrieve TCP protocol info.", "Could not create TCP socket." (0x200) and what
    /// `MNetEntity::ResolveLocalHost` raises.
    void CreateSocket();
    /// Connects the socket with the remote end, and puts it into blocking mode unless it is watched. Raises
    /// "Could not connect to a TCP server (host {0}, port {1}, code {2})." (0x200).
    void ConnectSocket();
    /// Does nothing without a socket.
    void Close() noexcept;

    [[nodiscard]] MNetEntity& GetRemote() { return remote; }
    /// True unless there is a connection on which neither sending nor receiving has met its end.
    [[nodiscard]] bool IsClosed() const { return closed; }
    bool IsOpen() override { return !closed; }

    /// Raises "Could not write to socket stream.", "All data were not sent before target disconnected." if
    /// nothing went out, and "Not all data have been sent." (0x200).
    void Write(const void* block, int32_t size) override;
    /// Waits until all bytes have come, or no more come. If none came gives 0 when the other side has ended
    /// its sending and -1 when the connection broke; both also close. Raises "The network socket stream has
    /// not been initialized." (0x200).
    int32_t Read(void* block, int32_t size) override;

private:
    /// One call of the system, large enough for small reads to share it. Gives the bytes that then wait, or
    /// what `MReceiveFromSocket` gives.
    int32_t FillBuffer();
    /// Takes at most `size` of the bytes that wait in the buffer.
    int32_t TakeFromBuffer(char* target, int32_t size);
    int32_t Receive(char* target, int32_t size);
    /// Until the socket is ready, or the watcher has enough.
    void Wait(MSocketDirection direction);
    /// One call of the system, in which a watched stream does not wait.
    int32_t ReceiveFromSocket(char* target, int32_t size);

    MSystemSocket socket = MNoSocket;
    int32_t protocol = 0;
    MNetEntity remote;
    bool closed = true;
    Watcher watcher;
    std::unique_ptr<char[]> buffer;  ///< made by the first read that needs it
    int32_t fillCount = 0;
    int32_t readIndex = 0;
};
