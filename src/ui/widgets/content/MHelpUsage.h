#pragma once

#include "foundation/base/MException.h"
#include "foundation/xml/MXMLItem.h"

#include <span>

/// What a kind of control tells of itself in its help (`MControl::WriteHelpInfo`): its general usage, or an
/// empty text, and what can be done with it. Texts are translated here.
inline void MWriteUsage(MXMLItem& item, const char* usage, std::span<const char* const> entries) {
    MXMLItem* const general = item.GetOrAddSubItem("control");
    if (*usage) general->SetValue(MTranslate(usage));
    for (const char* entry : entries) item.AddSubItem("controlitem")->SetValue(MTranslate(entry));
}
