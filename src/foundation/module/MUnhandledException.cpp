#include "foundation/module/MUnhandledException.h"

#include "foundation/base/MException.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

void MEndByUnhandledException() {
    std::fputs("The program ends by a failure that nobody has handled.\n", stderr);
    try {
        if (std::current_exception()) throw;
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", exception.GetMessage().ToUTF8().Get());
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "%s\n", exception.what());
    } catch (...) {}
    std::abort();
}

// The C++ library's own handler would bring 50 kB that read the names of types, wherever an exception may be thrown.
namespace __gnu_cxx {
void __verbose_terminate_handler() {  // NOLINT(bugprone-reserved-identifier): the library's name
    MEndByUnhandledException();
}
}  // namespace __gnu_cxx
