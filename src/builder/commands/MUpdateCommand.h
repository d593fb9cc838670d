#pragma once

#include "builder/compression/MPieceCodec.h"
#include "builder/updates/MUpdateTree.h"

/// Makes the update between two versions of a product, or a package for one: a payload of its own for an update
/// server, or, with a setup program in front, an executable. The output comes into being whole or not at all.
class MUpdateCommand {
public:
    /// The options and the output outlive the command. Raises what `MUpdateVersion` raises.
    MUpdateCommand(const MBuilderOptions& options, MBuilderOutput& output);

    /// Gives the exit code: problems are told, all at once, and then nothing is written. Raises what reading the
    /// versions and writing the output raise.
    [[nodiscard]] int32_t Run();

private:
    [[nodiscard]] MUpdateInformation MakeOffer() const;
    void CheckTimes();
    [[nodiscard]] int32_t Refuse() const;
    void RefuseOutputAmongInputs() const;
    void Write();

    const MBuilderOptions& options;
    MBuilderOutput& output;
    MUpdateVersion older;
    MUpdateVersion newer;
    MUpdateInformation offer;
    MUpdateTree tree;
    MList<MString> problems;
};
