#include "bench/MPlainInstall.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MXMLSubItems.h"
#include "payload/MLargeResourceLibrary.h"
#include "payload/MSfx.h"

#include <algorithm>
#include <bzlib.h>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <unistd.h>
#include <zlib.h>

namespace {

constexpr size_t AreaSize = 1 << 20;

/// A file of the system, without any buffer of ours.
class PlainFile {
public:
    PlainFile(const std::string& path, int flags) : path(path), handle(open(path.c_str(), flags, 0666)) {
        if (handle < 0) Fail();
    }
    PlainFile(const PlainFile&) = delete;
    PlainFile& operator=(const PlainFile&) = delete;
    ~PlainFile() { close(handle); }

    [[nodiscard]] int GetHandle() const { return handle; }
    void Write(const char* bytes, size_t size) const {
        if (write(handle, bytes, size) != static_cast<ssize_t>(size)) Fail();
    }
    [[noreturn]] void Fail() const {
        MRaise(MExceptionGeneral, "The plain installation of \"{0}\" failed.", MDecodeUTF8Exact(path));
    }

private:
    std::string path;
    int handle;
};

/// An item on its way.
struct Passage {
    int executable;
    int64_t position;
    int64_t left;
    PlainFile& target;
    std::vector<char>& input;
    std::vector<char>& output;

    /// Gives the number of bytes that came.
    unsigned Fill() {
        const size_t wanted = static_cast<size_t>(std::min<int64_t>(left, AreaSize));
        const ssize_t count = pread(executable, input.data(), wanted, position);
        if (count <= 0) target.Fail();
        position += count;
        left -= count;
        return static_cast<unsigned>(count);
    }
};

void CopyPlain(Passage& passage) {
    while (passage.left > 0) {
        const unsigned count = passage.Fill();
        passage.target.Write(passage.input.data(), count);
    }
}

void CopyBzip2(Passage& passage) {
    bz_stream stream{};
    BZ2_bzDecompressInit(&stream, 0, 0);
    int result = BZ_OK;
    while (result == BZ_OK) {
        if (stream.avail_in == 0) {
            stream.avail_in = passage.Fill();
            stream.next_in = passage.input.data();
        }
        stream.next_out = passage.output.data();
        stream.avail_out = AreaSize;
        result = BZ2_bzDecompress(&stream);
        passage.target.Write(passage.output.data(), AreaSize - stream.avail_out);
    }
    BZ2_bzDecompressEnd(&stream);
    if (result != BZ_STREAM_END) passage.target.Fail();
}

void CopyZLib(Passage& passage) {
    z_stream stream{};
    inflateInit(&stream);
    int result = Z_OK;
    while (result == Z_OK) {
        if (stream.avail_in == 0) {
            stream.avail_in = passage.Fill();
            stream.next_in = reinterpret_cast<Bytef*>(passage.input.data());
        }
        stream.next_out = reinterpret_cast<Bytef*>(passage.output.data());
        stream.avail_out = AreaSize;
        result = inflate(&stream, Z_NO_FLUSH);
        passage.target.Write(passage.output.data(), AreaSize - stream.avail_out);
    }
    inflateEnd(&stream);
    if (result != Z_STREAM_END) passage.target.Fail();
}

}  // namespace

MPlainInstall::MPlainInstall(const MString& executable, MCompression compression, const MString& destination)
    : executable(MEncodeUTF8Exact(executable)), compression(compression) {
    MSfx payload(executable);
    MLargeResourceLibrary library;
    library.Attach(&payload);
    const int64_t payloadStart = payload.OpenExecutable()->GetSize();
    for (const MXMLItem& files : MXMLSubItems(library, "files")) {
        const MString name = MFile::GetFileName(files.GetAttribute("path"));
        AddEntries(files, MFile::Join(destination, name), payloadStart);
    }
    FindStoredSizes();
}

void MPlainInstall::AddEntries(const MXMLItem& parent, const MString& destination, int64_t payloadStart) {
    for (const MXMLItem* child : parent.GetSubItems()) {
        const MString path = MFile::Join(destination, child->GetAttribute("name"));
        if (child->GetName() == "dir") AddEntries(*child, path, payloadStart);
        if (child->GetName() == "file")
            entries.push_back({payloadStart + child->GetInt64Attribute("filestart"),
                               child->GetInt64Attribute("filesize"), MEncodeUTF8Exact(path)});
    }
}

void MPlainInstall::FindStoredSizes() {
    if (compression == MCompression::None) return;
    std::set<int64_t> starts{static_cast<int64_t>(std::filesystem::file_size(executable))};
    for (const Entry& entry : entries) starts.insert(entry.start);
    for (Entry& entry : entries) entry.storedSize = *starts.upper_bound(entry.start) - entry.start;
}

void MPlainInstall::CreateDirectories() const {
    for (const Entry& entry : entries)
        std::filesystem::create_directories(std::filesystem::path(entry.path).parent_path());
}

void MPlainInstall::Perform() const {
    const PlainFile source(executable, O_RDONLY);
    std::vector<char> input(AreaSize);
    std::vector<char> output(AreaSize);
    for (const Entry& entry : entries) {
        PlainFile target(entry.path, O_WRONLY | O_CREAT | O_TRUNC);
        Passage passage{source.GetHandle(), entry.start, entry.storedSize, target, input, output};
        switch (compression) {
        case MCompression::Bzip2: CopyBzip2(passage); break;
        case MCompression::ZLib: CopyZLib(passage); break;
        case MCompression::None: CopyPlain(passage); break;
        }
    }
}
