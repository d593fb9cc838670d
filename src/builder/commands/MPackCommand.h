#pragma once

#include "builder/compression/MPieceCodec.h"
#include "builder/definition/MBuilderOptions.h"
#include "builder/definition/MSourceTree.h"
#include "builder/output/MBuilderOutput.h"
#include "streams/basic/MOutputFile.h"

/// Packs a definition and the files that it names. The output comes into being whole or not at all.
class MPackCommand {
public:
    /// The options and the output outlive the command.
    MPackCommand(const MBuilderOptions& options, MBuilderOutput& output);

    /// Gives the exit code: a definition with errors is told and refused. Raises what reading the sources and
    /// writing the output raise.
    [[nodiscard]] int32_t Run();

private:
    [[nodiscard]] bool Prepare();
    void RefuseOutputAmongInputs() const;
    void WriteExecutable();
    void WriteData();
    void WriteFileSet();
    /// Writes the payload at the target's position.
    void WritePayload(MStream& target);
    void TellResult(int64_t outputSize);

    const MBuilderOptions& options;
    MBuilderOutput& output;
    MDefinition definition;
    MProblemList problems;
    MSourceTree sources;
    std::unique_ptr<MPieceCodec> codec;
    int64_t sourceBytes = 0;
    int32_t storedCount = 0;
};
