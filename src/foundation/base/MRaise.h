#pragma once

#include "foundation/base/MException.h"
#include "foundation/text/MStringFormatter.h"

/// Raises `MException` with the translated text, in which "{0}", "{1}" and so on take the values in order.
template <class First, class... Others>
[[noreturn]] void MRaise(int32_t code, const char* message, const First& first, const Others&... others) {
    throw MException(MString(), MFormat(MTranslate(message), first, others...), code);
}
