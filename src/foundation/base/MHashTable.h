#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>
#include <utility>

/// The hash of text in every hash table of the library. Only low bytes in lower case count, and of a
/// long text only a few early characters: speed was chosen over spread.
[[nodiscard]] uint32_t MStringHash(const MString& text);

[[nodiscard]] inline uint32_t MHashOf(const MString& key) {
    return MStringHash(key);
}
[[nodiscard]] inline uint32_t MHashOf(uint32_t key) {
    return key;
}

/// A map of 32 fixed buckets. Keys compare by their `==`; a key added twice is stored twice, and a
/// look-up gives the first.
template <class Key, class Value>
class MHashTable {
public:
    [[nodiscard]] int32_t GetCount() const { return count; }

    void Add(const Key& key, const Value& value) {
        GetBucket(key).Add({key, value});
        ++count;
    }
    void Clear() {
        for (MList<Entry>& bucket : buckets) bucket.Clear();
        count = 0;
    }
    /// Null if the key is not there. Valid until the next addition.
    [[nodiscard]] const Value* Find(const Key& key) const {
        for (const Entry& entry : GetBucket(key))
            if (entry.first == key) return &entry.second;
        return nullptr;
    }

private:
    using Entry = std::pair<Key, Value>;
    static constexpr uint32_t BucketCount = 32;

    [[nodiscard]] MList<Entry>& GetBucket(const Key& key) {
        return buckets[MHashOf(key) & (BucketCount - 1)];
    }
    [[nodiscard]] const MList<Entry>& GetBucket(const Key& key) const {
        return buckets[MHashOf(key) & (BucketCount - 1)];
    }

    MList<Entry> buckets[BucketCount];
    int32_t count = 0;
};
