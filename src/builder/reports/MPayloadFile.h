#pragma once

#include "payload/MLargeResourceLibrary.h"
#include "payload/MSfx.h"
#include "streams/file_sets/MMultiFileStream.h"
#include "streams/hashes/MMD5Stream.h"

#include <memory>
#include <string>

/// A payload behind an executable, in a file of its own or in a file set, with its index read.
class MPayloadFile {
public:
    /// Raises "\"{0}\" cannot be read as an installer: ..." with the code of what the reader raised.
    explicit MPayloadFile(const MString& path);

    [[nodiscard]] const MString& GetPath() const { return path; }
    /// Bytes of the executable in front of the payload; -1 if there is none.
    [[nodiscard]] int64_t GetProgramSize() const { return programSize; }
    /// The parts that the payload lies in; null if it is in one file.
    [[nodiscard]] const MMultiFileStream* GetFileSet() const { return fileSet; }
    /// The payload, position 0 its first byte.
    [[nodiscard]] MStream& GetStream() { return *stream; }
    [[nodiscard]] MLargeResourceLibrary& GetLibrary() { return library; }
    [[nodiscard]] int64_t GetPayloadSize() const { return payloadSize; }
    /// Where the items end and the index begins, in bytes of the payload.
    [[nodiscard]] int64_t GetItemsSize() const;
    /// The index as it is stored, in bytes.
    [[nodiscard]] int64_t GetIndexSize() const { return indexSize; }
    [[nodiscard]] uint32_t GetFlags() const { return flags; }
    [[nodiscard]] MString GetDigestText() const;
    /// The index XML, byte for byte.
    [[nodiscard]] std::string ReadIndexText();

private:
    void Open();
    void ReadFields();

    MString path;
    std::unique_ptr<MStream> stream;
    const MMultiFileStream* fileSet = nullptr;  ///< the stream, if it is one
    int64_t programSize = -1;
    int64_t payloadSize = 0;
    int64_t indexSize = 0;
    uint32_t flags = 0;
    uint8_t digest[MMD5Stream::DigestSize] = {};
    MLargeResourceLibrary library;
};

/// Whether a file can be read as an installer or an update. Raises nothing.
[[nodiscard]] bool MIsPayloadFile(const MString& path);
