#include "install/registration/MProgramContent.h"

#include <string_view>

bool MIsProgramContent(const void* firstBytes, int32_t size) {
    const std::string_view head(static_cast<const char*>(firstBytes), static_cast<size_t>(size));
    return head.starts_with("\x7f"
                            "ELF") ||
           head.starts_with("#!");
}
