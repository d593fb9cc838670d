#include "builder/MDefinitionCheck.h"

#include "builder/MDestinationCheck.h"
#include "builder/MElementCheck.h"
#include "builder/MNameCheck.h"
#include "builder/MPresetCheck.h"
#include "builder/MReferenceCheck.h"

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
