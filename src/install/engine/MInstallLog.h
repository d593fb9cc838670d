#pragma once

#include "foundation/text/MString.h"
#include "streams/basic/MStdFileStream.h"

#include <initializer_list>
#include <string>

/// "InstallerLog.txt" in the user's data directory of the maker: UTF-8 lines that tell every decision
/// of the last run, ended by one line feed each. A log that cannot be written never disturbs a run.
class MInstallLog {
public:
    /// Creates the log anew.
    MInstallLog();

    /// Writes a line, which is put together from its parts.
    void Write(std::initializer_list<MString> parts);
    /// Puts what has been written so far onto the disk, for whoever looks after a run that was killed.
    void Flush();

private:
    MStdFileStream file;
    std::string line;  ///< the last one, whose memory serves the next
};
