#pragma once

#include "foundation/text/MStringFormatter.h"

/// Mark-up of what is beside the point, at 70 percent.
[[nodiscard]] inline MString MQuietText(const MString& markup) {
    return "<alpha value=178>" + markup + "</alpha>";
}

/// Mark-up of a thing that can be chosen: its name, and below it what it is, quieter. Both have mark-up.
[[nodiscard]] inline MString MChoiceText(const MString& name, const MString& description) {
    if (description.IsEmpty()) return MFormat("<b>{0}</b>", name);
    return MFormat("<b>{0}</b><justify>{1}", name, MQuietText(description));
}
