#include "builder/MPayloadFile.h"

#include "builder/MFileSet.h"
#include "foundation/MFile.h"
#include "foundation/MRaise.h"
#include "payload/MPayloadFormat.h"
#include "streams/MBZIPStream.h"
#include "streams/MMemoryStream.h"
#include "streams/MZLibStream.h"

using namespace MPayloadFormat;

MPayloadFile::MPayloadFile(const MString& path) : path(MFile::Normalize(path)) {
    try {
        Open();
        library.Attach(stream.get());
        ReadFields();
    } catch (const MException& exception) {
        MRaise(
            exception.GetCode(),
            "\"{0}\" cannot be read as an installer: {1} Name an executable with a payload, a setup.dat or a "
            "setup.multi.",
            path, exception.GetMessage());
    }
}

void MPayloadFile::Open() {
    if (std::unique_ptr<MMultiFileStream> set = MOpenFileSet(path)) {
        fileSet = set.get();
        stream = std::move(set);
        return;
    }
    auto file = std::make_unique<MStdFileStream>();
    file->Open(path, MOpenRead);
    if (file->GetSize() >= TrailerSize) {
        auto attached = std::make_unique<MSfx>(path);
        if (attached->IsOpen()) {
            programSize = file->GetSize() - attached->GetSize() - TrailerSize;
            stream = std::move(attached);
            return;
        }
    }
    stream = std::move(file);
}

void MPayloadFile::ReadFields() {
    payloadSize = stream->GetSize();
    stream->Seek(-(MMD5Stream::DigestSize + IndexFieldsSize), MSeekOrigin::End);
    stream->ReadRequired(digest, MMD5Stream::DigestSize);
    indexSize = stream->ReadInt64();
    flags = static_cast<uint32_t>(stream->ReadInt32());
}

int64_t MPayloadFile::GetItemsSize() const {
    return payloadSize - MMD5Stream::DigestSize - IndexFieldsSize - indexSize;
}

MString MPayloadFile::GetDigestText() const {
    MString text;
    for (const uint8_t byte : digest) {
        text.Append(MChar::FromHexDigit(byte >> 4));
        text.Append(MChar::FromHexDigit(byte));
    }
    return text;
}

std::string MPayloadFile::ReadIndexText() {
    stream->Seek(GetItemsSize(), MSeekOrigin::Begin);
    MSizeStream stored(stream.get(), indexSize, true, false);
    const std::unique_ptr<MStream> plain =
        flags & IndexCompressed ? MOpenDecompressor(stored, flags) : nullptr;
    MStream& source = plain ? *plain : stored;
    std::string text;
    char piece[0x10000];
    int32_t count;
    // Attaching has read it already, and found its size in bounds.
    while ((count = source.Read(piece, sizeof piece)) > 0) text.append(piece, static_cast<size_t>(count));
    return text;
}

std::unique_ptr<MStream> MOpenDecompressor(MStream& source, uint32_t flags) {
    if (flags & UseBzip2) {
        auto reader = std::make_unique<MBZIPStream>();
        reader->Open(&source);
        return reader;
    }
    auto reader = std::make_unique<MZLibStream>();
    reader->Open(&source, false);
    return reader;
}
