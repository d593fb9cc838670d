#pragma once

#include "foundation/base/MRefCountedObject.h"

#include <cstdint>

/// The block behind `MBuffer`: owned, or borrowed from memory that outlives it.
struct MBufferData {
    MBufferData() = default;
    MBufferData(const MBufferData& other);
    MBufferData& operator=(const MBufferData&) = delete;
    ~MBufferData();

    static constexpr uint8_t Borrowed = 1;

    void* block = nullptr;
    int32_t size = 0;
    uint8_t flags = 0;
};

/// A copy-on-write byte block. Copies share it until one of them changes it. Sizes are in bytes.
class MBuffer : public MRefCountedObject<MBufferData> {
public:
    MBuffer() { CreateData(); }
    /// An owned block of `size` bytes with unspecified contents. Raises "Out of memory." (0).
    explicit MBuffer(int32_t size) : MBuffer() { Resize(size); }

    [[nodiscard]] int32_t GetSize() const { return HasData() ? GetData().size : 0; }
    [[nodiscard]] bool IsBorrowed() const { return HasData() && (GetData().flags & MBufferData::Borrowed); }
    [[nodiscard]] const void* GetBlock() const { return HasData() ? GetData().block : nullptr; }
    /// The block for writing: private to this handle and owned. Raises "Out of memory." (0).
    [[nodiscard]] void* EditBlock();
    /// Exactly `size` bytes, never rounded; what was there stays as far as it fits.
    /// A borrowed block is replaced by an owned copy. Raises "Out of memory." (0).
    void Resize(int32_t size);
    /// Points at `size` bytes that the caller keeps alive; nothing is copied or freed.
    void Attach(const void* block, int32_t size);

private:
    void MakePrivate();
};

/// `MBuffer` with typed access; `Count` and `ResizeCount` are in elements of `T`.
template <class T>
class MBufferT : public MBuffer {
public:
    MBufferT() = default;
    explicit MBufferT(int32_t count) : MBuffer(count * static_cast<int32_t>(sizeof(T))) {}

    [[nodiscard]] int32_t GetCount() const { return GetSize() / static_cast<int32_t>(sizeof(T)); }
    [[nodiscard]] const T* Get() const { return static_cast<const T*>(GetBlock()); }
    [[nodiscard]] T* Edit() { return static_cast<T*>(EditBlock()); }
    void ResizeCount(int32_t count) { Resize(count * static_cast<int32_t>(sizeof(T))); }
};

using MCHARBuffer = MBufferT<char>;
/// 16-bit units on every platform, whatever the size of `wchar_t`.
using MWCHARBuffer = MBufferT<char16_t>;
