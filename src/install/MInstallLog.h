#pragma once

#include "foundation/MString.h"
#include "streams/MStdFileStream.h"

/// "InstallerLog.txt" in the user's data directory of the maker: UTF-8 lines that tell every decision
/// of the last run, ended by one line feed each. A log that cannot be written never disturbs a run.
class MInstallLog {
public:
    /// Creates the log anew.
    MInstallLog();

    void Write(const MString& line);
    /// Puts what has been written so far onto the disk, for whoever looks after a run that was killed.
    void Flush();

private:
    MStdFileStream file;
};
