#include "ui/stml/MSTMLAttributes.h"

#include "foundation/text/MNumberText.h"
#include "ui/image/MNames.h"

#include <algorithm>
#include <cmath>

int32_t MSTMLParseInteger(const MString& text, int32_t minimum, int32_t maximum) {
    // More digits than 18 may leave the 64 bits.
    constexpr int32_t MostDigits = 18;
    const bool isNegative = !text.IsEmpty() && text[0] == '-';
    int32_t count = isNegative ? 1 : 0;
    while (count < text.GetLength() && text[count].IsDigit()) ++count;
    if (count > MostDigits) return isNegative ? minimum : maximum;
    return static_cast<int32_t>(std::clamp<int64_t>(MParseInt64(text), minimum, maximum));
}

const MString* MSTMLAttributes::Find(const MString& name) const {
    for (const MAttributeList* list : {&own, others}) {
        if (!list) continue;
        for (const MAttribute* attribute : *list)
            if (attribute->name == name) return &attribute->value;
    }
    return nullptr;
}

MString MSTMLAttributes::GetText(const MString& name) const {
    const MString* const text = Find(name);
    return text ? *text : MString();
}

int32_t MSTMLAttributes::GetInteger(const MString& name, int32_t defaultValue, int32_t minimum,
                                    int32_t maximum) const {
    const MString* const text = Find(name);
    return text ? MSTMLParseInteger(*text, minimum, maximum) : defaultValue;
}

double MSTMLAttributes::GetNumber(const MString& name, double defaultValue) const {
    const MString* const text = Find(name);
    const double number = text ? MParseDouble(*text) : defaultValue;
    return std::isfinite(number) ? number : 0;
}

int32_t MSTMLAttributes::GetName(const MString& name, std::span<const char* const> names) const {
    const MString* const text = Find(name);
    return text ? std::max(0, MFindName(names, *text)) : 0;
}

MSTMLLength MSTMLAttributes::GetLength(const MString& name, MSTMLLength defaultValue) const {
    const MString* const text = Find(name);
    return text ? MSTMLLength::Parse(*text) : defaultValue;
}

MSTMLColor MSTMLAttributes::GetColor(const MString& name, MSTMLColor defaultValue) const {
    const MString* const text = Find(name);
    return text ? MSTMLColor::Parse(*text) : defaultValue;
}
