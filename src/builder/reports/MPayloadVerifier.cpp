#include "builder/reports/MPayloadVerifier.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "payload/MPayloadFormat.h"
#include "payload/MPayloadIndex.h"
#include "streams/hashes/MMD5Text.h"

namespace {

constexpr int32_t BufferSize = 1 << 20;

MString ReadFirstLine(const MString& path) {
    MStdFileStream source;
    source.Open(path, MOpenRead);
    MString line;
    source.LoadLine(line);
    return line;
}

}  // namespace

MPayloadVerifier::MPayloadVerifier(MPayloadFile& file, MBuilderOutput& output)
    : file(file), output(output), buffer(BufferSize) {}

bool MPayloadVerifier::Run() {
    const MList<MPayloadItem> items = MCollectPayloadItems(file.GetLibrary());
    int32_t badCount = 0;
    for (const MPayloadItem& item : items)
        if (!VerifyItem(item)) ++badCount;
    const bool isCompanionGood = VerifyCompanion();
    output.Tell(MFormat("{0}: {1} items, {2} bad", file.GetPath(), items.GetCount(), badCount));
    return badCount == 0 && isCompanionGood;
}

bool MPayloadVerifier::VerifyItem(const MPayloadItem& item) {
    try {
        const int64_t start = item.element->GetInt64Attribute("filestart");
        const int64_t size = item.element->GetInt64Attribute("filesize");
        if (good.contains({start, size})) return true;
        ReadItem(start, size);
        good.emplace(start, size);
        return true;
    } catch (const MException& exception) {
        output.Complain(MFormat("{0}: {1}: {2}", file.GetPath(), item.path, exception.GetMessage()));
        return false;
    }
}

void MPayloadVerifier::ReadItem(int64_t start, int64_t size) {
    const int64_t end = file.GetItemsSize();
    const bool isCompressed = file.GetLibrary().AreItemsCompressed();
    if (start < 0 || size < 0 || start > end || (!isCompressed && size > end - start))
        MRaise(MExceptionGeneral, "It lies outside of the items. Pack again.");
    file.GetStream().Seek(start, MSeekOrigin::Begin);
    // A decompressor that has come to its end may ask for more all the same: the last item needs the index
    // behind it.
    MSizeStream stored(&file.GetStream(), isCompressed ? file.GetPayloadSize() - start : size, true, false);
    const std::unique_ptr<MStream> plain =
        isCompressed ? MOpenDecompressor(stored, file.GetFlags()) : nullptr;
    MStream& source = plain ? *plain : stored;

    int64_t read = 0;
    int32_t count;
    do {
        count = source.Read(buffer.EditBlock(), BufferSize);
        read += count;
    } while (count == BufferSize && read <= size);
    if (read > size) MRaise(MExceptionGeneral, "It holds more than its {0} bytes. Pack again.", size);
    if (read < size) MRaise(MExceptionGeneral, "It holds only {0} of its {1} bytes. Pack again.", read, size);
}

bool MPayloadVerifier::VerifyCompanion() {
    const MString companion = file.GetPath() + ".md5";
    if (!MFile::IsFile(companion)) return true;
    const MString expected = ReadFirstLine(companion);
    const MString computed = MMD5OfFile(file.GetPath());
    if (expected == computed) return true;
    output.Complain(MFormat("{0}: The digest is {1}, and the file's is {2}. Get both again, or pack again.",
                            companion, expected, computed));
    return false;
}
