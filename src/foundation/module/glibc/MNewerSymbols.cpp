// The compiler's static libraries were made for the machine's C library. What they ask of it and an older one
// lacks stands here, for builds that are linked with the older one; hidden, so that no other library finds
// it.

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <link.h>
#include <span>
#include <sys/random.h>

// As <dlfcn.h> has it since glibc 2.35: what the unwinder is told of the object that holds an address.
struct dl_find_object {
    unsigned long long flags;
    void* begin;
    void* end;
    link_map* map;
    void* frame_table;
    unsigned long long reserved[7];
};

extern "C" {
// NOLINTNEXTLINE(bugprone-reserved-identifier)
[[gnu::visibility("hidden")]] extern char __libc_single_threaded;
[[gnu::visibility("hidden")]] uint32_t arc4random() noexcept;
[[gnu::visibility("hidden")]] int _dl_find_object(void* address, dl_find_object* found) noexcept;
}

/// Since glibc 2.32. Not 0 would allow to count references without locks.
char __libc_single_threaded = 0;

/// Since glibc 2.36, for std::random_device.
uint32_t arc4random() noexcept {
    uint32_t number;
    ssize_t length;
    do {
        length = getrandom(&number, sizeof(number), 0);
    } while (length < 0 && errno == EINTR);
    if (length != sizeof(number)) std::abort();
    return number;
}

namespace {

struct FrameTableSearch {
    uintptr_t address;
    dl_find_object* found;
};

/// Called for one object after the other, beginning with the program itself; 1 ends the search.
int FindFrameTable(dl_phdr_info* object, size_t, void* argument) {
    const auto& search = *static_cast<const FrameTableSearch*>(argument);
    const auto place = [object](uintptr_t offset) {
        return reinterpret_cast<void*>(object->dlpi_addr + offset);
    };
    dl_find_object found = {};
    for (const auto& segment : std::span(object->dlpi_phdr, object->dlpi_phnum)) {
        const uintptr_t offset = search.address - object->dlpi_addr - segment.p_vaddr;
        if (segment.p_type == PT_LOAD && offset < segment.p_memsz) {
            found.begin = place(segment.p_vaddr);
            found.end = place(segment.p_vaddr + segment.p_memsz);
        } else if (segment.p_type == PT_GNU_EH_FRAME) {
            found.frame_table = place(segment.p_vaddr);
        }
    }
    if (!found.begin || !found.frame_table) return 0;
    *search.found = found;
    return 1;
}

}  // namespace

/// Since glibc 2.35: 0 if the address lies in an object that has a table of frames, without which no
/// exception is caught. The list of objects is locked meanwhile; for an exception of ours the first entry
/// ends the search.
int _dl_find_object(void* address, dl_find_object* found) noexcept {
    FrameTableSearch search = {reinterpret_cast<uintptr_t>(address), found};
    return dl_iterate_phdr(FindFrameTable, &search) == 1 ? 0 : -1;
}
