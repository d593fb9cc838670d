#include "builder/commands/MPackCommand.h"

#include "builder/checks/MDefinitionCheck.h"
#include "builder/commands/MRunBuilder.h"
#include "builder/output/MCommandInputs.h"
#include "builder/output/MTextProgress.h"
#include "builder/packing/MFileSetOutput.h"
#include "builder/packing/MHashingStream.h"
#include "builder/packing/MPayloadWriter.h"
#include "builder/packing/MPieceCodecs.h"
#include "builder/packing/MSetupProgram.h"
#include "foundation/base/MAddSize.h"
#include "foundation/files/MFile.h"

namespace {

constexpr const char* CompanionSuffix = ".md5";

}  // namespace

MPackCommand::MPackCommand(const MBuilderOptions& options, MBuilderOutput& output)
    : options(options), output(output), sources(definition, problems), codec(MMakePieceCodec(options)) {}

int32_t MPackCommand::Run() {
    if (!Prepare()) return MBuilderExitFailed;
    for (const MSourceItem& item : sources.GetItems()) MAddSize(sourceBytes, item.size);
    RefuseOutputAmongInputs();
    switch (options.form) {
    case MPayloadForm::Executable: WriteExecutable(); break;
    case MPayloadForm::Data: WriteData(); break;
    case MPayloadForm::FileSet: WriteFileSet(); break;
    }
    return MBuilderExitDone;
}

bool MPackCommand::Prepare() {
    MPlaceholders placeholders;
    for (const MString& define : options.defines) placeholders.Define(define);
    MPrepareDefinition(options.input, placeholders, definition, sources, problems);
    problems.Print(options.input, output);
    if (problems.GetErrorCount() == 0) return true;
    output.Complain(
        MFormat("{0}: errors: {1}. Nothing was packed.", options.input, problems.GetErrorCount()));
    return false;
}

void MPackCommand::RefuseOutputAmongInputs() const {
    MCommandInputs inputs;
    inputs.Add(MFile::Normalize(options.input));
    for (const MSourceItem& item : sources.GetItems()) inputs.Add(item.path);
    if (options.form == MPayloadForm::Executable) inputs.Add(MGetSetupProgramPath(options.stub));

    const MString path = MFile::Normalize(options.output);
    if (options.form == MPayloadForm::FileSet) {
        for (const MString& replaced : MFileSetOutput::ListReplaced(path)) inputs.RefuseOutput(replaced);
        return;
    }
    for (const char* suffix : {"", MOutputFile::UnfinishedSuffix}) {
        inputs.RefuseOutput(path + suffix);
        if (options.form == MPayloadForm::Data) inputs.RefuseOutput(path + CompanionSuffix + suffix);
    }
}

void MPackCommand::WriteExecutable() {
    MOutputFile file(MFile::Normalize(options.output));
    MCopySetupProgram(options.stub, file);
    WritePayload(file);
    const int64_t size = file.GetPosition();
    file.CommitProgram();
    TellResult(size);
}

void MPackCommand::WriteData() {
    MOutputFile file(MFile::Normalize(options.output));
    MHashingStream hashing(&file);
    WritePayload(hashing);
    MOutputFile companion(file.GetPath() + CompanionSuffix);
    companion.WriteLine(hashing.GetDigestText());
    const int64_t size = file.GetPosition();
    file.Commit();
    companion.Commit();
    TellResult(size);
}

void MPackCommand::WriteFileSet() {
    MFileSetOutput files(MFile::Normalize(options.output), options.partSize);
    WritePayload(files.GetStream());
    const int64_t size = files.GetStream().GetSize();
    const int32_t partCount = files.Commit();
    TellResult(size);
    output.Tell(MFormat("{0}: {1} parts of at most {2} bytes", options.output, partCount, options.partSize));
}

void MPackCommand::WritePayload(MStream& target) {
    MPayloadWriter writer(*codec, options.threads, target);
    {
        MTextProgress bar(output, sourceBytes);
        writer.WriteItems(sources.GetItems(), [&bar](int64_t bytes) { bar.Advance(bytes); });
    }
    writer.WriteIndex(definition.GetRoot());
    if (options.form == MPayloadForm::Executable) writer.WriteTrailer();
    storedCount = writer.GetStoredCount();
}

void MPackCommand::TellResult(int64_t outputSize) {
    const double ratio =
        sourceBytes > 0 ? 100.0 * static_cast<double>(outputSize) / static_cast<double>(sourceBytes) : 100.0;
    output.Tell(MFormat("{0}: {1} items, {2} of them different, {3} bytes in, {4} bytes out ({5;.1} %)",
                        options.output, sources.GetItems().GetCount(), storedCount, sourceBytes, outputSize,
                        ratio));
}
