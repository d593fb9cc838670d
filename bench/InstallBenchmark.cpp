#include "bench/MBenchmarkProduct.h"
#include "bench/MComparison.h"
#include "bench/MPlainInstall.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "tests/support/MScratch.h"

namespace {

constexpr int Rounds = 5;

/// Moves what was installed out of the way. It is deleted at the end of the program: the file system takes
/// long to create files for some minutes after many were deleted.
void MoveAway(const MString& destination) {
    static const MScratch attic;
    static int32_t count = 0;
    if (MFile::Exists(destination)) MFile::Rename(destination, attic.Join(MFormat("{0}", count++)));
}

MComparison CompareInstallation(MCompression compression) {
    const MBenchmarkProduct& product = MGetPlugInProduct();
    const MString executable = product.GetExecutable(compression);
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    const MString destination = scratch.Join("installed");
    const MPlainInstall plain(executable, compression, destination);

    const MWork install{[&] { MoveAway(destination); }, [&] { MInstallUnattended(executable, destination); }};
    const MWork reference{[&] {
                              MoveAway(destination);
                              plain.CreateDirectories();
                          },
                          [&] { plain.Perform(); }};
    MComparison comparison = MCompareSpeeds(Rounds, MClock::Processor,
                                            static_cast<double>(product.GetSize()) / 1e6, install, reference);
    MoveAway(destination);
    comparison.unit = "MB/s";
    comparison.goal = 0.9;
    return comparison;
}

[[maybe_unused]] const bool areRegistered =
    MRegisterComparison("Install bzip2", [] { return CompareInstallation(MCompression::Bzip2); }) &&
    MRegisterComparison("Install zlib", [] { return CompareInstallation(MCompression::ZLib); }) &&
    MRegisterComparison("Install stored", [] { return CompareInstallation(MCompression::None); });

}  // namespace
