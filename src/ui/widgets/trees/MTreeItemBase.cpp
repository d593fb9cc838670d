#include "ui/widgets/trees/MTreeItemBase.h"

#include "foundation/xml/MXMLItem.h"

void MTreeItemBase::LoadFromXml(MXMLItem& item) {
    MListBoxItemBaseWithFeatures::LoadFromXml(item);
    isOpen = item.GetInt32Attribute("open", isOpen) != 0;
}

bool MTreeItemBase::Holds(const MTreeItemBase* other) const {
    while (other && other != this) other = other->parent;
    return other != nullptr;
}

void MTreeItemBase::InsertChild(int32_t at, MTreeItemBase* child) {
    child->parent = this;
    children.Insert(at, child);
    for (int32_t i = at; i < children.GetCount(); ++i) children[i]->index = i;
}

void MTreeItemBase::RemoveChild(int32_t at) {
    children.Remove(at);
    for (int32_t i = at; i < children.GetCount(); ++i) children[i]->index = i;
}
