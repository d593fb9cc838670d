#include "bench/MBenchmarkProduct.h"
#include "bench/MComparison.h"
#include "builder/commands/MUpdateCommand.h"
#include "builder/output/MConsoleOutput.h"
#include "foundation/base/MException.h"
#include "foundation/text/MStringFormatter.h"
#include "setup/console/MTextDialogs.h"
#include "update/MUpdateRun.h"

namespace {

constexpr int32_t FileCount = 12000;
constexpr int32_t ChangedCount = 1000;
constexpr int32_t FilesPerDirectory = 100;
constexpr int Rounds = 15;
constexpr const char* NewTime = "2026-02-01 00:00:00";

/// Files of 3 KB in folders of a hundred, in groups of a thousand, of which the update changes the first.
MList<MString> WriteSources(const MScratch& scratch, const MString& version, int32_t count) {
    MList<MString> sources;
    for (int32_t i = 0; i < count; ++i) {
        const MString group = MFormat("{0}/Group {1}", version, i / ChangedCount);
        if (i % ChangedCount == 0) sources.Add(scratch.Join(group));
        const char letter = i < ChangedCount && version == "new" ? 'n' : 'o';
        scratch.WriteFile(
            MFormat("{0}/Bank {1}/{2} warm room of the factory bank.preset", group, i / FilesPerDirectory, i),
            std::string(3000, letter));
    }
    return sources;
}

void MakeUpdate(const MString& older, const MString& newer, const MString& update) {
    MBuilderOptions options;
    options.command = MBuilderCommand::Update;
    options.input = older;
    options.newer = newer;
    options.output = update;
    options.compression = MCompression::None;
    MConsoleOutput output;
    if (MUpdateCommand(options, output).Run() != 0)
        MRaise(MExceptionGeneral, "The update could not be made.");
}

void Update(const MString& directory, const MString& path) {
    MXMLItem offer("update");
    offer.SetAttribute("name", "Benchmark Product");
    offer.SetAttribute("time", NewTime);
    MStdFileStream content;
    content.Open(path, MOpenRead);
    MUpdateRun(directory).Install(offer, content, {});
}

/// An installer of only these files, after the state was read.
void InstallChanged(const MString& directory, const MString& executable) {
    MXMLItem state;
    state.LoadFile(MFile::Join(directory, "setup.state"));
    MInstallUnattended(executable, directory + " of the changes");
}

MComparison CompareUpdate() {
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    const MBenchmarkProduct older(WriteSources(scratch, "old", FileCount));
    const MBenchmarkProduct newer(WriteSources(scratch, "new", FileCount), NewTime);
    const MBenchmarkProduct changed(WriteSources(scratch, "changed", ChangedCount));
    const MString installer = older.GetExecutable(MCompression::None);
    const MString changes = changed.GetExecutable(MCompression::None);
    const MString update = scratch.Join("update.dat");
    MakeUpdate(installer, newer.GetExecutable(MCompression::None), update);
    const MString directory = scratch.Join("installed");
    MInstallUnattended(installer, directory);
    const std::string state = scratch.ReadFile("installed/setup.state");

    MInstallUnattended(changes, directory + " of the changes");

    // Both write over files of the round before: none is new to the directory.
    const auto restore = [&] { scratch.WriteFile("installed/setup.state", state); };
    MComparison comparison = MCompareSpeeds(Rounds, MClock::Processor, ChangedCount,
                                            {restore, [&] { InstallChanged(directory, changes); }},
                                            {restore, [&] { Update(directory, update); }});
    comparison.unit = "files/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = 1.2;
    comparison.note += "; ours installs the 1,000 and reads the state, the reference is the update";
    return comparison;
}

[[maybe_unused]] const bool isRegistered =
    MRegisterComparison("Update of 1,000 files among 12,000", CompareUpdate);

}  // namespace
