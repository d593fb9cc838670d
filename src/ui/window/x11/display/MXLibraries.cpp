#include "ui/window/x11/display/MXLibraries.h"

#include "foundation/base/MRaise.h"

#include <array>
#include <dlfcn.h>
#include <iterator>
#include <mutex>

// Each function is a jump to an address of the table MXAddresses, which loading fills. The names stay in this
// program, so the libraries go on finding each other's functions and not these.
asm(".pushsection .text\n"
#define LIBRARY(name, file)
#define FUNCTION(name)                                                                                    \
    ".globl " #name "\n.hidden " #name "\n.type " #name ", @function\n" #name ": jmp *MXAddressOf_" #name \
    "(%rip)\n.size " #name ", . - " #name "\n"
#include "ui/window/x11/display/MXFunctions.inc"
#undef FUNCTION
    ".popsection\n.pushsection .bss\n.balign 8\n.globl MXAddresses\n.hidden MXAddresses\nMXAddresses:\n"
#define FUNCTION(name) "MXAddressOf_" #name ": .skip 8\n"
#include "ui/window/x11/display/MXFunctions.inc"
#undef FUNCTION
#undef LIBRARY
    ".popsection\n");

extern "C" void* MXAddresses[];

namespace {

/// A line of the list: the beginning of a library, or a function of the one before.
struct Entry {
    const char* file;
    const char* function;
};

constexpr Entry Entries[] = {
#define LIBRARY(name, file) {file, nullptr},
#define FUNCTION(name) {nullptr, #name},
#include "ui/window/x11/display/MXFunctions.inc"
#undef FUNCTION
#undef LIBRARY
};

struct Library {
    const char* file = nullptr;
    bool isLoaded = false;
};

/// What the table of addresses holds.
class LoadedLibraries {
public:
    LoadedLibraries() {
        void** address = MXAddresses;
        void* handle = nullptr;
        size_t count = 0;
        for (const Entry& entry : Entries) {
            if (entry.file) {
                handle = dlopen(entry.file, RTLD_NOW | RTLD_LOCAL);
                libraries[count++] = {entry.file, handle != nullptr};
                continue;
            }
            *address = handle ? dlsym(handle, entry.function) : nullptr;
            if (!*address++) libraries[count - 1].isLoaded = false;
        }
    }
    [[nodiscard]] const Library& operator[](MXLibrary library) const {
        return libraries[static_cast<size_t>(library)];
    }

private:
    std::array<Library, MXLibraryCount> libraries;
};

/// They stay for as long as the process lives, as linked ones do.
const LoadedLibraries& GetLibraries() {
    static const LoadedLibraries libraries;
    return libraries;
}

}  // namespace

void MLoadXLibraries() {
    for (const MXLibrary needed :
         {MXLibrary::Core, MXLibrary::Xkb, MXLibrary::Keyboard, MXLibrary::KeyboardX11})
        if (!GetLibraries()[needed].isLoaded)
            MRaise(MExceptionGeneral,
                   "{0} could not be loaded. Please install it, or run this program without windows.",
                   MString(GetLibraries()[needed].file));
}

bool MHasXLibrary(MXLibrary library) {
    return GetLibraries()[library].isLoaded;
}
