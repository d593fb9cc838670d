#pragma once

#include "foundation/events/MSynchronizationObject.h"
#include "foundation/events/MThreadLocal.h"

/// A lock that many readers or one writer hold. Either may enter again in either mode: a reader that asks to
/// write waits until every other reader is gone or asks to write too, and such upgraders then go one by one.
/// New readers give way to a writer that waits.
class MERWLock final : public MSynchronizationObject {
public:
    static constexpr int32_t Read = 0;
    static constexpr int32_t Write = 1;

    MERWLock() = default;
    ~MERWLock() override = default;

protected:
    void OnWait(int32_t mode) override;
    [[nodiscard]] bool CanEnter(int32_t mode) override;
    void OnEnter(int32_t mode) override;
    void OnCancelWait(int32_t mode) override;
    [[nodiscard]] bool OnLeave(int32_t mode) override;

private:
    /// How often the calling thread is inside: a word of its own, reads in the low 16 bits, writes above.
    [[nodiscard]] int32_t ReadDepth() const;
    [[nodiscard]] int32_t WriteDepth() const;
    void ChangeDepth(int32_t mode, int32_t change);
    void ChangeWaiting(int32_t mode, int32_t change);

    MThreadLocal depths;
    int32_t readers = 0;
    int32_t writers = 0;
    int32_t waitingWriters = 0;
    int32_t readEntriesOfWaitingWriters = 0;
};
