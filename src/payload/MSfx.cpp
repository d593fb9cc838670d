#include "payload/MSfx.h"

#include "foundation/base/MException.h"
#include "foundation/module/MModule.h"
#include "payload/MPayloadFormat.h"

#include <cstring>

using namespace MPayloadFormat;

MSfx::MSfx() : MSfx(MModule::GetInstance()->GetFilePath()) {}

MSfx::MSfx(const MString& path) : path(path) {
    executable.Open(path, MOpenRead);
    FindTrailer();
}

void MSfx::FindTrailer() {
    executable.Seek(-TrailerSize, MSeekOrigin::End);
    char magic[TrailerMagicSize];
    executable.ReadRequired(magic, TrailerMagicSize);
    if (std::memcmp(magic, TrailerMagic, TrailerMagicSize) != 0) return;

    const int64_t size = executable.ReadInt64();
    const int64_t fileSize = executable.GetSize();
    // A size of which no payload can be: the seek below would fail for it, or overflow.
    if (size < 0 || size > fileSize - TrailerSize)
        MRaise(MExceptionStreamError, "Could not perform file seek.");
    executable.Seek(-(size + TrailerSize), MSeekOrigin::End);
    AttachWindow(&executable, size, true, false);
}

std::unique_ptr<MStream> MSfx::OpenExecutable() {
    auto program = std::make_unique<MStdFileStream>();
    program->Open(path, MOpenRead);
    if (!IsOpen()) return program;
    return std::make_unique<MSizeStream>(program.release(), GetStartOffset(), true, true);
}
