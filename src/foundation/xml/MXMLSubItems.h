#pragma once

#include "foundation/xml/MXMLItem.h"

/// The direct sub-items of a name, for a range-for loop that neither adds nor removes any:
///
///     for (MXMLItem& files : MXMLSubItems(root, "files"))
class MXMLSubItems {
public:
    class Iterator {
    public:
        Iterator(MXMLItem* item, const MString* name) : item(item), name(name) { SkipOthers(); }
        MXMLItem& operator*() const { return *item; }
        Iterator& operator++() {
            item = item->GetNext();
            SkipOthers();
            return *this;
        }
        bool operator!=(const Iterator& other) const { return item != other.item; }

    private:
        void SkipOthers() {
            while (item && !(item->GetName() == *name)) item = item->GetNext();
        }

        MXMLItem* item;
        const MString* name;
    };

    MXMLSubItems(const MXMLItem& parent, const MString& name)
        : first(parent.GetSubItemCount() > 0 ? parent.GetSubItem(0) : nullptr), name(name) {}

    [[nodiscard]] Iterator begin() const { return {first, &name}; }
    [[nodiscard]] Iterator end() const { return {nullptr, &name}; }

private:
    MXMLItem* first;
    MString name;
};
