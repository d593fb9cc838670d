#include "builder/commands/MCheckCommand.h"

#include "builder/checks/MDefinitionCheck.h"
#include "builder/commands/MRunBuilder.h"
#include "foundation/text/MStringFormatter.h"

int32_t MRunCheckCommand(const MBuilderOptions& options, MBuilderOutput& output) {
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
