#include "builder/packing/MEqualContents.h"

#include "foundation/base/MBuffer.h"
#include "foundation/base/MRaise.h"
#include "streams/hashes/MRIPEMDStream.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>

namespace {

using Digest = std::array<uint8_t, MRIPEMDStream::DigestSize>;

Digest ComputeDigest(const MSourceItem& item) {
    MRIPEMDStream hash;
    item.Open()->CopyAllToInLargePieces(hash);
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
            seen.try_emplace(ComputeDigest(items[index]), index).first->second;
}

}  // namespace

bool MHasEqualContent(const MSourceItem& first, const MSourceItem& second) try {
    constexpr int32_t PieceSize = 1 << 20;
    if (first.size != second.size) return false;
    const std::unique_ptr<MStream> left = first.Open();
    const std::unique_ptr<MStream> right = second.Open();
    MBuffer leftPiece(PieceSize);
    MBuffer rightPiece(PieceSize);
    for (int64_t rest = first.size; rest > 0;) {
        const auto count = static_cast<int32_t>(std::min<int64_t>(rest, PieceSize));
        left->ReadRequired(leftPiece.EditBlock(), count);
        right->ReadRequired(rightPiece.EditBlock(), count);
        if (std::memcmp(leftPiece.GetBlock(), rightPiece.GetBlock(), static_cast<size_t>(count)) != 0)
            return false;
        rest -= count;
    }
    return true;
} catch (const MException& exception) {
    MRaise(exception.GetCode(), "\"{0}\" and \"{1}\" cannot be compared: {2}", first.path, second.path,
           exception.GetMessage());
}

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
