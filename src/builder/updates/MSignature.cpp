#include "builder/updates/MSignature.h"

#include "foundation/base/MRaise.h"
#include "streams/basic/MOutputFile.h"
#include "streams/hashes/MSHA256Stream.h"

MRSAKey MReadSigningKey(const MString& path) {
    constexpr int64_t MaximumSize = 0x10000;
    MStdFileStream file;
    file.Open(path, MOpenRead);
    if (file.GetSize() > MaximumSize) MRaise(MExceptionGeneral, "\"{0}\" is too large for a key.", path);
    std::string text(static_cast<size_t>(file.GetSize()), '\0');
    file.ReadRequired(text.data(), static_cast<int32_t>(text.size()));
    try {
        return MRSAKey::ReadPrivate(text);
    } catch (const MException& exception) {
        MRaise(exception.GetCode(), "\"{0}\" cannot be used: {1}", path, exception.GetMessage());
    }
}

void MWriteSignature(const MString& path, const MRSAKey& key) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    MSHA256Stream hash;
    file.CopyAllToInLargePieces(hash);
    hash.Finish();
    const std::vector<uint8_t> signature = key.Sign(hash.GetDigest());
    MOutputFile target(path + MSignatureSuffix);
    target.Write(signature.data(), static_cast<int32_t>(signature.size()));
    target.Commit();
}
