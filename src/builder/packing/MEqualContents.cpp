#include "builder/packing/MEqualContents.h"

#include "streams/basic/MStdFileStream.h"
#include "streams/hashes/MRIPEMDStream.h"

#include <array>
#include <map>

namespace {

using Digest = std::array<uint8_t, MRIPEMDStream::DigestSize>;

Digest ComputeDigest(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    MRIPEMDStream hash;
    file.CopyAllToInLargePieces(hash);
    hash.Finish();
    Digest digest;
    std::copy_n(hash.GetDigest().begin(), digest.size(), digest.begin());
    return digest;
}

/// Replaces the index of each item that equals an earlier one of the group.
void JoinEqual(const MSourceItemList& items, const std::vector<int32_t>& group,
               std::vector<int32_t>& firsts) {
    std::map<Digest, int32_t> seen;
    for (const int32_t index : group)
        firsts[static_cast<size_t>(index)] =
            seen.try_emplace(ComputeDigest(items[index].path), index).first->second;
}

}  // namespace

std::vector<int32_t> MFindEqualContents(const MSourceItemList& items) {
    std::vector<int32_t> firsts;
    std::map<int64_t, std::vector<int32_t>> groups;
    for (int32_t index = 0; index < items.GetCount(); ++index) {
        firsts.push_back(index);
        groups[items[index].size].push_back(index);
    }
    for (const auto& [size, group] : groups)
        if (group.size() > 1) JoinEqual(items, group, firsts);
    return firsts;
}
