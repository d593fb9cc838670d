#include "foundation/text/MChar.h"

#include "foundation/base/MException.h"

int32_t MChar::ToHexDigit() const {
    if (IsDigit()) return unit - '0';
    if (unit >= 'A' && unit <= 'F') return unit - 'A' + 10;
    if (unit >= 'a' && unit <= 'f') return unit - 'a' + 10;
    MRaise(MExceptionGeneral, "Invalid character to be converted to a number.");
}
