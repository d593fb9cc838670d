#include "foundation/xml/MXMLItem.h"

#include "foundation/base/MRaise.h"

#include <memory>
#include <utility>

bool MXMLItem::HasSubItem(const MString& itemName, bool isRecursive) {
    cachedSubItem = isRecursive ? FindSubItemBelow(itemName) : FindSubItem(itemName);
    return cachedSubItem != nullptr;
}

MXMLItem* MXMLItem::GetCachedSubItem() const {
    if (!cachedSubItem)
        MRaise(MExceptionGeneral,
               "There is no subitem in the cache. Previous call to HasSubItem probably did not succeed.");
    return cachedSubItem;
}

MXMLItem* MXMLItem::GetSubItem(const MString& itemName) const {
    MXMLItem* item = FindSubItem(itemName);
    if (!item) MRaise(MExceptionGeneral, "Could not find required subitem ({0}).", itemName);
    return item;
}

MXMLItem* MXMLItem::FindSubItem(const MString& itemName) const {
    for (MXMLItem* item : subItems)
        if (item->name == itemName) return item;
    return nullptr;
}

MXMLItem* MXMLItem::FindSubItemBelow(const MString& itemName) const {
    for (MXMLItem* item : subItems) {
        if (item->name == itemName) return item;
        if (MXMLItem* found = item->FindSubItemBelow(itemName)) return found;
    }
    return nullptr;
}

MXMLItem* MXMLItem::FindSubItem(const MString& itemName, const MString& attribute,
                                const MString& attributeValue) const {
    for (MXMLItem* item : subItems) {
        if (!(item->name == itemName)) continue;
        const MAttribute* found = item->FindAttribute(attribute);
        if (found && found->value == attributeValue) return item;
    }
    return nullptr;
}

MXMLItem* MXMLItem::GetOrAddSubItem(const MString& itemName) {
    MXMLItem* item = FindSubItem(itemName);
    return item ? item : AddSubItem(itemName);
}

MXMLItem* MXMLItem::GetOrAddSubItem(const MString& itemName, const MString& attribute,
                                    const MString& attributeValue) {
    if (MXMLItem* item = FindSubItem(itemName, attribute, attributeValue)) return item;
    MXMLItem* item = AddSubItem(itemName);
    item->SetAttribute(attribute, attributeValue);
    return item;
}

MXMLItem* MXMLItem::AddSubItem(const MString& itemName) {
    auto item = std::make_unique<MXMLItem>(itemName);
    MXMLItem* added = AddSubItem(item.get());
    static_cast<void>(item.release());
    return added;
}

MXMLItem* MXMLItem::AddSubItem(MXMLItem* item) {
    subItems.Add(item);
    item->parent = this;
    item->SetDepth(depth + 1);
    LinkAcross(subItems.GetCount() - 1);
    return item;
}

void MXMLItem::RemoveSubItem(int32_t index) {
    subItems.Remove(index);
    cachedSubItem = nullptr;
    LinkAcross(index);
}

void MXMLItem::RemoveSubItems(const MString& itemName) {
    SubItemList kept;
    for (MXMLItem*& item : subItems) {
        if (item->name == itemName)
            delete item;
        else
            kept.Add(item);
        item = nullptr;
    }
    subItems = std::move(kept);
    cachedSubItem = nullptr;
    LinkAll();
}

void MXMLItem::RemoveAllSubItems() {
    subItems.Clear();
    cachedSubItem = nullptr;
}

int32_t MXMLItem::CountSubItems(const MString& itemName) const {
    int32_t count = 0;
    for (const MXMLItem* item : subItems)
        count += (item->name == itemName ? 1 : 0) + item->CountSubItems(itemName);
    return count;
}

void MXMLItem::CollectSubItems(const MString& itemName, MList<MXMLItem, MListPointers>& list) const {
    for (MXMLItem* item : subItems) {
        if (item->name == itemName) list.Add(item);
        item->CollectSubItems(itemName, list);
    }
}

void MXMLItem::SortSubItems(const MString& attribute) {
    const auto valueOf = [&](const MXMLItem* item) {
        const MAttribute* found = item->FindAttribute(attribute);
        return found ? found->value : MString();
    };
    subItems.Sort(
        [&](const MXMLItem* a, const MXMLItem* b) { return valueOf(a).CompareNoCase(valueOf(b)) < 0; });
    LinkAll();
}

void MXMLItem::Clear() {
    attributes.Clear();
    cachedAttribute = nullptr;
    value = MString();
    RemoveAllSubItems();
}

void MXMLItem::CopyFrom(const MXMLItem& other) {
    if (&other == this) return;
    // The other item may go with the sub-items, so all is copied before anything is cleared.
    MXMLItem copy(other.name);
    copy.value = other.value;
    copy.attributes = other.attributes;
    copy.AddCopies(other);
    MoveFrom(copy);
}

void MXMLItem::MoveFrom(MXMLItem& other) {
    Clear();
    name = std::move(other.name);
    value = std::move(other.value);
    attributes = std::move(other.attributes);
    TakeSubItems(other);
    other.Clear();
}

void MXMLItem::TakeSubItems(MXMLItem& other) {
    for (MXMLItem*& item : other.subItems) AddSubItem(std::exchange(item, nullptr));
    other.RemoveAllSubItems();
}

void MXMLItem::AddCopies(const MXMLItem& other) {
    for (const MXMLItem* item : other.subItems) {
        MXMLItem* copy = AddSubItem(item->name);
        copy->value = item->value;
        copy->attributes = item->attributes;
        copy->AddCopies(*item);
    }
}

void MXMLItem::SetDepth(int32_t newDepth) {
    if (depth == newDepth) return;
    depth = newDepth;
    for (MXMLItem* item : subItems) item->SetDepth(newDepth + 1);
}

void MXMLItem::LinkAcross(int32_t index) {
    MXMLItem* before = index > 0 ? subItems[index - 1] : nullptr;
    MXMLItem* after = index < subItems.GetCount() ? subItems[index] : nullptr;
    if (before) before->next = after;
    if (after) after->previous = before;
}

void MXMLItem::LinkAll() {
    for (int32_t i = 0; i <= subItems.GetCount(); ++i) LinkAcross(i);
}
