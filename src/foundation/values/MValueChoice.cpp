#include "foundation/values/MValueChoice.h"

#include "foundation/xml/MXMLItem.h"

#include <algorithm>
#include <cmath>

void MValueChoice::ResetToDefault() {
    MoveTo(defaultIndex);
}

MString MValueChoice::GetTextAt(double position) {
    const int32_t before = GetStoredIndex();
    SetNormalized(position);
    const MString text = GetText();
    StoreIndex(before);
    return text;
}

MString MValueChoice::GetDisplayText() const {
    return GetNameCount() > 0 ? GetName(GetDiscreteIndex()) : MString();
}

bool MValueChoice::SetFromDisplayText(const MString& text) {
    const MString name = text.Trimmed();
    int32_t index = 0;
    while (index < GetNameCount() && GetName(index) != name) ++index;
    return MoveTo(index < GetNameCount() ? index : 0);
}

void MValueChoice::LoadDefinition(MXMLItem& item) {
    MValue::LoadDefinition(item);
    if (item.HasAttribute("default")) {
        FromStorageText(item.GetCachedAttribute());
        SetDefaultIndex(GetDiscreteIndex());
    }
    if (item.HasAttribute("value")) FromStorageText(item.GetCachedAttribute());
}

void MValueChoice::Validate() {
    MoveTo(GetStoredIndex());
}

bool MValueChoice::Step(int32_t count, bool) {
    return StepBy(count);
}

bool MValueChoice::StepBy(int32_t count) {
    return MoveTo(int64_t{GetDiscreteIndex()} + count);
}

double MValueChoice::GetNormalized() const {
    const int32_t last = GetNameCount() - 1;
    return last > 0 ? static_cast<double>(GetDiscreteIndex()) / last : 0;
}

void MValueChoice::SetNormalized(double position) {
    if (std::isnan(position)) return;
    MoveTo(std::lround(std::clamp(position, 0.0, 1.0) * (GetNameCount() - 1)));
}

void MValueChoice::SetDiscreteIndex(int32_t index) {
    MoveTo(index);
}

int32_t MValueChoice::GetDiscreteIndex() const {
    return std::clamp(GetStoredIndex(), 0, std::max(GetNameCount() - 1, 0));
}

bool MValueChoice::MoveTo(int64_t index) {
    const int32_t before = GetStoredIndex();
    const int64_t last = std::max(GetNameCount() - 1, 0);
    StoreIndex(static_cast<int32_t>(std::clamp<int64_t>(index, 0, last)));
    return GetStoredIndex() != before;
}
