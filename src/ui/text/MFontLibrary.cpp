#include "ui/text/MFontLibrary.h"

#include "foundation/base/MException.h"
#include "foundation/base/MMemory.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MODULE_H
#include FT_SYSTEM_H

namespace {

/// Exceptions cannot pass through FreeType, which reports a null block as a failure of its own.
void* Reallocate(FT_Memory, long, long size, void* block) {
    if (size < 0 || size > MFontLibrary::MaximumBlock) return nullptr;
    try {
        return MMemoryRealloc(block, static_cast<size_t>(size));
    } catch (const MException&) {
        return nullptr;
    }
}

void* Allocate(FT_Memory memory, long size) {
    return Reallocate(memory, 0, size, nullptr);
}

void Free(FT_Memory, void* block) {
    if (block) MMemoryFree(block);
}

FT_MemoryRec_ memoryRecord = {nullptr, Allocate, Free, Reallocate};

std::shared_ptr<FT_LibraryRec_> Start() {
    FT_Library library = nullptr;
    if (FT_New_Library(&memoryRecord, &library)) MRaise(MExceptionGeneral, "Could not initialize FreeType.");
    FT_Add_Default_Modules(library);
    return {library, FT_Done_Library};
}

}  // namespace

std::shared_ptr<FT_LibraryRec_> MFontLibrary::Get() {
    static const std::shared_ptr<FT_LibraryRec_> library = Start();
    return library;
}
