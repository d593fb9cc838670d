#pragma once

#include "foundation/MException.h"
#include "foundation/MString.h"
#include "foundation/MUnicode.h"
#include "streams/MMemoryStream.h"

#include <string>
#include <string_view>

/// The exact text, which `MString ==` would not compare.
inline std::string Exactly(const MString& text) {
    return MEncodeUTF8Exact(text);
}

inline MString Wide(const char16_t* text) {
    return MString::Copy(text);
}

/// The same text in heap form.
inline MString Heap(const char* text) {
    return MString::Copy(text);
}

inline std::string BytesOf(const MCHARBuffer& buffer) {
    return {buffer.Get(), static_cast<size_t>(buffer.GetSize())};
}

inline std::string BytesOf(MMemoryStream& stream) {
    return {stream.GetBuffer().Get(), static_cast<size_t>(stream.GetSize())};
}

/// "text (code)" of the exception that `action` raises, or "" if it raises none.
template <class Action>
std::string FailureOf(Action action) {
    try {
        action();
        return "";
    } catch (const MException& exception) {
        return Exactly(exception.GetMessage()) + " (" + std::to_string(exception.GetCode()) + ")";
    }
}
