#include "foundation/events/MERWLock.h"

namespace {

constexpr int32_t WriteShift = 16;
constexpr uintptr_t DepthMask = 0xFFFF;

}  // namespace

int32_t MERWLock::ReadDepth() const {
    return static_cast<int32_t>(reinterpret_cast<uintptr_t>(depths.Get()) & DepthMask);
}

int32_t MERWLock::WriteDepth() const {
    return static_cast<int32_t>(reinterpret_cast<uintptr_t>(depths.Get()) >> WriteShift & DepthMask);
}

void MERWLock::ChangeDepth(int32_t mode, int32_t change) {
    const int32_t reads = ReadDepth() + (mode == Read ? change : 0);
    const int32_t writes = WriteDepth() + (mode == Write ? change : 0);
    (mode == Write ? writers : readers) += change;
    depths.Set(reinterpret_cast<void*>(uintptr_t(reads) | uintptr_t(writes) << WriteShift));
}

void MERWLock::ChangeWaiting(int32_t mode, int32_t change) {
    if (mode != Write) return;
    waitingWriters += change;
    readEntriesOfWaitingWriters += change * ReadDepth();
}

void MERWLock::OnWait(int32_t mode) {
    ChangeWaiting(mode, 1);
}

bool MERWLock::CanEnter(int32_t mode) {
    if (WriteDepth() > 0) return true;
    if (mode == Write) return writers == 0 && readers == readEntriesOfWaitingWriters;
    return ReadDepth() > 0 || (writers == 0 && waitingWriters == 0);
}

void MERWLock::OnEnter(int32_t mode) {
    ChangeDepth(mode, 1);
}

void MERWLock::OnCancelWait(int32_t mode) {
    ChangeWaiting(mode, -1);
}

bool MERWLock::OnLeave(int32_t mode) {
    ChangeDepth(mode, -1);
    return readers == 0 && writers == 0;
}
