#pragma once

#include "foundation/values/MValue.h"
#include "ui/widgets/content/MContents.h"

#include <memory>

/// The value's text, for controls that show it.
[[nodiscard]] inline std::unique_ptr<MContent> MGetContent(const MValue& value) {
    return std::make_unique<MContentText>(value.GetText());
}

/// The text that the value would have at a position of its range, from 0 to 1.
[[nodiscard]] inline std::unique_ptr<MContent> MGetContentAt(MValue& value, double position) {
    return std::make_unique<MContentText>(value.GetTextAt(position));
}
