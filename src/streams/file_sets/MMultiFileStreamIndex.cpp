#include "foundation/base/MAddSize.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MSafeName.h"
#include "foundation/xml/MXMLSubItems.h"
#include "streams/file_sets/MMultiFileStream.h"
#include "streams/hashes/MMD5Text.h"

#include <memory>

namespace {

bool IsNumber(const MString& text) {
    constexpr int32_t MaximumDigits = 18;
    for (int32_t i = 0; i < text.GetLength(); ++i)
        if (!text[i].IsDigit()) return false;
    return !text.IsEmpty() && text.GetLength() <= MaximumDigits;
}

/// Opening a pipe would wait for somebody to write into it.
bool IsReadable(const MString& path) {
    return MFile::IsFile(path) && !MFile::IsDevice(path);
}

}  // namespace

void MMultiFileStream::Open(const MString& path) {
    Close();
    try {
        indexPath = MFile::Normalize(path);
        LoadIndex();
        int64_t size = 0;
        for (MXMLItem& element : MXMLSubItems(index, "File")) {
            CheckElement(element);
            AddItem(element, FindPart(element.GetAttribute("Name")), MOpenRead);
            MAddSize(size, items[items.GetCount() - 1]->size);
        }
    } catch (...) {
        Forget();
        throw;
    }
    mode = Mode::Reading;
}

void MMultiFileStream::LoadIndex() {
    MStdFileStream file;
    file.Open(indexPath, MOpenRead);
    if (file.GetSize() > MaximumIndexSize)
        MRaise(MExceptionStreamError, "The index \"{0}\" has more than {1} bytes.", indexPath,
               MaximumIndexSize);
    index.Load(file);
    partSize = index.GetInt64Attribute("PartSize", 0);
}

void MMultiFileStream::CheckElement(const MXMLItem& element) const {
    if (items.GetCount() == MaximumPartCount)
        MRaise(MExceptionStreamError, "The index \"{0}\" names more than {1} parts.", indexPath,
               MaximumPartCount);
    const MString& name = element.GetAttribute("Name");
    if (!MIsSafeFileName(name))
        MRaise(MExceptionStreamError, "The part name \"{1}\" in the index \"{0}\" is no plain file name.",
               indexPath, name);
    const MString size = element.GetAttribute("Size", "0");
    if (!IsNumber(size))
        MRaise(MExceptionStreamError, "The size \"{1}\" in the index \"{0}\" is no number.", indexPath, size);
}

MString MMultiFileStream::FindPart(const MString& name) const {
    MString directory = MFile::GetDirectory(indexPath);
    for (;;) {
        const MString path = MFile::Join(directory, name);
        if (IsReadable(path)) return path;
        const MString parent = MFile::GetDirectory(directory);
        if (parent.IsEmpty() || parent.IsExactly(directory))
            MRaise(MExceptionStreamOpen, "Could not find file {0}.", path);
        directory = parent;
    }
}

void MMultiFileStream::AddItem(MXMLItem& element, const MString& path, MOpenFlags flags) {
    auto item = std::make_unique<Item>(element);
    item->Open(path, flags);
    item->size = item->GetSize();
    item->Close();
    items.Add(item.release());
}

void MMultiFileStream::Create(const MString& path, int64_t newPartSize) {
    Close();
    if (newPartSize < 1) MRaise(MExceptionInvalidArgument, "Parts cannot be {0} bytes long.", newPartSize);
    indexPath = MFile::Normalize(path);
    partSize = newPartSize;
    index.SetName("Files");
    index.SetAttribute("PartSize", partSize);
    current = -1;
    isWhole = true;
    mode = Mode::Writing;
}

MString MMultiFileStream::MakePartPath(const MString& indexPath, int32_t number) {
    return indexPath + MNumberToText(number) + ".cab";
}

void MMultiFileStream::AddNewPart() {
    const int32_t number = items.GetCount() + 1;
    if (number > MaximumPartCount)
        MRaise(MExceptionStreamError,
               "The set \"{0}\" would have more than {1} parts. Choose a larger part size.", indexPath,
               MaximumPartCount);
    CloseUsed();
    const MString path = MakePartPath(indexPath, number);
    MXMLItem& element = *index.AddSubItem("File");
    element.SetAttribute("Name", MFile::GetFileName(path));
    AddItem(element, path, MOpenWrite | MOpenCreate);
}

void MMultiFileStream::Close() {
    try {
        if (mode == Mode::Writing && isWhole) WriteIndex();
    } catch (...) {
        Forget();
        throw;
    }
    Forget();
}

void MMultiFileStream::WriteIndex() {
    CloseUsed();
    for (Item* item : items) {
        MStdFileStream part;
        part.Open(item->GetFileName(), MOpenRead);
        item->element.SetAttribute("Size", part.GetSize());
        item->element.SetAttribute("md5", MMD5OfStream(part));
    }
    index.SaveFile(indexPath, false, "utf-8");
}

void MMultiFileStream::Forget() noexcept {
    items.Clear();
    index.Clear();
    mode = Mode::Closed;
    partSize = 0;
    current = 0;
    offset = 0;
    used = -1;
    isWhole = false;
}

MString MMultiFileStream::GetPartFileName(int32_t part) const {
    return GetItem(part).element.GetAttribute("Name");
}

int64_t MMultiFileStream::GetStatedPartSize(int32_t part) const {
    return GetItem(part).element.GetInt64Attribute("Size", 0);
}

bool MMultiFileStream::IsPartValid(int32_t part) const {
    const Item& item = GetItem(part);
    MStdFileStream file;
    file.Open(item.GetFileName(), MOpenRead);
    if (file.GetSize() != GetStatedPartSize(part)) return false;
    return MMD5OfStream(file) == item.element.GetAttribute("md5", "");
}
