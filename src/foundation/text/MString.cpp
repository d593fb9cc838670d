#include "foundation/text/MString.h"

#include "foundation/base/MException.h"
#include "foundation/base/MMemory.h"

#include <algorithm>
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <utility>

/// What stands in front of a heap string's units: the block's allocated size in bytes and the number
/// of strings that share it.
struct MString::Block {
    uint32_t allocatedSize;
    std::atomic<int32_t> count;

    static constexpr int32_t MaximumCharacters = 0x3FFFFFF0;

    /// 2n + 8 bytes for n characters with their terminator, rounded up to a power of two.
    static uint32_t SizeFor(int32_t characters) {
        return NextPowerOfTwo(2u * static_cast<uint32_t>(characters) + 8u);
    }
    static Block* Allocate(int32_t characters) {
        const uint32_t size = SizeFor(characters);
        Block* block = static_cast<Block*>(MMemoryAlloc(size));
        block->allocatedSize = size;
        new (&block->count) std::atomic<int32_t>(1);
        return block;
    }
    char16_t* GetUnits() { return reinterpret_cast<char16_t*>(this + 1); }
};

MString::Block* MString::GetBlock() const {
    static_assert(sizeof(Block) == 8);
    return reinterpret_cast<Block*>(units) - 1;
}

MString::MString(const MString& other) noexcept : length(other.length), flags(other.flags) {
    if (IsLiteral()) {
        narrow = other.narrow;
        return;
    }
    units = other.units;
    GetBlock()->count.fetch_add(1, std::memory_order_relaxed);
}

MString::MString(MString&& other) noexcept : length(other.length), flags(other.flags) {
    if (IsLiteral())
        narrow = other.narrow;
    else
        units = other.units;
    other.narrow = "";
    other.length = 0;
    other.flags = Literal;
}

MString& MString::operator=(const MString& other) noexcept {
    if (this != &other) *this = MString(other);
    return *this;
}

MString& MString::operator=(MString&& other) noexcept {
    if (this == &other) return *this;
    if (!IsLiteral()) Release();
    new (this) MString(std::move(other));
    return *this;
}

void MString::Release() noexcept {
    Block* block = GetBlock();
    if (block->count.fetch_sub(1, std::memory_order_acq_rel) <= 1) MMemoryFree(block);
}

MString MString::Copy(const char* text) {
    return text ? Copy(text, static_cast<int32_t>(std::strlen(text))) : MString();
}

MString MString::Copy(const char16_t* text) {
    return text ? Copy(text, static_cast<int32_t>(std::char_traits<char16_t>::length(text))) : MString();
}

MString MString::Copy(const char* text, int32_t count) {
    MString copy;
    copy.Append(text, count);
    return copy;
}

MString MString::Copy(const char16_t* text, int32_t count) {
    MString copy;
    copy.Append(text, count);
    return copy;
}

MString::MString(const MCHARBuffer& buffer) : MString() {
    const char* text = buffer.Get();
    if (text) Append(text, static_cast<int32_t>(strnlen(text, static_cast<size_t>(buffer.GetSize()))));
}

MString::MString(const MWCHARBuffer& buffer) : MString() {
    const char16_t* text = buffer.Get();
    if (text) Append(text, static_cast<int32_t>(std::find(text, text + buffer.GetCount(), u'\0') - text));
}

MString MString::Print(const char* format, ...) {
    char work[8192];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(work, sizeof work, format, arguments);
    va_end(arguments);
    return Copy(work);
}

void MString::Reserve(int32_t wanted) {
    const int32_t count = std::max(wanted, 1);
    if (count > Block::MaximumCharacters) MRaise(MExceptionGeneral, "Out of memory.");
    const bool isPrivate = !IsLiteral() && GetBlock()->count.load(std::memory_order_acquire) < 2;
    if (isPrivate) {
        if (GetBlock()->allocatedSize >= 2u * static_cast<uint32_t>(count) + 8u) return;
        const uint32_t size = Block::SizeFor(count);
        Block* block = static_cast<Block*>(MMemoryRealloc(GetBlock(), size));
        block->allocatedSize = size;
        units = block->GetUnits();
        return;
    }
    Block* block = Block::Allocate(count);
    const int32_t kept = std::min(length, count - 1);
    char16_t* target = block->GetUnits();
    for (int32_t i = 0; i < kept; ++i) target[i] = (*this)[i];
    target[kept] = 0;
    if (!IsLiteral()) Release();
    units = target;
    length = kept;
    flags &= ~static_cast<uint32_t>(Literal);
}

char16_t* MString::Resize(int32_t newLength) {
    Reserve(newLength + 1);
    length = newLength;
    units[newLength] = 0;
    return units;
}

void MString::Append(const MString& text) {
    if (text.IsEmpty()) return;
    // A literal may be the caller's own bytes, which an appended text does not depend on.
    if (IsEmpty() && IsLiteral() && !text.IsLiteral()) {
        *this = text;
        return;
    }
    const MString keepAlive = text;
    if (keepAlive.IsLiteral())
        Append(keepAlive.narrow, keepAlive.length);
    else
        Append(keepAlive.units, keepAlive.length);
}

void MString::Append(const char* text, int32_t count) {
    if (count <= 0) return;
    if (count > Block::MaximumCharacters - length) MRaise(MExceptionGeneral, "Out of memory.");
    const int32_t oldLength = length;
    char16_t* target = Resize(oldLength + count) + oldLength;
    for (int32_t i = 0; i < count; ++i) target[i] = MChar(text[i]);
}

void MString::Append(const char16_t* text, int32_t count) {
    if (count <= 0) return;
    if (count > Block::MaximumCharacters - length) MRaise(MExceptionGeneral, "Out of memory.");
    const int32_t oldLength = length;
    char16_t* target = Resize(oldLength + count) + oldLength;
    std::copy_n(text, count, target);
}

void MString::Append(MChar character, int32_t count) {
    if (count <= 0) return;
    if (count > Block::MaximumCharacters - length) MRaise(MExceptionGeneral, "Out of memory.");
    const int32_t oldLength = length;
    std::fill_n(Resize(oldLength + count) + oldLength, count, static_cast<char16_t>(character));
}
