#include "streams/file_sets/MMultiFileStream.h"

#include "foundation/base/MRaise.h"

#include <algorithm>
#include <utility>

namespace {

[[noreturn]] void RaiseSeekFailure() {
    MRaise(MExceptionStreamError, "Could not perform file seek.");
}

}  // namespace

const MMultiFileStream::Item& MMultiFileStream::GetItem(int32_t part) const {
    if (part < 0 || part >= items.GetCount()) MRaise(MExceptionGeneral, "Index out of range.");
    return *items[part];
}

MMultiFileStream::Item& MMultiFileStream::UseCurrent() {
    Item& item = *items[current];
    if (used == current) return item;
    CloseUsed();
    item.Open(MString(), mode == Mode::Writing ? MOpenRead | MOpenWrite : MOpenRead);
    item.Seek(offset, MSeekOrigin::Begin);
    used = current;
    return item;
}

void MMultiFileStream::CloseUsed() {
    if (used >= 0) items[std::exchange(used, -1)]->Close();
}

void MMultiFileStream::MoveTo(int32_t part, int64_t newOffset) {
    current = part;
    offset = newOffset;
    if (used == current) items[current]->Seek(offset, MSeekOrigin::Begin);
}

int32_t MMultiFileStream::Read(void* block, int32_t count) {
    if (count < 1 || items.IsEmpty()) return 0;
    auto* bytes = static_cast<char*>(block);
    int32_t total = 0;
    for (;;) {
        const int32_t read = UseCurrent().Read(bytes + total, count - total);
        offset += read;
        total += read;
        if (total == count || current + 1 == items.GetCount()) return total;
        MoveTo(current + 1, 0);
    }
}

void MMultiFileStream::Write(const void* block, int32_t count) {
    if (mode != Mode::Writing)
        MRaise(MExceptionStreamError, "Invalid operation (writing to a read-only multistream).");
    const auto* bytes = static_cast<const char*>(block);
    const bool wasWhole = std::exchange(isWhole, false);
    while (count > 0) {
        if (current < 0 || offset >= partSize) StepForWriting();
        const auto chunk = static_cast<int32_t>(std::min<int64_t>(partSize - offset, count));
        Item& item = UseCurrent();
        item.Write(bytes, chunk);
        offset += chunk;
        item.size = std::max(item.size, offset);
        bytes += chunk;
        count -= chunk;
    }
    isWhole = wasWhole;
}

void MMultiFileStream::StepForWriting() {
    if (current + 1 == items.GetCount()) AddNewPart();
    MoveTo(current + 1, 0);
}

void MMultiFileStream::Seek(int64_t position, MSeekOrigin origin) {
    if (origin == MSeekOrigin::End)
        position = position > 0 ? INT64_MAX : GetSize() + position;
    else if (origin != MSeekOrigin::Begin && origin != MSeekOrigin::Current)
        MRaise(MExceptionInvalidArgument, "Invalid seek origin.");
    if (items.IsEmpty()) {
        if (position != 0) RaiseSeekFailure();
        return;
    }
    int32_t part = origin == MSeekOrigin::Current ? current : 0;
    for (; position > items[part]->size && part + 1 < items.GetCount(); ++part) position -= items[part]->size;
    const bool isInside = position >= 0 && position <= items[part]->size;
    MoveTo(part, isInside ? position : 0);
    if (!isInside) RaiseSeekFailure();
}

int64_t MMultiFileStream::GetPosition() {
    int64_t position = offset;
    for (int32_t part = 0; part < current; ++part) position += items[part]->size;
    return position;
}

int64_t MMultiFileStream::GetSize() {
    int64_t size = 0;
    for (const Item* item : items) size += item->size;
    return size;
}

void MMultiFileStream::Flush() {
    // A part that is not in use has been closed, and so has nothing left to flush.
    if (used >= 0) items[used]->Flush();
}

bool MMultiFileStream::IsEnd() {
    return !items.IsEmpty() && current + 1 == items.GetCount() && offset >= items[current]->size;
}
