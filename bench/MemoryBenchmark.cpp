#include "bench/MBenchmarkProduct.h"
#include "bench/MComparison.h"
#include "bench/MPeakMemory.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MStdFileStream.h"

#include <filesystem>
#include <string>

namespace {

constexpr double MiB = 1 << 20;
constexpr double Limit = 24 * MiB;

/// A home of an ordinary user, deleted at the end.
class ScratchHome {
public:
    ScratchHome() {
        std::filesystem::permissions(MEncodeUTF8Exact(scratch.GetPath()), std::filesystem::perms::all);
    }

    /// The most memory that a silent run of an executable takes, in bytes.
    [[nodiscard]] int64_t MeasureRun(const MString& executable, bool isComponentEnabled) const {
        MList<MString> words;
        words.Add("silent");
        if (!isComponentEnabled) words.Add("component:Plug-ins=off");
        const MString copy = scratch.Join("Product.run");
        MFile::Copy(executable, copy);
        MFile::MakeExecutable(copy);
        return MMeasurePeakMemory(copy, words, scratch.GetPath());
    }
    [[nodiscard]] const MScratch& GetScratch() const { return scratch; }

private:
    MScratch scratch;
};

/// All plug-in files one behind the other.
MString WriteLargeItem(const MScratch& scratch) {
    const MString path = scratch.Join("large/plugins.bin");
    MFile::CreatePath(MFile::GetDirectory(path));
    MStdFileStream target;
    target.Open(path, MOpenWrite | MOpenCreate);
    const auto append = [&](const MString& directory, const MFileListEntry& entry) {
        if (entry.isDirectory) return true;
        MStdFileStream source;
        source.Open(MFile::Join(directory, entry.name), MOpenRead);
        source.CopyAllToInLargePieces(target);
        return true;
    };
    for (const MString& source : MGetPlugInSources()) MFile::GetFileListRecursed(source, MString(), append);
    target.Close();
    return path;
}

/// A product without content to speak of, whose memory is that of the program alone.
int64_t MeasureProgram() {
    const ScratchHome home;
    MList<MString> sources;
    sources.Add(home.GetScratch().WriteFile("small/file.txt", "content"));
    const MBenchmarkProduct product(sources);
    return home.MeasureRun(product.GetExecutable(MCompression::Bzip2), false);
}

/// What a run takes beyond the index, which is what a run that installs nothing takes beyond the program.
MComparison CompareMemory(const MString& executable) {
    const int64_t program = MeasureProgram();
    const int64_t idle = ScratchHome().MeasureRun(executable, false);
    const int64_t whole = ScratchHome().MeasureRun(executable, true);
    const auto index = static_cast<double>(idle - program);

    MComparison comparison;
    comparison.ours = (static_cast<double>(whole) - index) / MiB;
    comparison.reference = Limit / MiB;
    comparison.unit = "MiB";
    comparison.ratio = comparison.ours / comparison.reference;
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = 1;
    comparison.note = MEncodeUTF8Exact(
        MFormat("most resident {0;.1} MiB, of which the index {1;.1} MiB; the reference is the limit",
                static_cast<double>(whole) / MiB, index / MiB));
    return comparison;
}

MComparison CompareLargeItem(MCompression compression) {
    const MScratch scratch;
    MList<MString> sources;
    sources.Add(WriteLargeItem(scratch));
    const MBenchmarkProduct product(sources);
    return CompareMemory(product.GetExecutable(compression));
}

[[maybe_unused]] const bool areRegistered =
    MRegisterComparison(
        "Memory, all plug-ins, bzip2",
        [] { return CompareMemory(MGetPlugInProduct().GetExecutable(MCompression::Bzip2)); }) &&
    MRegisterComparison("Memory, one large item, bzip2",
                        [] { return CompareLargeItem(MCompression::Bzip2); }) &&
    MRegisterComparison("Memory, one large item, stored",
                        [] { return CompareLargeItem(MCompression::None); });

}  // namespace
