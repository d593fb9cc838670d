#include "builder/output/MCommandInputs.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"

MCommandInputs::MCommandInputs() {
    Add(MFile::Normalize(MPlatform::GetModulePath(nullptr)));
}

void MCommandInputs::Add(const MString& path) {
    MString place = path;
    do {
        if (const auto identity = MFindFileIdentity(place)) inputs.try_emplace(*identity, path);
        place = MFile::GetDirectory(place);
    } while (!place.IsEmpty() && known.insert(MEncodeUTF8Exact(place)).second);
}

MString MCommandInputs::FindReplaced(const MString& output) const {
    const auto identity = MFindFileIdentity(output);
    const auto found = identity ? inputs.find(*identity) : inputs.end();
    return found == inputs.end() ? MString() : found->second;
}

void MCommandInputs::RefuseOutput(const MString& output) const {
    const MString input = FindReplaced(output);
    if (!input.IsEmpty())
        MRaise(MExceptionGeneral,
               "The output \"{0}\" would replace \"{1}\", which is read. Write it to another place.", output,
               input);
    // It would not be written to, but taken away.
    if (MFile::IsDevice(output))
        MRaise(MExceptionGeneral, "The output \"{0}\" is a device or a pipe. Write it to a file.", output);
}
