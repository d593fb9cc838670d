#pragma once

#include "builder/downloads/MDownloadSetSources.h"
#include "foundation/base/MBuffer.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MStdFileStream.h"
#include "streams/hashes/MMD5Stream.h"

#include <functional>

/// Writes what mirrors offer (docs/download.md): the files cut into parts, and the index that names them.
/// Files are streamed. The same sources give the same bytes on every platform.
class MDownloadSetWriter {
public:
    /// Hears how many more bytes were written.
    using Progress = std::function<void(int64_t bytes)>;

    /// Writes into an existing directory, parts of at most `partSize` bytes.
    MDownloadSetWriter(const MString& directory, int64_t partSize, Progress progress);

    /// Writes everything. Raises "\"{0}\" changed while it was being read. ..." (0), and what reading and
    /// writing raise.
    void Write(const MDownloadSetSources& sources);

    [[nodiscard]] int64_t GetPartCount() const { return partCount; }
    /// The bytes of all parts.
    [[nodiscard]] int64_t GetSize() const { return size; }

private:
    void AddFile(const MDownloadSetSources::File& file);
    /// Writes the next `count` bytes of the file as one part, and gives them to the hash of the whole.
    void AddPart(MXMLItem& item, MStdFileStream& file, int64_t count, MMD5Stream& hash);
    void WriteIndex();

    MString directory;
    int64_t partSize;
    Progress progress;
    MXMLItem index;
    MCHARBuffer area;
    int32_t fileCount = 0;
    int64_t partCount = 0;
    int64_t size = 0;
};
