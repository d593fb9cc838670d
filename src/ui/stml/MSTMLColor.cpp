#include "ui/stml/MSTMLColor.h"

#include "foundation/base/MGuard.h"
#include "foundation/text/MNumberText.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/drawing/MDrawer.h"
#include "ui/image/MNames.h"

MSTMLColor MSTMLColor::Parse(const MString& text) {
    if (const int32_t named = MFindName(MStdColorNames, text); named >= 0) return {named, Transparent};
    if (text.GetLength() == 1 && text[0].IsDigit()) {
        const int32_t index = MParseInt32(text);
        return {index < static_cast<int32_t>(std::size(MStdColorNames)) ? index : -1, Transparent};
    }
    MSTMLColor fixed;
    MGuard("MSTMLColor::Parse", [&] { fixed.color = MColor::Parse(text); });
    return fixed;
}

MColor MSTMLColor::Get(MDrawer& drawer, bool isInverted) const {
    return index < 0 ? color : drawer.GetTextColor(index, isInverted);
}
