#include "foundation/base/MException.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"
#include "foundation/xml/MXMLItem.h"
#include "foundation/xml/MXMLParser.h"
#include "foundation/xml/MXMLSaver.h"
#include "streams/basic/MHexaStream.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MOutputFile.h"
#include "streams/compression/MZLibStream.h"

#include <cstring>

void MXMLItem::Load(MStream& stream, MXMLLoadObserver* observer) {
    MLibraryInternals::MXMLParser(*this, observer).ParseDocument(stream);
}

void MXMLItem::LoadFile(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    Load(file);
}

void MXMLItem::LoadCompressed(MStream& stream) {
    MZLibStream plain;
    plain.Open(&stream, false);
    Load(plain);
}

void MXMLItem::Save(MStream& stream, bool isCompact, const MString& encoding) const {
    MXMLSaver(stream, isCompact, encoding).SaveDocument(*this);
}

void MXMLItem::SaveFile(const MString& path, bool isCompact, const MString& encoding) const {
    const bool isThere = MFile::Exists(path);
    if (isThere && MFindRewriteWay(path) != MRewriteWay::Replace) {
        MStdFileStream file;
        file.Open(path, MOpenWrite | MOpenCreate);
        Save(file, isCompact, encoding);
        return file.Close();
    }
    MOutputFile file(path);
    if (isThere) file.CopyOwnership(path);
    Save(file, isCompact, encoding);
    file.Commit();
}

void MXMLItem::SaveCompressed(MStream& stream, const MString& encoding) const {
    MZLibStream compressed;
    compressed.Open(&stream, true);
    Save(compressed, true, encoding);
    compressed.Finish();
}

void MXMLItem::StoreBinary(const void* block, int32_t size) {
    MMemoryStream text;
    MHexaStream digits(&text);
    MZLibStream compressed;
    compressed.Open(&digits, true);
    compressed.Write(block, size);
    compressed.Finish();
    text.WriteInt8(0);
    value = MString(text.GetBuffer());
}

void MXMLItem::LoadBinary(void* block, int32_t size) const {
    const MCHARBuffer bytes = value.ToNarrow(false);
    MMemoryStream text(bytes);
    MHexaStream digits(&text);
    MZLibStream plain;
    plain.Open(&digits, false);
    // One byte more than there should be, since the stream must not be read again behind its end.
    MCHARBuffer found(size + 1);
    if (plain.Read(found.Edit(), size + 1) != size)
        MRaise(MExceptionGeneral, "Value doesn't have correct format.");
    std::memcpy(block, found.Get(), static_cast<size_t>(size));
}
