#include "builder/packing/MSetupProgram.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "payload/MSfx.h"

#include <string_view>

namespace {

MString GetDefaultPath() {
    const MString tool = MFile::Normalize(MPlatform::GetModulePath(nullptr));
    const MString extension = MFile::GetExtension(tool);
    return MFile::Join(MFile::GetDirectory(tool),
                       extension.IsEmpty() ? MString("setup") : "setup." + extension);
}

}  // namespace

MString MGetSetupProgramPath(const MString& path) {
    return path.IsEmpty() ? GetDefaultPath() : MFile::Normalize(path);
}

void MCopySetupProgram(const MString& path, MStream& target) {
    try {
        MSfx program(MGetSetupProgramPath(path));
        program.OpenExecutable()->CopyAllToInLargePieces(target);
    } catch (const MException& exception) {
        MRaise(exception.GetCode(), "The setup program cannot be copied: {0} Name one by --stub.",
               exception.GetMessage());
    }
}

MString MGetSetupProgramExtension(const MString& path) {
    MStdFileStream program;
    program.Open(MGetSetupProgramPath(path), MOpenRead);
    char start[2] = {};
    const int32_t count = program.Read(start, sizeof start);
    return std::string_view(start, static_cast<size_t>(count)) == "MZ" ? "exe" : "run";
}
