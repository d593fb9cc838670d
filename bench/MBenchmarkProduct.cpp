#include "bench/MBenchmarkProduct.h"

#include "builder/commands/MPackCommand.h"
#include "builder/output/MConsoleOutput.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MXMLItem.h"
#include "payload/MSfx.h"
#include "setup/console/MTextDialogs.h"
#include "setup/console/MUnattendedRun.h"
#include "tests/support/MTestModule.h"

#include <cstdlib>

namespace {

constexpr const char* PlugInVariable = "CORVANTH_BENCHMARK_PLUGINS";
constexpr int64_t LeastPlugInSize = 150000000;
constexpr int32_t ProcessorCount = 2;

/// The tool's own lines would stand between the rows of the table.
class QuietOutput final : public MBuilderOutput {
public:
    void Tell(const MString&) override {}
    void Complain(const MString& line) override { MConsoleOutput().Complain(line); }
    [[nodiscard]] bool IsProgressShown() const override { return false; }
    void ShowProgress(const MString&) override {}
};

int64_t GetTreeSize(const MString& path) {
    if (!MFile::IsDirectory(path)) return MFile::GetFileSize(path);
    int64_t size = 0;
    MFile::GetFileListRecursed(path, MString(), [&](const MString& directory, const MFileListEntry& entry) {
        if (!entry.isDirectory) size += MFile::GetFileSize(MFile::Join(directory, entry.name));
        return true;
    });
    return size;
}

void AddSource(MXMLItem& root, const MString& source) {
    MXMLItem* files = root.AddSubItem("files");
    files->SetAttribute("name", "Plug-ins");
    files->SetAttribute("path", source);
    files->SetAttribute("destination", "{destination}/" + MFile::GetFileName(source));
}

}  // namespace

MBenchmarkProduct::MBenchmarkProduct(const MList<MString>& sources, const char* time) {
    MXMLItem root("install");
    root.SetAttribute("name", "Benchmark Product");
    root.SetAttribute("time", time);
    MXMLItem* directory = root.AddSubItem("directory");
    directory->SetAttribute("id", "destination");
    directory->SetAttribute("name", "Destination directory");
    directory->SetAttribute("default", "{user}/Benchmark Product");
    for (const MString& source : sources) {
        AddSource(root, source);
        size += GetTreeSize(source);
    }
    for (const char* page : {"onsuccess", "onerror", "onabort"}) root.AddSubItem(page);
    root.SaveFile(scratch.Join("definition.xml"), true, "utf-8");
}

void MBenchmarkProduct::Pack(MCompression compression, int32_t threads, const MString& executable) const {
    MBuilderOptions options;
    options.input = scratch.Join("definition.xml");
    options.output = executable;
    options.stub = SETUP_PROGRAM;
    options.compression = compression;
    options.threads = threads;
    QuietOutput output;
    if (MPackCommand(options, output).Run() != 0)
        MRaise(MExceptionGeneral, "The benchmark's product could not be packed.");
}

MString MBenchmarkProduct::GetExecutable(MCompression compression) const {
    const MString path = scratch.Join(MFormat("Product{0}.run", static_cast<int32_t>(compression)));
    if (!MFile::Exists(path)) Pack(compression, ProcessorCount, path);
    return path;
}

void MInstallUnattended(const MString& executable, const MString& destination) {
    MList<MString> words;
    words.Add("directory:destination=" + destination);
    const MTestModule module(SETUP_PROGRAM);
    const MUnattendedOptions options(words, destination);
    MUnattendedDialogs dialogs(MRetryAnswer::Refuse);
    MInstallViews views;
    views.dialogs = &dialogs;

    MSfx payload(executable);
    MLargeResourceLibrary definition;
    definition.Attach(&payload);
    MUnattendedRun run(definition, options, views);
    run.Validate();
    run.Perform();
}

MList<MString> MGetPlugInSources() {
    MList<MString> sources;
    const char* directory = std::getenv(PlugInVariable);
    if (!directory) return sources;
    const MString path = MFile::Normalize(MDecodeUTF8Exact(directory));
    for (const MFileListEntry& entry : MFile::GetFileList(path)) sources.Add(MFile::Join(path, entry.name));
    return sources;
}

const MBenchmarkProduct& MGetPlugInProduct() {
    static const MBenchmarkProduct product(MGetPlugInSources());
    if (product.GetSize() < LeastPlugInSize)
        MRaise(MExceptionGeneral,
               "{0} does not lead to {1} bytes of plug-in files. Start scripts/bench, which fetches them.",
               PlugInVariable, LeastPlugInSize);
    return product;
}
