#include "foundation/base/MRaise.h"
#include "foundation/xml/MXMLItem.h"

#include <algorithm>
#include <memory>

namespace {

bool IsBefore(const MAttribute* left, const MAttribute* right) {
    return left->name.CompareNoCase(right->name) < 0;
}

bool AreEqual(const MAttribute* left, const MAttribute* right) {
    return left->name == right->name;
}

/// Few attributes are the rule, and for them an insertion sort needs no memory. Returns true if two are
/// equal.
bool SortStably(MAttributeList& list) {
    constexpr int32_t FewBelow = 16;
    if (list.GetCount() >= FewBelow) {
        std::stable_sort(list.begin(), list.end(), IsBefore);
        return std::adjacent_find(list.begin(), list.end(), AreEqual) != list.end();
    }
    bool hasEquals = false;
    for (int32_t i = 1; i < list.GetCount(); ++i) {
        int32_t difference = -1;
        for (int32_t j = i; j > 0 && difference < 0; --j) {
            difference = list[j]->name.CompareNoCase(list[j - 1]->name);
            if (difference < 0) list.Exchange(j, j - 1);
        }
        hasEquals |= difference == 0;
    }
    return hasEquals;
}

/// Of neighbours with equal names the last one stays.
void DropEarlierEquals(MAttributeList& list) {
    MAttributeList kept;
    for (int32_t i = 0; i < list.GetCount(); ++i) {
        if (i + 1 < list.GetCount() && AreEqual(list[i], list[i + 1]))
            delete list[i];
        else
            kept.Add(list[i]);
        list[i] = nullptr;
    }
    list = std::move(kept);
}

}  // namespace

MAttribute* MXMLItem::FindAttribute(const MString& attribute) const {
    const int32_t index = attributes.FindSorted(
        [&](const MAttribute* candidate) { return candidate->name.CompareNoCase(attribute); });
    return index < 0 ? nullptr : attributes[index];
}

bool MXMLItem::HasAttribute(const MString& attribute) {
    cachedAttribute = FindAttribute(attribute);
    return cachedAttribute != nullptr;
}

const MString& MXMLItem::GetCachedAttribute() const {
    if (!cachedAttribute)
        MRaise(MExceptionGeneral,
               "There is no attribute in the cache. Previous call to HasAttribute probably did not succeed.");
    return cachedAttribute->value;
}

const MString& MXMLItem::GetAttribute(const MString& attribute) const {
    const MAttribute* found = FindAttribute(attribute);
    if (!found) MRaise(MExceptionGeneral, "Could not find required attribute ({0}).", attribute);
    return found->value;
}

MString MXMLItem::GetAttribute(const MString& attribute, const MString& defaultValue) const {
    const MAttribute* found = FindAttribute(attribute);
    return found ? found->value : defaultValue;
}

int32_t MXMLItem::GetInt32Attribute(const MString& attribute) const {
    return static_cast<int32_t>(GetInt64Attribute(attribute));
}

int32_t MXMLItem::GetInt32Attribute(const MString& attribute, int32_t defaultValue) const {
    return static_cast<int32_t>(GetInt64Attribute(attribute, defaultValue));
}

int64_t MXMLItem::GetInt64Attribute(const MString& attribute) const {
    return MParseInt64(GetAttribute(attribute));
}

int64_t MXMLItem::GetInt64Attribute(const MString& attribute, int64_t defaultValue) const {
    const MAttribute* found = FindAttribute(attribute);
    return found ? MParseInt64(found->value) : defaultValue;
}

void MXMLItem::SetAttribute(const MString& attribute, const MString& newValue) {
    if (MAttribute* found = FindAttribute(attribute)) {
        found->value = newValue;
        return;
    }
    auto added = std::make_unique<MAttribute>(MAttribute{attribute, newValue});
    attributes.AddSorted(added.get(), IsBefore);
    static_cast<void>(added.release());
}

void MXMLItem::RemoveAttribute(const MString& attribute) {
    const MAttribute* found = FindAttribute(attribute);
    if (!found) return;
    cachedAttribute = nullptr;
    attributes.Remove(static_cast<int32_t>(std::ranges::find(attributes, found) - attributes.begin()));
}

void MXMLItem::TakeAttributes(MAttributeList& taken) {
    cachedAttribute = nullptr;
    attributes = std::move(taken);
    if (SortStably(attributes)) DropEarlierEquals(attributes);
}
