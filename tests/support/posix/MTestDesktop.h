#pragma once

#include "foundation/text/MString.h"

#include <string>

/// A desktop that reads and starts link files: the validator of the desktop-file-utils and the launcher of
/// GLib, as whoever may use the programs of a test. The program that opens documents is a recorder.
class MTestDesktop {
public:
    /// Everything lies in `directory`, which is there. With `asOrdinaryUser` it must be open for everybody.
    MTestDesktop(const MString& directory, bool asOrdinaryUser);

    /// Writes a program that records its working directory and its arguments, each in brackets.
    void WriteRecorder(const MString& path) const;
    /// What the validator says of a link file; empty if it is valid.
    [[nodiscard]] std::string Validate(const MString& link) const;
    /// Starts a link file, and gives what the recorder behind it has recorded, a line each.
    [[nodiscard]] std::string Launch(const MString& link) const;

private:
    [[nodiscard]] std::string Run(const char* program, const char* option, const MString& link) const;

    MString directory;
    bool asOrdinaryUser;
};
