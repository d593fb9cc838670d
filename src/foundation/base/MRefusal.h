#pragma once

#include "foundation/base/MException.h"
#include "foundation/text/MStringFormatter.h"

/// A run that was refused before anything was changed: what was asked for cannot be, or would do harm. The
/// message says what stands against it and how to go on.
class MRefusal final : public MException {
public:
    explicit MRefusal(const MString& message) : MException(MString(), message, MExceptionInvalidArgument) {}
};

/// Raises `MRefusal` with the translated text, in which "{0}", "{1}" and so on take the values in order.
template <class... Values>
[[noreturn]] void MRefuse(const char* message, const Values&... values) {
    throw MRefusal(MFormat(MTranslate(message), values...));
}
