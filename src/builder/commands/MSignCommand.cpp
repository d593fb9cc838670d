#include "builder/commands/MSignCommand.h"

#include "builder/commands/MRunBuilder.h"
#include "builder/output/MCommandInputs.h"
#include "builder/updates/MSignature.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "streams/basic/MOutputFile.h"

int32_t MRunSignCommand(const MBuilderOptions& options, MBuilderOutput& output) {
    const MRSAKey key = MReadSigningKey(options.key);
    MCommandInputs inputs;
    inputs.Add(MFile::Normalize(options.key));
    for (const MString& file : options.files) inputs.Add(MFile::Normalize(file));
    for (const MString& file : options.files)
        for (const char* suffix : {"", MOutputFile::UnfinishedSuffix})
            inputs.RefuseOutput(MFile::Normalize(file) + MSignatureSuffix + suffix);
    for (const MString& file : options.files) {
        MWriteSignature(MFile::Normalize(file), key);
        output.Tell(MFormat("{0}: signed, {1}{2}", file, file, MSignatureSuffix));
    }
    return MBuilderExitDone;
}
