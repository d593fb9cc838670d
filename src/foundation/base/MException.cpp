#include "foundation/base/MException.h"

MString MTranslate(const MString& message, const MString& /*context*/) {
    return message;
}

void MRaise(int32_t code, const char* message) {
    throw MException(MString(), MTranslate(message), code);
}
