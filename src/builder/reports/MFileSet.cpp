#include "builder/reports/MFileSet.h"

#include "foundation/base/MGuard.h"
#include "foundation/text/MStringFormatter.h"

#include <algorithm>

namespace {

bool EndsInTag(MStream& file) {
    char tail[4096];
    const int64_t size = file.GetSize();
    file.Seek(std::max<int64_t>(0, size - static_cast<int64_t>(sizeof tail)), MSeekOrigin::Begin);
    int32_t count = file.Read(tail, sizeof tail);
    // A number can have any bytes where a text ends, but a text no two zeros.
    if (count > 1 && tail[count - 1] == 0 && tail[count - 2] == 0) return false;
    while (count > 0 && MChar(tail[count - 1]).IsBlank()) --count;
    return count > 0 && tail[count - 1] == '>';
}

bool IsIndex(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    if (file.GetSize() > MMultiFileStream::MaximumIndexSize || !EndsInTag(file)) return false;
    MXMLItem root;
    file.Rewind();
    return MGuard("MOpenFileSet", [&] { root.Load(file); }) && root.FindSubItem("File");
}

MString DescribeFault(const MMultiFileStream& set, int32_t part) {
    const int64_t size = set.GetPartSize(part);
    const int64_t stated = set.GetStatedPartSize(part);
    if (size != stated) return MFormat("It has {0} bytes, and the index tells {1}.", size, stated);
    return "Its MD5 is not the one that the index tells.";
}

}  // namespace

bool MIsXMLFile(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    return EndsInTag(file);
}

std::unique_ptr<MMultiFileStream> MOpenFileSet(const MString& path) {
    if (!IsIndex(path)) return nullptr;
    auto set = std::make_unique<MMultiFileStream>();
    set->Open(path);
    return set;
}

bool MVerifyFileSet(const MString& path, MBuilderOutput& output) {
    const std::unique_ptr<MMultiFileStream> set = MOpenFileSet(path);
    if (!set) return true;
    int32_t badCount = 0;
    for (int32_t i = 0; i < set->GetPartCount(); ++i) {
        if (set->IsPartValid(i)) continue;
        ++badCount;
        output.Complain(MFormat("{0}: {1}: {2} Get it again, or pack again.", path, set->GetPartFileName(i),
                                DescribeFault(*set, i)));
    }
    output.Tell(MFormat("{0}: {1} parts, {2} bad", path, set->GetPartCount(), badCount));
    return badCount == 0;
}
