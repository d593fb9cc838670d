#include "ui/style/colors/MStyleColors.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/style/colors/MContrast.h"

#include <algorithm>

namespace {

uint8_t Mix(uint8_t from, uint8_t to, int32_t strength) {
    return static_cast<uint8_t>((from * (255 - strength) + to * strength + 127) / 255);
}

MColor Mix(MColor from, MColor to, int32_t strength) {
    return {Mix(from.blue, to.blue, strength), Mix(from.green, to.green, strength),
            Mix(from.red, to.red, strength), from.alpha};
}

MColor WithOppositeLightness(MColor color) {
    return color.WithLightnessOf(color.Inverted());
}

uint8_t GetByte(const MXMLItem& item, const MString& attribute, int32_t defaultValue) {
    return static_cast<uint8_t>(std::clamp(item.GetInt32Attribute(attribute, defaultValue), 0, 255));
}

/// Where a colour comes from that a definition does not give: from a main colour, at a lightness in percent.
struct DefaultTone {
    int32_t mainColor;
    int32_t lightness;
    uint8_t alpha;
};

constexpr DefaultTone DefaultTones[] = {{0, 93, 255}, {0, 78, 255}, {0, 71, 255}, {0, 18, 255}, {0, 21, 255},
                                        {0, 27, 255}, {0, 32, 255}, {0, 24, 255}, {0, 13, 255}, {0, 12, 255},
                                        {0, 93, 33},  {0, 54, 255}, {0, 100, 23}, {0, 0, 87},   {3, 58, 255},
                                        {3, 49, 255}, {3, 6, 255},  {3, 66, 255}, {3, 58, 44}};

/// What coloured text stands on.
constexpr MStyleTone Surfaces[] = {MStyleTone::Ground, MStyleTone::Panel, MStyleTone::Sunk};

}  // namespace

void MColorTransfer::Load(MXMLItem& item, std::span<const char* const, Count + 1> keys) {
    if (item.HasAttribute(keys[0])) strength[0] = GetByte(item, keys[0], 0);
    for (size_t i = 0; i < Count; ++i) strength[i] = GetByte(item, keys[i + 1], strength[i]);
    saturation = GetByte(item, "colorizewithsaturation", saturation);
    brightness = GetByte(item, "colorizewithbrightness", brightness);
}

MColor MColorTransfer::Apply(MColor color, std::span<const MColor, Count> mainColors) const {
    for (size_t i = 0; i < Count; ++i) {
        if (strength[i] == 0) continue;
        const MColor bright = brightness ? Mix(color, mainColors[i], brightness) : color;
        const MColor colored = mainColors[i].WithLightnessOf(bright);
        const MColor grey = MColor::FromRGB(127, 127, 127).WithLightnessOf(bright);
        color = Mix(color, Mix(grey, colored, saturation), strength[i]);
    }
    return color;
}

void MStyleColors::Load(MXMLItem& definition) {
    for (size_t i = 0; i < defaultColors.size(); ++i)
        defaultColors[i] = MColor::Parse(definition.GetAttribute(MFormat("MainColor{0}", i), "000000FF"));
    mainColors = defaultColors;
    entries.clear();
    if (MXMLItem* const item = definition.FindSubItem("colors")) {
        for (MXMLItem* entry : item->GetSubItems()) AddEntry(*entry);
        for (const char* name : MStdColorNames) {
            if (!item->HasAttribute(name)) continue;
            Entry entry;
            entry.name = name;
            entry.color = MColor::Parse(item->GetCachedAttribute());
            entries.push_back(entry);
        }
    }
    Resolve();
}

void MStyleColors::AddEntry(MXMLItem& item) {
    Entry entry;
    entry.name = item.GetName();
    entry.color = MColor::Parse(item.GetAttribute("color"));
    entry.hasInverted = item.HasAttribute("inverted");
    if (entry.hasInverted) entry.inverted = MColor::Parse(item.GetCachedAttribute());
    entry.transfer.Load(item);
    entries.push_back(entry);
}

void MStyleColors::SetMainColors(const MainColors& colors) {
    mainColors = colors;
    Resolve();
}

void MStyleColors::SetInverted(bool newIsInverted) {
    isInverted = newIsInverted;
    Resolve();
}

const MStyleColors::Entry* MStyleColors::Find(const MString& name) const {
    const auto found = std::ranges::find_if(entries, [&](const Entry& entry) { return entry.name == name; });
    return found == entries.end() ? nullptr : &*found;
}

MColor MStyleColors::Resolve(const Entry& entry, bool keepsLightness) const {
    const bool inverts = isInverted && !keepsLightness;
    const MColor given = inverts && entry.hasInverted ? entry.inverted : entry.color;
    const MColor color = entry.transfer.Apply(given, mainColors);
    return inverts && !entry.hasInverted ? WithOppositeLightness(color) : color;
}

MColor MStyleColors::Get(const MString& text, const MColorTransfer& transfer, bool keepsLightness) const {
    const Entry* const entry = Find(text);
    if (entry) return transfer.Apply(Resolve(*entry, keepsLightness), mainColors);
    for (size_t i = 0; i < tones.size(); ++i)
        if (text == MStyleToneNames[i]) return transfer.Apply(tones[i], mainColors);
    const MColor color = transfer.Apply(MColor::Parse(text), mainColors);
    return isInverted && !keepsLightness ? WithOppositeLightness(color) : color;
}

MColor MStyleColors::GetDefault(MStyleTone tone) const {
    const DefaultTone& from = DefaultTones[static_cast<size_t>(tone)];
    const auto level = static_cast<uint8_t>(from.lightness * 255 / 100);
    const MColor color =
        mainColors[static_cast<size_t>(from.mainColor)].WithLightnessOf(MColor::FromRGB(level, level, level));
    return (isInverted ? WithOppositeLightness(color) : color).WithAlpha(from.alpha);
}

void MStyleColors::Resolve() {
    static_assert(std::size(DefaultTones) == std::size(MStyleToneNames));
    for (size_t i = 0; i < tones.size(); ++i) {
        const Entry* const entry = Find(MStyleToneNames[i]);
        tones[i] = entry ? Resolve(*entry, false) : GetDefault(static_cast<MStyleTone>(i));
    }
    std::array<MColor, std::size(Surfaces)> surfaces;
    std::ranges::transform(Surfaces, surfaces.begin(), [this](MStyleTone tone) { return Get(tone); });
    const MColor accents[] = {Get(MStyleTone::Accent), Get(MStyleTone::AccentDeep)};
    for (size_t i = 0; i < StdColorCount; ++i) {
        const auto tone = static_cast<MStyleTone>(i);
        const bool isPlain = i <= static_cast<size_t>(MStdColor::Shape);
        const Entry* const entry = Find(MStdColorNames[i]);
        // The lightness of a colour that has no inverted form follows what it stands on.
        const MColor color =
            isPlain || !entry ? Get(isPlain ? tone : MStyleTone::Text) : Resolve(*entry, !entry->hasInverted);
        stdColors[0][i] = isPlain ? color : MContrast::GetReadable(color, surfaces, MContrast::Text);
        stdColors[1][i] =
            isPlain ? Get(MStyleTone::AccentText) : MContrast::GetReadable(color, accents, MContrast::Text);
    }
}

MColor MStyleColors::GetStdColor(int32_t index, bool isSelected) const {
    const auto limited = static_cast<size_t>(std::clamp(index, 0, static_cast<int32_t>(StdColorCount) - 1));
    return stdColors[isSelected ? 1 : 0][limited];
}
