#pragma once

#include "foundation/base/MObject.h"

#include <atomic>
#include <cstdint>
#include <utility>

/// A handle to a shared record: copies point at the same `Data` and count the holders atomically,
/// so handles may cross threads. The record goes with its last holder. A null handle is legal
/// while an object is being made.
template <class Data>
class MRefCountedObject : public MObject {
public:
    MRefCountedObject(const MRefCountedObject& other) : MObject(other), record(other.record) {
        AddReference();
    }
    MRefCountedObject(MRefCountedObject&& other) noexcept : record(std::exchange(other.record, nullptr)) {}
    MRefCountedObject& operator=(MRefCountedObject other) noexcept {
        std::swap(record, other.record);
        return *this;
    }
    ~MRefCountedObject() override { Release(); }

protected:
    MRefCountedObject() = default;

    [[nodiscard]] bool HasData() const { return record != nullptr; }
    [[nodiscard]] Data& GetData() const { return record->data; }
    void CreateData() {
        Release();
        record = new Record;
    }
    /// Makes the record private: a shared one is left to the others and replaced by a copy of its `Data`.
    void Unshare() {
        // What the last of the other holders did to the record is to be seen before this one writes to it.
        if (!record || record->count.load(std::memory_order_acquire) < 2) return;
        Record* clone = new Record(record->data);
        Release();
        record = clone;
    }

private:
    struct Record {
        Record() = default;
        explicit Record(const Data& source) : data(source) {}
        std::atomic<int32_t> count{1};
        Data data;
    };

    void AddReference() {
        if (record) record->count.fetch_add(1, std::memory_order_relaxed);
    }
    void Release() {
        if (record && record->count.fetch_sub(1, std::memory_order_acq_rel) <= 1) delete record;
        record = nullptr;
    }

    Record* record = nullptr;
};
