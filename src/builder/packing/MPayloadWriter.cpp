#include "builder/packing/MPayloadWriter.h"

#include "builder/definition/MDefinitionText.h"
#include "builder/packing/MEqualContents.h"
#include "foundation/base/MRaise.h"
#include "payload/MPayloadFormat.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/hashes/MMD5Stream.h"

using namespace MPayloadFormat;

namespace {

void RequireReadable(int64_t size, int64_t maximum) {
    if (size <= maximum) return;
    MRaise(MExceptionGeneral,
           "The definition takes {0} bytes in the payload, and an installer reads at most {1}. Choose bzip2 "
           "and level 9, pack many small files into one, or divide the product.",
           size, maximum);
}

}  // namespace

MPayloadWriter::MPayloadWriter(const MPieceCodec& codec, int32_t threads, MStream& target)
    : codec(codec), threads(threads), target(target), base(target.GetPosition()) {}

void MPayloadWriter::WriteItems(const MSourceItemList& items, const MParallelCompressor::Progress& progress) {
    const std::vector<int32_t> firsts = MFindEqualContents(items);
    MParallelCompressor compressor(codec, threads, target, progress);
    std::vector<size_t> places(firsts.size());
    for (int32_t i = 0; i < items.GetCount(); ++i) {
        const auto first = static_cast<size_t>(firsts[static_cast<size_t>(i)]);
        places[static_cast<size_t>(i)] = static_cast<size_t>(storedCount);
        if (first != static_cast<size_t>(i)) {
            places[static_cast<size_t>(i)] = places[first];
            if (progress) progress(items[i].size);
            continue;
        }
        compressor.AddItem(*items[i].Open(), items[i].size, items[i].path);
        ++storedCount;
    }
    compressor.Finish();
    for (int32_t i = 0; i < items.GetCount(); ++i) {
        MXMLItem& element = *items[i].element;
        element.SetAttribute("filestart", compressor.GetStarts()[places[static_cast<size_t>(i)]]);
        element.SetAttribute("filesize", items[i].size);
    }
}

void MPayloadWriter::WriteIndex(const MXMLItem& root) {
    const std::string text = MGetDefinitionText(root);
    RequireReadable(static_cast<int64_t>(text.size()), MaximumIndexTextSize);
    MMemoryStream source(text.data(), static_cast<int32_t>(text.size()));
    MMemoryStream stored;
    MParallelCompressor compressor(codec, 1, stored);
    compressor.AddItem(source, source.GetSize(), "definition");
    compressor.Finish();
    RequireReadable(stored.GetSize(), MaximumIndexSize);

    stored.Rewind();
    stored.CopyAllTo(target);
    MMD5Stream hash;
    hash.Write(text.data(), static_cast<int32_t>(text.size()));
    hash.Finish();
    hash.WriteDigest(target);
    target.WriteInt64(stored.GetSize());
    target.WriteInt32(static_cast<int32_t>(codec.GetFlags()));
}

void MPayloadWriter::WriteTrailer() {
    WriteTrailer(target, target.GetPosition() - base);
}

void MPayloadWriter::WriteTrailer(MStream& target, int64_t size) {
    target.Write(TrailerMagic, TrailerMagicSize);
    target.WriteInt64(size);
}
