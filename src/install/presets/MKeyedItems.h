#pragma once

#include "foundation/xml/MXMLItem.h"

#include <array>
#include <string>
#include <vector>

/// The direct sub-items of one name by the value of one attribute, under the equality of `MString`. It is a
/// picture of the moment: sub-items that are added later are not found. Nothing is owned.
class MKeyedItems {
public:
    /// A sub-item without the attribute has the empty key.
    MKeyedItems(const MXMLItem& parent, const MString& itemName, const MString& attribute);

    /// Null if there is none; of several the first.
    [[nodiscard]] MXMLItem* Find(const MString& key) const;

private:
    static constexpr size_t BucketCount = 8;

    struct Entry {
        std::u16string key;
        MXMLItem* item;
    };
    using Bucket = std::vector<Entry>;

    [[nodiscard]] static size_t GetBucketIndex(const std::u16string& key);

    std::array<Bucket, BucketCount> buckets;  ///< each sorted by key
};
