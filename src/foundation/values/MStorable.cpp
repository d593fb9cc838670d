#include "foundation/values/MStorable.h"

#include "foundation/xml/MXMLItem.h"

MString MStorable::ToStorageText() const {
    return {};
}

void MStorable::FromStorageText(const MString&) {}

void MStorable::ResetToDefault() {}

bool MStorable::Save(MXMLItem& item) const {
    item.SetAttribute(id, ToStorageText());
    return true;
}

void MStorable::Load(MXMLItem& item) {
    if (item.HasAttribute(id))
        FromStorageText(item.GetCachedAttribute());
    else
        ResetToDefault();
}
