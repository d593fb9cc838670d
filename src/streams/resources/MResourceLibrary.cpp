#include "streams/resources/MResourceLibrary.h"

#include "foundation/base/MRaise.h"
#include "foundation/xml/MXMLItemIterator.h"
#include "streams/basic/MStdFileStream.h"

#include <algorithm>

namespace {

[[noreturn]] void RaiseInvalidFormat() {
    MRaise(MExceptionStreamError, "Invalid resource library format.");
}

[[noreturn]] void RaiseCutOff() {
    MRaise(MExceptionStreamError, "Could not read required data from stream.");
}

}  // namespace

template <class Fill>
void MResourceLibrary::Refill(Fill fill) {
    Clear();
    try {
        fill();
        ListResources();
    } catch (...) {
        Clear();
        throw;
    }
}

void MResourceLibrary::Load(MMemoryStream& stream) {
    Refill([&] { LoadBorrowed(stream); });
}

void MResourceLibrary::Load(MStream& stream) {
    Refill([&] { LoadCopied(stream); });
}

void MResourceLibrary::LoadFile(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    Load(file);
}

void MResourceLibrary::Assign(const MXMLItem& document, const MBuffer& newData) {
    Refill([&] {
        root.CopyFrom(document);
        data = newData;
    });
}

void MResourceLibrary::Clear() {
    resources.Clear();
    root.Clear();
    root.SetName(MString());
    data = MBuffer();
}

MResourceLibrary::Sizes MResourceLibrary::ReadSizes(MStream& stream) {
    (void)stream.ReadInt32();
    const int32_t indexSize = stream.ReadInt32();
    const int32_t dataSize = stream.ReadInt32();
    if (indexSize < 0 || indexSize > MaximumIndexSize || dataSize < 0) RaiseInvalidFormat();
    return {indexSize, dataSize};
}

MBuffer MResourceLibrary::ReadBlock(MStream& stream, int32_t size) {
    // Memory follows what is there, not what a damaged blob claims.
    constexpr int32_t FirstPiece = 0x10000;
    MBuffer block;
    for (int32_t done = 0; done < size;) {
        block.Resize(
            static_cast<int32_t>(std::min<int64_t>(size, std::max(FirstPiece, done) + int64_t(done))));
        stream.ReadRequired(static_cast<char*>(block.EditBlock()) + done, block.GetSize() - done);
        done = block.GetSize();
    }
    return block;
}

void MResourceLibrary::LoadBorrowed(MMemoryStream& stream) {
    const Sizes sizes = ReadSizes(stream);
    if (int64_t(sizes.index) + sizes.data > stream.GetSize() - stream.GetPosition()) RaiseCutOff();
    MMemoryStream index(stream.GetPointer(), sizes.index);
    LoadIndex(index);
    stream.Seek(sizes.index, MSeekOrigin::Current);
    data.Attach(stream.GetPointer(), sizes.data);
}

void MResourceLibrary::LoadCopied(MStream& stream) {
    const Sizes sizes = ReadSizes(stream);
    MMemoryStream index(ReadBlock(stream, sizes.index));
    LoadIndex(index);
    data = ReadBlock(stream, sizes.data);
}

void MResourceLibrary::LoadIndex(MMemoryStream& stored) {
    MZLibStream plain;
    plain.Open(&stored, false);
    // In one piece, since a compressed stream must not be read again behind its end, and one byte more than
    // is accepted, to see that end.
    MBuffer text(MaximumIndexSize + 1);
    const int32_t size = plain.Read(text.EditBlock(), text.GetSize());
    if (size > MaximumIndexSize) RaiseInvalidFormat();
    MMemoryStream document(text.GetBlock(), size);
    root.Load(document);
}

void MResourceLibrary::ListResources() {
    MXMLItemIterator items(*root.GetOrAddSubItem("resources"), "resource", MXMLItemIterator::Match::Prefix);
    while (MXMLItem* item = items.Next()) AddResource(*item);
}

void MResourceLibrary::AddResource(MXMLItem& item) {
    const MString& id = item.GetAttribute("id");
    const int64_t size = item.GetInt64Attribute("size");
    const int64_t offset = item.GetInt64Attribute("offset");
    const bool isCompressed = item.GetInt32Attribute("compressed", 0) != 0;
    if (offset < 0 || offset > data.GetSize() || size < 0 || size > data.GetSize() - offset)
        RaiseInvalidFormat();
    const char* const block = static_cast<const char*>(data.GetBlock());
    resources.Add(
        new MResource(id, block ? block + offset : nullptr, static_cast<int32_t>(size), isCompressed, item));
}

void MResourceLibrary::Save(MStream& stream) const {
    MMemoryStream document;
    root.Save(document, true, "utf-8");
    MMemoryStream index;
    MZLibStream compressed;
    compressed.Open(&index, true);
    document.Rewind();
    document.CopyAllTo(compressed);
    compressed.Finish();
    if (std::max(document.GetSize(), index.GetSize()) > MaximumIndexSize)
        MRaise(MExceptionGeneral, "The index of the resource library is too large.");

    stream.WriteInt32(0);
    stream.WriteInt32(static_cast<int32_t>(index.GetSize()));
    stream.WriteInt32(data.GetSize());
    index.Rewind();
    index.CopyAllTo(stream);
    stream.Write(data.GetBlock(), data.GetSize());
}

MResource* MResourceLibrary::FindResource(const MString& id) const {
    const auto found = std::find_if(resources.begin(), resources.end(),
                                    [&id](const MResource* resource) { return resource->GetId() == id; });
    return found == resources.end() ? nullptr : *found;
}

MResource& MResourceLibrary::GetResource(const MString& id) const {
    MResource* const resource = FindResource(id);
    if (!resource) MRaise(MExceptionGeneral, "Cannot find requested resource ({0}).", id);
    resource->Rewind();
    return *resource;
}
