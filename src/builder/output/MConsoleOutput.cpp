#include "builder/output/MConsoleOutput.h"

#include "foundation/base/MException.h"
#include "streams/basic/MConsole.h"

#include <algorithm>

void MConsoleOutput::Tell(const MString& line) {
    if (!MWriteConsoleText(stdout, line + "\n") || std::fflush(stdout) != 0)
        MRaise(MExceptionStreamError, "Standard output cannot be written.");
}

void MConsoleOutput::Complain(const MString& line) {
    (void)MWriteConsoleText(stderr, line + "\n");
}

bool MConsoleOutput::IsProgressShown() const {
    return MIsTerminal(stderr);
}

void MConsoleOutput::ShowProgress(const MString& text) {
    MString line = text;
    line.Append(MChar(' '), std::max(0, shownLength - text.GetLength()));
    (void)MOverwriteConsoleLine(stderr, line);
    if (text.IsEmpty()) (void)MOverwriteConsoleLine(stderr, MString());
    shownLength = text.GetLength();
    std::fflush(stderr);
}
