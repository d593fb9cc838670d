#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "tests/support/MScratch.h"

#include <cstdint>

/// A product whose files are those of some directories, packed by the classes of setup-builder. Its parts
/// are one component, "Plug-ins", and go to the directory "destination".
class MBenchmarkProduct {
public:
    /// `time` is that of the version. Raises what reading the sources raises.
    explicit MBenchmarkProduct(const MList<MString>& sources, const char* time = "2026-01-01 00:00:00");

    /// All files, in bytes.
    [[nodiscard]] int64_t GetSize() const { return size; }
    /// Packs into an executable. Raises "The benchmark's product could not be packed." (0).
    void Pack(MCompression compression, int32_t threads, const MString& executable) const;
    /// The path of an executable, which is packed when it is asked for first.
    [[nodiscard]] MString GetExecutable(MCompression compression) const;

private:
    MScratch scratch;
    int64_t size = 0;
};

/// All that an unattended run does with an executable's payload, from its index to "setup.state". Raises what
/// `MUnattendedRun` raises.
void MInstallUnattended(const MString& executable, const MString& destination);

/// The plug-in files that the environment variable CORVANTH_BENCHMARK_PLUGINS leads to, as one product.
/// Raises "{0} does not lead to {1} bytes of plug-in files. Start scripts/bench, which fetches them." (0).
[[nodiscard]] const MBenchmarkProduct& MGetPlugInProduct();
/// Each entry of that directory.
[[nodiscard]] MList<MString> MGetPlugInSources();
