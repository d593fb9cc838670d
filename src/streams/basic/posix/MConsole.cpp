#include "streams/basic/MConsole.h"

#include "foundation/text/MUnicode.h"

#include <unistd.h>

bool MLibraryInternals::WritePlainConsole(std::FILE* file, const MString& text) {
    const std::string encoded = MEncodeUTF8Exact(text);
    return std::fwrite(encoded.data(), 1, encoded.size(), file) == encoded.size();
}

bool MIsTerminal(std::FILE* file) {
    return isatty(fileno(file)) != 0;
}
