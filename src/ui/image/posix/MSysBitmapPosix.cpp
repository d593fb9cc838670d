#include "ui/image/MSysBitmap.h"

#include <sys/ipc.h>
#include <sys/shm.h>

// A segment that is marked for removal can still be attached while somebody holds it, and goes with its last
// holder, however that ends.
bool MSysBitmap::CreateShared() {
    const size_t size = sizeof(MColor) * static_cast<size_t>(width) * static_cast<size_t>(height);
    const int segment = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
    if (segment < 0) return false;
    void* const memory = shmat(segment, nullptr, 0);
    shmctl(segment, IPC_RMID, nullptr);
    if (memory == reinterpret_cast<void*>(-1)) return false;
    handle = segment;
    pixels = static_cast<MColor*>(memory);
    return true;
}

MSysBitmap::~MSysBitmap() {
    if (pixels) shmdt(pixels);
}
