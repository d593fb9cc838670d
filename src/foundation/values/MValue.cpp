#include "foundation/values/MValue.h"

#include "foundation/xml/MXMLItem.h"

MString MValue::ToStorageText() const {
    return GetText();
}

void MValue::FromStorageText(const MString& text) {
    SetText(text);
}

void MValue::Load(MXMLItem& item) {
    MStorable::Load(item);
    Validate();
}

void MValue::LoadDefinition(MXMLItem& item) {
    if (item.HasAttribute("id")) SetId(item.GetCachedAttribute());
}

const MCharFilter::Interface& MValue::GetCharFilter() const {
    static const MCharFilter::AllFilter filter;
    return filter;
}

MString MValue::GetText() const {
    return getter ? getter(*this) : GetDisplayText();
}

bool MValue::SetText(const MString& text) {
    bool isTaken = true;
    if (setter)
        setter(*this, text);
    else
        isTaken = SetFromDisplayText(text);
    Validate();
    return isTaken;
}

void MValue::SetTextHooks(TextGetter newGetter, TextSetter newSetter) {
    getter = newGetter;
    setter = newSetter;
}

void MValue::OnRangeChange() {}

int32_t MValue::GetDiscreteCount() const {
    return 0;
}

void MValue::SetDiscreteIndex(int32_t) {}

int32_t MValue::GetDiscreteIndex() const {
    return 0;
}
