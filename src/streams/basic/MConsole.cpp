#include "streams/basic/MConsole.h"

#include "foundation/text/MVisibleText.h"

bool MWriteConsoleText(std::FILE* file, const MString& text) {
    return MLibraryInternals::WritePlainConsole(file, MMakeVisible(text));
}

bool MOverwriteConsoleLine(std::FILE* file, const MString& text) {
    return MLibraryInternals::WritePlainConsole(file, "\r" + MMakeVisible(text));
}
