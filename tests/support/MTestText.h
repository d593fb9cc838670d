#pragma once

#include "foundation/base/MException.h"
#include "foundation/text/MUnicode.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <ostream>
#include <string>

/// A text as gtest compares and prints it: every character counts.
inline std::string Text(const MString& text) {
    return MEncodeUTF8Exact(text);
}

/// A text in the form of 16-bit characters on the heap, as most texts of a program are.
inline MString Wide(const char16_t* text) {
    return MString::Copy(text);
}
inline MString Heap(const char* text) {
    return MString::Copy(text);
}

inline void PrintTo(const MString& text, std::ostream* out) {
    *out << '"' << Text(text) << '"';
}

/// The code, in hexadecimal, and the text with which `body` fails, as in "100: Could not perform file seek.";
/// "none" if it does not fail.
template <class Body>
std::string FailureOf(Body&& body) {
    try {
        body();
        return "none";
    } catch (const MException& exception) {
        char code[16];
        std::snprintf(code, sizeof(code), "%x: ", static_cast<unsigned>(exception.GetCode()));
        return code + Text(exception.GetMessage());
    }
}
