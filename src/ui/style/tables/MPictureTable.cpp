#include "ui/style/tables/MPictureTable.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/resources/MResourceLibrary.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/style/images/MComposite.h"
#include "ui/style/images/TexturedImage.h"

#include <algorithm>
#include <cstdlib>

namespace {

/// The sets of icons that there may be.
constexpr int32_t IconSets[] = {10, 13, 17, 21, 26, 31, 42};
/// Larger forms of signs and pointers.
constexpr int32_t BitmapSizes[] = {48, 60, 72, 96, 144};
constexpr int32_t CursorSizes[] = {32, 40, 48, 64, 96};

/// How much a picture may differ from the size that is wanted and still be shown as it is, in percent: its
/// stems lie on whole pixels, which is worth more than the right size.
constexpr int32_t Tolerance = 20;

bool IsNear(int32_t size, int32_t wanted) {
    return std::abs(size - wanted) * 100 <= wanted * Tolerance;
}

/// The item of a name in the size that is nearest to the one that is wanted; that of 100 percent has none in
/// its name.
MString FindSized(const MResourceLibrary& resources, const char* kind, const char* name,
                  std::span<const int32_t> sizes, int32_t wanted) {
    MString best = MFormat("{0}{1}", kind, name);
    int32_t distance = std::abs(sizes[0] - wanted);
    for (const int32_t size : sizes) {
        const MString id = MFormat("{0}{1}_{2}", kind, size, name);
        if (std::abs(size - wanted) >= distance || !resources.HasResource(id)) continue;
        best = id;
        distance = std::abs(size - wanted);
    }
    return best;
}

}  // namespace

void MPictureTable::Load(MXMLItem& definition, const MResourceLibrary& newResources) {
    Clear();
    resources = &newResources;
    baseSet = std::clamp(definition.GetInt32Attribute("IconSizeBase", 10), 1, 256);
    iconSets.clear();
    for (const int32_t set : IconSets)
        if (definition.GetInt32Attribute(MFormat("IconSize{0}", set), 0) != 0) iconSets.push_back(set);
}

void MPictureTable::Reset(MStyleScale newScale, const MStyleColors& newColors) {
    scale = newScale;
    colors = &newColors;
    for (Picture& picture : icons) picture = Picture();
    for (Picture& picture : bitmaps) picture = Picture();
    for (Pointer& pointer : cursors) pointer = Pointer();
}

void MPictureTable::Clear() {
    resources = nullptr;
    for (Picture& picture : icons) picture = Picture();
    for (Picture& picture : bitmaps) picture = Picture();
    for (Pointer& pointer : cursors) pointer = Pointer();
}

int32_t MPictureTable::GetIconSet() const {
    const int32_t wanted = MStyleScale::Scale(baseSet, scale.GetSmaller());
    const auto isNearer = [&](int32_t one, int32_t other) {
        return std::abs(one - wanted) < std::abs(other - wanted);
    };
    // Of two that are as near the larger one, which comes last.
    const auto best = std::min_element(iconSets.rbegin(), iconSets.rend(), isNearer);
    return best == iconSets.rend() ? baseSet : *best;
}

int32_t MPictureTable::GetIconSize() const {
    const int32_t wanted = MStyleScale::Scale(baseSet, scale.GetSmaller());
    const int32_t set = GetIconSet();
    return IsNear(set, wanted) ? set : wanted;
}

MBitmap MPictureTable::Tint(MBitmap mask, MColor color) const {
    mask.ChangeColors([color](MColor pixel) { return color.WithAlpha(pixel.alpha); });
    return mask;
}

MBitmap* MPictureTable::GetIcon(int32_t index) {
    if (!resources || index < 0 || index >= static_cast<int32_t>(icons.size())) return nullptr;
    const auto number = static_cast<size_t>(index);
    Picture& icon = icons[number];
    if (!icon.isMade) {
        icon.isMade = true;
        const int32_t set = GetIconSet();
        MBitmap mask = MLoadPicture(*resources, MFormat("icon{0}_{1}", set, MStdIconNames[number]));
        if (!mask.IsEmpty() && set != GetIconSize())
            mask = MResample(mask,
                             {mask.GetWidth() * GetIconSize() / set, mask.GetHeight() * GetIconSize() / set});
        if (!mask.IsEmpty()) icon.bitmap = Tint(mask, colors->Get(MStyleTone::Shape));
    }
    return icon.bitmap.IsEmpty() ? nullptr : &icon.bitmap;
}

MColor MPictureTable::GetSignColor(size_t index) const {
    switch (static_cast<MStdBitmap>(index)) {
    case MStdBitmap::Yes: return colors->GetStdColor(static_cast<int32_t>(MStdColor::Green), false);
    case MStdBitmap::No: return colors->GetStdColor(static_cast<int32_t>(MStdColor::Red), false);
    default: return colors->Get(MStyleTone::Accent);
    }
}

MBitmap MPictureTable::MakeBitmap(size_t index) const {
    const int32_t wanted = MStyleScale::Scale(BitmapSizes[0], scale.GetSmaller());
    const MString id = FindSized(*resources, "bitmap", MStdBitmapNames[index], BitmapSizes, wanted);
    MBitmap mask = MLoadPicture(*resources, id);
    if (mask.IsEmpty()) return mask;
    if (!IsNear(mask.GetHeight(), wanted))
        mask = MResample(mask, {mask.GetWidth() * wanted / mask.GetHeight(), wanted});
    return Tint(mask, GetSignColor(index));
}

MBitmap* MPictureTable::GetBitmap(int32_t index) {
    if (!resources || index < 0 || index >= static_cast<int32_t>(bitmaps.size())) return nullptr;
    const auto number = static_cast<size_t>(index);
    Picture& picture = bitmaps[number];
    if (!picture.isMade) {
        picture.isMade = true;
        picture.bitmap = MakeBitmap(number);
    }
    return picture.bitmap.IsEmpty() ? nullptr : &picture.bitmap;
}

MCursor MPictureTable::MakeCursor(MStdCursor kind) const {
    MCursor cursor;
    cursor.kind = kind;
    const char* const name = MStdCursorNames[static_cast<size_t>(kind)];
    const int32_t wanted = MStyleScale::Scale(CursorSizes[0], scale.GetSmaller());
    const MString id = FindSized(*resources, "cursor", name, CursorSizes, wanted);
    cursor.bitmap = MLoadPicture(*resources, id);
    if (cursor.bitmap.IsEmpty()) return cursor;
    const MXMLItem& item = resources->GetResource(id).GetItem();
    cursor.hotSpot = {std::clamp(item.GetInt32Attribute("hotx", 0), 0, cursor.bitmap.GetWidth() - 1),
                      std::clamp(item.GetInt32Attribute("hoty", 0), 0, cursor.bitmap.GetHeight() - 1)};
    cursor.minalpha = static_cast<uint8_t>(std::clamp(item.GetInt32Attribute("minalpha", 128), 0, 255));
    return cursor;
}

const MCursor& MPictureTable::GetCursor(MStdCursor cursor) {
    const auto index = std::min(static_cast<size_t>(cursor), CursorCount - 1);
    Pointer& pointer = cursors[index];
    if (!pointer.isMade) {
        pointer.cursor.kind = cursor;
        if (resources) {
            pointer.isMade = true;
            pointer.cursor = MakeCursor(cursor);
        }
    }
    return pointer.cursor;
}
