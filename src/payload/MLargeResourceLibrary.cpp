#include "payload/MLargeResourceLibrary.h"

#include "foundation/base/MException.h"
#include "payload/MLargeResourceLibraryStream.h"
#include "payload/MPayloadFormat.h"
#include "payload/MPayloadIndex.h"
#include "streams/hashes/MMD5Stream.h"

#include <cstring>

using namespace MPayloadFormat;

namespace {

[[noreturn]] void RaiseInvalidFormat() {
    MRaise(MExceptionStreamError, "Invalid large resource library format.");
}

}  // namespace

void MLargeResourceLibrary::Attach(MStream* stream) {
    library = stream;
    MMD5Stream hash;
    const int32_t digestSize = hash.GetDigestSize();
    const int64_t fixedSize = digestSize + IndexFieldsSize;

    library->Seek(-fixedSize, MSeekOrigin::End);
    MBuffer digest(digestSize);
    library->ReadRequired(digest.EditBlock(), digestSize);
    const int64_t indexSize = library->ReadInt64();
    const auto flags = static_cast<uint32_t>(library->ReadInt32());
    if (indexSize < 0 || indexSize > MaximumIndexSize) RaiseInvalidFormat();
    itemsCompressed = (flags & ItemsCompressed) != 0;
    useBzip2 = (flags & UseBzip2) != 0;

    library->Seek(-(fixedSize + indexSize), MSeekOrigin::End);
    MBuffer stored(static_cast<int32_t>(indexSize));
    library->ReadRequired(stored.EditBlock(), stored.GetSize());
    MMemoryStream index(stored);
    MMemoryStream text;
    MReadPayloadIndex(index, flags, text);

    text.CopyAllTo(hash);
    hash.Finish();
    if (std::memcmp(hash.GetDigest().data(), digest.GetBlock(), static_cast<size_t>(digestSize)) != 0)
        MRaise(MExceptionStreamError, "Resource library file is corrupt.");
    text.Rewind();
    Load(text);
}

std::unique_ptr<MStream> MLargeResourceLibrary::OpenItem(MXMLItem* item) {
    const int64_t start = item->GetInt64Attribute("filestart");
    const int64_t size = item->GetInt64Attribute("filesize");
    if (start < 0 || size < 0 || size > INT64_MAX - start) RaiseInvalidFormat();
    library->Seek(start, MSeekOrigin::Begin);
    if (!itemsCompressed) return std::make_unique<MLargeResourceLibraryStream>(library, size);
    const uint32_t flags = useBzip2 ? uint32_t{UseBzip2} : 0;
    return std::make_unique<MLargeResourceLibraryStream>(MOpenDecompressor(*library, flags), size);
}
