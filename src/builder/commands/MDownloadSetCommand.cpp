#include "builder/commands/MDownloadSetCommand.h"

#include "builder/commands/MRunBuilder.h"
#include "builder/downloads/MDownloadSetCheck.h"
#include "builder/downloads/MDownloadSetWriter.h"
#include "builder/output/MTextProgress.h"
#include "builder/packing/MHashingStream.h"
#include "builder/packing/MPayloadWriter.h"
#include "builder/packing/MSetupProgram.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"
#include "foundation/text/MStringFormatter.h"

namespace {

/// What the downloader reads first, as a zlib stream.
void SaveDefinition(const MBuilderOptions& options, MStream& target) {
    MXMLItem root("download");
    root.SetAttribute("ID", options.id);
    for (const MString& mirror : options.mirrors) root.AddSubItem("Mirror")->SetValue(mirror);
    root.SaveCompressed(target, "utf-8");
}

void CloseForGood(MStdFileStream& file) {
    file.Close();
    MSyncFile(file.GetFileName());
}

}  // namespace

int32_t MDownloadSetCommand::Run() {
    if (!Prepare()) return MBuilderExitFailed;
    MDownloadSetOutput target(MFile::Normalize(options.output), options.id);
    // Wherever the program cannot be read, that is known before gigabytes were written.
    WriteDefinition(target);
    WriteSet(target);
    target.Commit();
    TellWhatToDo();
    return MBuilderExitDone;
}

bool MDownloadSetCommand::Prepare() {
    MList<MString> problems;
    sources = MCollectDownloadSetSources(MFile::Normalize(options.input), problems);
    MDownloadSetCheck(options, problems).Run(sources);
    for (const MString& problem : problems) output.Complain("error: " + problem);
    if (problems.IsEmpty()) return true;
    output.Complain(MFormat("{0}: errors: {1}. Nothing was written.", options.input, problems.GetCount()));
    return false;
}

void MDownloadSetCommand::WriteDefinition(const MDownloadSetOutput& target) {
    const bool hasProgram = !options.stub.IsEmpty();
    starter = hasProgram ? options.id + "." + MGetSetupProgramExtension(options.stub) : MString("setup.dat");
    if (hasProgram)
        WriteProgram(target.GetPath(starter));
    else
        WriteData(target.GetPath(starter));
}

void MDownloadSetCommand::WriteProgram(const MString& path) const {
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    MCopySetupProgram(options.stub, file);
    const int64_t start = file.GetPosition();
    SaveDefinition(options, file);
    MPayloadWriter::WriteTrailer(file, file.GetPosition() - start);
    CloseForGood(file);
    MFile::MakeExecutable(path);
}

void MDownloadSetCommand::WriteData(const MString& path) const {
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    MHashingStream hashing(&file);
    SaveDefinition(options, hashing);
    CloseForGood(file);
    file.Open(path + ".md5", MOpenWrite | MOpenCreate);
    file.WriteLine(hashing.GetDigestText());
    CloseForGood(file);
}

void MDownloadSetCommand::WriteSet(const MDownloadSetOutput& target) {
    const MString directory = target.GetPath(options.id);
    MFile::CreateDirectory(directory);
    MTextProgress bar(output, sources.size);
    MDownloadSetWriter writer(directory, options.partSize, [&bar](int64_t bytes) { bar.Advance(bytes); });
    writer.Write(sources);
    result = MFormat("{0} files, {1} directories, {2} parts of at most {3} bytes, {4} bytes",
                     sources.files.GetCount(), sources.directories.GetCount(), writer.GetPartCount(),
                     options.partSize, writer.GetSize());
}

void MDownloadSetCommand::TellWhatToDo() const {
    const MString set = MFile::Join(options.output, options.id);
    output.Tell(MFormat("{0}: {1}", set, result));
    output.Tell(MFormat("Copy the directory {0} to every mirror. The index is then found at", set));
    for (const MString& mirror : options.mirrors)
        output.Tell(MFormat("  {0}{1}{2}/INDEX.ZIP", mirror, mirror.EndsWith("/") ? "" : "/", options.id));
    const MString file = MFile::Join(options.output, starter);
    if (options.stub.IsEmpty())
        output.Tell(MFormat("Give users {0} and {1}.md5 together with the setup program.", file, file));
    else
        output.Tell(MFormat("Give users {0}. Start it yourself to try the download.", file));
}
