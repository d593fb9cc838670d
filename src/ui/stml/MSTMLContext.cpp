#include "ui/stml/MSTMLContext.h"

#include <algorithm>

MFont* MSTMLContext::GetFont(const MSTMLLook& look, bool isInverted, MColor& color) const {
    const int32_t fontIndex = std::max(0, look.font < 0 ? defaults.font : look.font);
    const int32_t colorIndex = std::max(0, look.color < 0 ? defaults.color : look.color);
    MFont* const font =
        drawer.GetFont(fontIndex, colorIndex, isInverted != look.isInverted, defaults.drawState, color);
    color.alpha = static_cast<uint8_t>(color.alpha * look.alpha / 255);
    return font;
}
