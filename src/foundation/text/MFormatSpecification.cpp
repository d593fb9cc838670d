#include "foundation/text/MFormatSpecification.h"

#include "foundation/base/MException.h"

namespace {

int32_t ReadDigits(const MString& format, int32_t& position, int32_t most) {
    int32_t value = 0;
    for (; most > 0 && position < format.GetLength() && format[position].IsDigit(); --most)
        value = value * 10 + (format[position++] - '0');
    return value;
}

bool IsDoubled(const MString& format, int32_t position) {
    return position + 1 < format.GetLength() && format[position] == format[position + 1];
}

void ApplyCharacter(MFormatSpecification& specification, MChar character, const MString& format,
                    int32_t& position) {
    switch (character) {
    case ' ':
    case '0':
        specification.pad = character.ToNarrow();
        specification.width = static_cast<uint8_t>(ReadDigits(format, position, 2));
        break;
    case '.': specification.precision = static_cast<uint8_t>(ReadDigits(format, position, 2)); break;
    case '+': specification.plus = true; break;
    case 'x': specification.hexadecimal = true; break;
    default: break;
    }
}

}  // namespace

MFormatSpecification MFormatSpecification::Read(const MString& format, int32_t& position) {
    MFormatSpecification specification;
    specification.number = ReadDigits(format, position, 3);
    while (position < format.GetLength()) {
        const MChar character = format[position++];
        if (character == '}') return specification;
        ApplyCharacter(specification, character, format, position);
    }
    MRaise(MExceptionGeneral, "Formatting string ends in an argument specification.");
}

bool MFormatSpecification::StartsAt(const MString& format, int32_t position) {
    return format[position] == '{' && !IsDoubled(format, position);
}

MChar MFormatSpecification::ReadLiteral(const MString& format, int32_t& position) {
    const MChar character = format[position];
    const bool isBrace = character == '{' || character == '}';
    position += isBrace && IsDoubled(format, position) ? 2 : 1;
    return character;
}
