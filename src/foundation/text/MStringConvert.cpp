#include "foundation/text/MString.h"
#include "foundation/text/encodings/MEncoding.h"

#include <algorithm>

MCHARBuffer MString::ToNarrow(bool terminate) const {
    MCHARBuffer buffer;
    const int32_t extra = terminate ? 1 : 0;
    if (IsLiteral()) {
        buffer.Attach(narrow, length + extra);
        return buffer;
    }
    buffer.ResizeCount(length + extra);
    char* target = buffer.Edit();
    std::transform(units, units + length, target,
                   [](char16_t unit) { return MChar(unit).FoldDiacritics().ToNarrow(); });
    if (terminate) target[length] = 0;
    return buffer;
}

MCHARBuffer MString::ToUTF8(bool terminate) const {
    return MEncoding::GetUTF8Codec().Encode(*this, terminate);
}

MCHARBuffer MString::ToUTF8Attached() const {
    return IsLiteral() ? ToNarrow(false) : ToUTF8(false);
}

MWCHARBuffer MString::ToWide() const {
    MWCHARBuffer buffer;
    if (!IsLiteral()) {
        buffer.Attach(units, (length + 1) * static_cast<int32_t>(sizeof(char16_t)));
        return buffer;
    }
    buffer.ResizeCount(length + 1);
    std::transform(narrow, narrow + length + 1, buffer.Edit(),
                   [](char byte) -> char16_t { return MChar(byte); });
    return buffer;
}
