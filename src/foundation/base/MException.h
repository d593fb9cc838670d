#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// Kinds of failure, so that a catcher can tell them apart without reading texts.
enum MExceptionCode : int32_t {
    MExceptionGeneral = 0,
    MExceptionNotImplemented = 1,
    MExceptionInvalidArgument = 2,
    MExceptionStreamError = 0x100,
    MExceptionStreamOpen = 0x101,
    MExceptionStreamNotInitialized = 0x102,
    MExceptionNetwork = 0x200,
    MExceptionHTTP = 0x201,
    MExceptionGDI = 0x300,
};

/// The one failure carrier of the system. Thrown by value, caught by reference.
/// The message is the finished text for the user; the context is empty at all throw sites.
class MException {
public:
    MException(const MString& context, const MString& message, int32_t code)
        : context(context), message(message), code(code) {}
    MException(const MException&) = default;
    MException& operator=(const MException&) = default;
    virtual ~MException() = default;

    [[nodiscard]] const MString& GetMessage() const { return message; }
    [[nodiscard]] int32_t GetCode() const { return code; }

private:
    MString context;
    MString message;
    int32_t code;
};

/// The translation hook that every text for the user passes. No table is ever installed: the text comes back.
[[nodiscard]] MString MTranslate(const MString& message, const MString& context = MString());

/// Raises `MException` with the translated text, which has no placeholders. See MRaise.h for the form with
/// values.
[[noreturn]] void MRaise(int32_t code, const char* message);
