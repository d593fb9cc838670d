#include "builder/commands/MCheckCommand.h"

#include "builder/checks/MDefinitionCheck.h"
#include "builder/checks/MUpdateFileCheck.h"
#include "builder/checks/MUpdateIndexCheck.h"
#include "builder/commands/MRunBuilder.h"
#include "builder/reports/MFileSet.h"
#include "builder/reports/MPayloadFile.h"
#include "foundation/base/MRaise.h"

namespace {

int32_t CheckDefinition(const MBuilderOptions& options, MBuilderOutput& output) {
    MPlaceholders placeholders;
    for (const MString& define : options.defines) placeholders.Define(define);
    MProblemList problems;
    MDefinition definition;
    MSourceTree sources(definition, problems);
    MPrepareDefinition(options.input, placeholders, definition, sources, problems);

    problems.Print(options.input, output);
    output.Tell(MFormat("{0}: errors: {1}, warnings: {2}, items to store: {3}", options.input,
                        problems.GetErrorCount(), problems.GetWarningCount(), sources.GetItems().GetCount()));
    return problems.GetErrorCount() > 0 ? MBuilderExitFailed : MBuilderExitDone;
}

int32_t CheckIndex(const MString& path, const MDefinition& index, MBuilderOutput& output) {
    MProblemList problems;
    MUpdateIndexCheck(index, problems).Run();
    problems.Print(path, output);
    output.Tell(MFormat("{0}: errors: {1}, offers: {2}", path, problems.GetErrorCount(),
                        index.GetRoot().CountSubItems("update")));
    return problems.GetErrorCount() > 0 ? MBuilderExitFailed : MBuilderExitDone;
}

int32_t CheckUpdate(const MString& path, MBuilderOutput& output) {
    MPayloadFile file(path);
    if (!MIsUpdate(file.GetLibrary()))
        MRaise(MExceptionGeneral, "\"{0}\" is an installer. Check its definition, or \"verify\" it.", path);
    const MList<MString> faults = MFindUpdateFaults(file.GetLibrary());
    for (const MString& fault : faults) output.Complain(MFormat("{0} {1}", path, fault));
    output.Tell(MFormat("{0}: errors: {1}", path, faults.GetCount()));
    return faults.IsEmpty() ? MBuilderExitDone : MBuilderExitFailed;
}

}  // namespace

int32_t MRunCheckCommand(const MBuilderOptions& options, MBuilderOutput& output) {
    // What is neither becomes a definition whose faults have lines.
    if (!MIsXMLFile(options.input) && MIsPayloadFile(options.input))
        return CheckUpdate(options.input, output);
    MProblemList ignored;
    MDefinition document;
    if (document.Load(options.input, ignored) && MUpdateIndexCheck::IsIndex(document.GetRoot()))
        return CheckIndex(options.input, document, output);
    return CheckDefinition(options, output);
}
