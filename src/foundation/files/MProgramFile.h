#pragma once

#include <string_view>

/// Whether a file that begins so is a program, an ELF image or a script with an interpreter line. Platforms
/// with execute permissions want them set on such files.
[[nodiscard]] constexpr bool MBeginsProgram(std::string_view bytes) {
    return bytes.starts_with("\x7f"
                             "ELF") ||
           bytes.starts_with("#!");
}
