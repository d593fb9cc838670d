#pragma once

#include "foundation/MException.h"
#include "foundation/MUnicode.h"

#include <cstdio>
#include <ostream>
#include <string>

/// A text as gtest compares and prints it: every character counts.
inline std::string Text(const MString& text) {
    return MEncodeUTF8Exact(text);
}

inline void PrintTo(const MString& text, std::ostream* out) {
    *out << '"' << Text(text) << '"';
}

/// The code and text with which `body` fails, as in "100: Could not perform file seek."; the code in
/// hexadecimal.
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
