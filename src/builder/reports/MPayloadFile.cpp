#include "builder/reports/MPayloadFile.h"

#include "builder/reports/MFileSet.h"
#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "payload/MPayloadFormat.h"
#include "payload/MPayloadIndex.h"

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
    MMemoryStream text;
    MReadPayloadIndex(stored, flags, text);
    return {text.GetBuffer().Get(), static_cast<size_t>(text.GetSize())};
}

bool MIsPayloadFile(const MString& path) {
    return MGuard("MIsPayloadFile", [&] { MPayloadFile{path}; });
}
