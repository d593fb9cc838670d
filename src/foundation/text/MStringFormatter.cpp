#include "foundation/text/MStringFormatter.h"

#include "foundation/text/MNumberText.h"

MStringFormatter::MStringFormatter(const MString& format) {
    CreateData();
    for (int32_t position = 0; position < format.GetLength();) {
        if (MFormatSpecification::StartsAt(format, position))
            AddPlaceholder(MFormatSpecification::Read(format, ++position));
        else
            GetData().result.Append(MFormatSpecification::ReadLiteral(format, position));
    }
}

void MStringFormatter::AddPlaceholder(const MFormatSpecification& specification) {
    MStringFormatterData& data = GetData();
    if (specification.number >= MFormatSpecification::MaximumPlaceholders) return;
    auto& added = data.arguments[specification.number];
    added = {.specification = specification, .offset = data.result.GetLength(), .order = 0};
    for (const auto& other : data.arguments)
        if (&other != &added && other.offset == added.offset) ++added.order;
    if (data.count <= specification.number) data.count = specification.number + 1;
}

MStringFormatter& MStringFormatter::Insert(const MString& value) {
    MStringFormatterData& data = GetData();
    if (data.next >= data.count) return *this;
    const auto& filled = data.arguments[data.next++];
    if (filled.offset < 0) return *this;
    data.result.Insert(filled.offset, value);
    for (int32_t i = data.next; i < data.count; ++i) {
        auto& later = data.arguments[i];
        const bool isBehind =
            later.offset == filled.offset ? later.order > filled.order : later.offset > filled.offset;
        if (isBehind) later.offset += value.GetLength();
    }
    return *this;
}

MStringFormatter& MStringFormatter::Insert(double value) {
    const MFormatSpecification specification = GetNextSpecification();
    return Insert(MDoubleToText(value, specification.precision, specification.plus));
}

MStringFormatter& MStringFormatter::InsertInteger(uint64_t magnitude, bool isNegative) {
    const MFormatSpecification specification = GetNextSpecification();
    return Insert(MIntegerToText(magnitude, isNegative,
                                 {.radix = specification.hexadecimal ? 16u : 10u,
                                  .width = specification.width,
                                  .pad = specification.pad,
                                  .plus = specification.plus}));
}

MFormatSpecification MStringFormatter::GetNextSpecification() const {
    const MStringFormatterData& data = GetData();
    return data.next < data.count ? data.arguments[data.next].specification : MFormatSpecification();
}
