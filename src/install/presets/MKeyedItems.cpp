#include "install/presets/MKeyedItems.h"

#include "foundation/xml/MXMLSubItems.h"

#include <algorithm>

namespace {

/// Keys that are equal as `MString` are the same text in this form.
std::u16string Fold(const MString& key) {
    std::u16string folded(static_cast<size_t>(key.GetLength()), u'\0');
    for (int32_t i = 0; i < key.GetLength(); ++i)
        folded[static_cast<size_t>(i)] = static_cast<char16_t>(key[i].FoldDiacritics().ToLower());
    return folded;
}

}  // namespace

MKeyedItems::MKeyedItems(const MXMLItem& parent, const MString& itemName, const MString& attribute) {
    for (MXMLItem& item : MXMLSubItems(parent, itemName)) {
        std::u16string key = Fold(item.GetAttribute(attribute, ""));
        Bucket& bucket = buckets[GetBucketIndex(key)];
        bucket.push_back({std::move(key), &item});
    }
    for (Bucket& bucket : buckets) std::ranges::stable_sort(bucket, std::ranges::less(), &Entry::key);
}

MXMLItem* MKeyedItems::Find(const MString& key) const {
    const std::u16string folded = Fold(key);
    const Bucket& bucket = buckets[GetBucketIndex(folded)];
    const auto found = std::ranges::lower_bound(bucket, folded, std::ranges::less(), &Entry::key);
    return found != bucket.end() && found->key == folded ? found->item : nullptr;
}

size_t MKeyedItems::GetBucketIndex(const std::u16string& key) {
    return std::hash<std::u16string>()(key) % BucketCount;
}
