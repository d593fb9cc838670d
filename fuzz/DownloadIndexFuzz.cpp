// Reads hostile lists of downloads. What passes the check names nothing outside of the target, and can be
// saved and read again.

#include "foundation/base/MException.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLSubItems.h"
#include "payload/MDownloadNames.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MScratch.h"
#include "update/MDownloadIndex.h"

#include <cstddef>
#include <cstdint>

namespace {

void RequireInside(const MXMLItem& root, const MString& kind) {
    const MString target = MFile::GetCurrentPath();
    for (const MXMLItem& item : MXMLSubItems(root, kind)) {
        if (item.GetValue().StartsWith(MDownloadNames::State)) __builtin_trap();
        const MString path = MFile::Join(target, item.GetValue());
        if (!path.StartsWith(target) || path.Contains("/../") || path.EndsWith("/..")) __builtin_trap();
    }
}

/// The first byte says whether the rest is stored as it would be on a server, or is the plain text.
void Read(MDownloadIndex& index, const uint8_t* data, size_t size) {
    MMemoryStream given(data + 1, static_cast<int32_t>(size - 1));
    if (data[0] % 2 == 0) {
        index.Load(given);
        return;
    }
    MXMLItem root;
    root.Load(given);
    MMemoryStream stored;
    root.SaveCompressed(stored, "utf-8");
    stored.Rewind();
    index.Load(stored);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const MScratch scratch;
    if (size == 0) return 0;
    try {
        MDownloadIndex index;
        Read(index, data, size);
        index.Check();
        RequireInside(index.GetRoot(), "Directory");
        RequireInside(index.GetRoot(), "File");
        const MString path = scratch.Join("downloader.dat");
        index.Save(path);
        MStdFileStream saved;
        saved.Open(path, MOpenRead);
        MDownloadIndex again;
        again.Load(saved);
        if (again.GetRoot().GetSubItemCount() != index.GetRoot().GetSubItemCount()) __builtin_trap();
    } catch (const MException&) {
        // Refusing is right.
    }
    return 0;
}
