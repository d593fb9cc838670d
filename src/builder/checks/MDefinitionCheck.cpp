#include "builder/checks/MDefinitionCheck.h"

#include "builder/checks/MDestinationCheck.h"
#include "builder/checks/MElementCheck.h"
#include "builder/checks/MNameCheck.h"
#include "builder/checks/MPresetCheck.h"
#include "builder/checks/MReferenceCheck.h"

void MPrepareDefinition(const MString& path, const MPlaceholders& placeholders, MDefinition& definition,
                        MSourceTree& sources, MProblemList& problems) {
    if (!definition.Load(path, problems)) return;
    placeholders.Fill(definition, problems);
    sources.Collect();
    MElementCheck(definition, problems).Run();
    MReferenceCheck(definition, problems).Run();
    MNameCheck(definition, problems).Run();
    MDestinationCheck(definition, problems).Run();
    MPresetCheck(definition, problems).Run();
}
