#include "builder/commands/MRunBuilder.h"

#include "builder/checks/MUpdateFileCheck.h"
#include "builder/commands/MBlobCommand.h"
#include "builder/commands/MBuilderCommandLine.h"
#include "builder/commands/MCheckCommand.h"
#include "builder/commands/MDownloadSetCommand.h"
#include "builder/commands/MPackCommand.h"
#include "builder/commands/MSignCommand.h"
#include "builder/commands/MUpdateCommand.h"
#include "builder/commands/MUpdateServerCommand.h"
#include "builder/output/MConsoleOutput.h"
#include "builder/reports/MFileSet.h"
#include "builder/reports/MPayloadExtractor.h"
#include "builder/reports/MPayloadReport.h"
#include "builder/reports/MPayloadVerifier.h"
#include "foundation/base/MException.h"
#include "foundation/text/MStringFormatter.h"

#include <exception>

namespace {

int32_t Inspect(const MBuilderOptions& options, MBuilderOutput& output) {
    MPayloadFile file(options.input);
    MPayloadReport report(file, output);
    if (options.showsXML)
        report.PrintXML();
    else
        report.Print();
    return MBuilderExitDone;
}

int32_t Verify(const MBuilderOptions& options, MBuilderOutput& output) {
    // Bad parts are told even where the payload in them can no longer be read.
    const bool arePartsGood = MVerifyFileSet(options.input, output);
    MPayloadFile file(options.input);
    MList<MString> faults;
    if (MIsUpdate(file.GetLibrary())) faults = MFindUpdateFaults(file.GetLibrary());
    for (const MString& fault : faults) output.Complain(MFormat("{0} {1}", options.input, fault));
    const bool areItemsGood = MPayloadVerifier(file, output).Run();
    return areItemsGood && arePartsGood && faults.IsEmpty() ? MBuilderExitDone : MBuilderExitFailed;
}

int32_t Extract(const MBuilderOptions& options, MBuilderOutput& output) {
    MPayloadFile file(options.input);
    MPayloadExtractor(file, output).Run(options.output);
    return MBuilderExitDone;
}

int32_t RunCommand(const MBuilderOptions& options, MBuilderOutput& output) {
    switch (options.command) {
    case MBuilderCommand::Pack: return MPackCommand(options, output).Run();
    case MBuilderCommand::Check: return MRunCheckCommand(options, output);
    case MBuilderCommand::Inspect: return Inspect(options, output);
    case MBuilderCommand::Verify: return Verify(options, output);
    case MBuilderCommand::Extract: return Extract(options, output);
    case MBuilderCommand::Blob: return MRunBlobCommand(options, output);
    case MBuilderCommand::DownloadSet: return MDownloadSetCommand(options, output).Run();
    case MBuilderCommand::Update:
    case MBuilderCommand::Package: return MUpdateCommand(options, output).Run();
    case MBuilderCommand::UpdateServer: return MUpdateServerCommand(options, output).Run();
    case MBuilderCommand::Sign: return MRunSignCommand(options, output);
    }
    return MBuilderExitWrongUsage;
}

}  // namespace

int32_t MRunBuilder(const MList<MString>& arguments, MBuilderOutput& output) {
    try {
        int32_t exitCode = MBuilderExitDone;
        const std::optional<MBuilderOptions> options =
            MBuilderCommandLine::Parse(arguments, output, exitCode);
        return options ? RunCommand(*options, output) : exitCode;
    } catch (const MException& exception) {
        output.Complain("setup-builder: " + exception.GetMessage());
    } catch (const std::exception& exception) {
        output.Complain(MString("setup-builder: ") + MString::Copy(exception.what()));
    }
    return MBuilderExitFailed;
}

int32_t MRunBuilder(const MList<MString>& arguments) {
    MConsoleOutput console;
    return MRunBuilder(arguments, console);
}
