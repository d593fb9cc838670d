#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "builder/downloads/MDownloadSetOutput.h"
#include "builder/downloads/MDownloadSetSources.h"
#include "builder/output/MBuilderOutput.h"

/// Writes all that a maker publishes for a download (docs/download.md): what mirrors offer, and the
/// definition that users start with, behind a copy of the setup program or in a data file. It comes into
/// being whole or not at all.
class MDownloadSetCommand {
public:
    /// The options and the output outlive the command.
    MDownloadSetCommand(const MBuilderOptions& options, MBuilderOutput& output)
        : options(options), output(output) {}

    /// Gives the exit code: problems are told, all at once, and then nothing is written. Raises what reading
    /// the sources and writing the output raise.
    [[nodiscard]] int32_t Run();

private:
    [[nodiscard]] bool Prepare();
    void WriteDefinition(const MDownloadSetOutput& target);
    void WriteProgram(const MString& path) const;
    void WriteData(const MString& path) const;
    void WriteSet(const MDownloadSetOutput& target);
    void TellWhatToDo() const;

    const MBuilderOptions& options;
    MBuilderOutput& output;
    MDownloadSetSources sources;
    MString starter;  ///< the file that users begin with
    MString result;   ///< what to tell about the set
};
