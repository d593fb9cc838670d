#include "ui/style/tables/MPictureTable.h"

#include "foundation/base/MGuard.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/resources/MResourceLibrary.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/image/MAlphaMask.h"
#include "ui/style/images/TexturedImage.h"

#include <algorithm>
#include <cstdlib>

namespace {

/// The sets of icons that there may be, in pixels.
constexpr int32_t IconSets[] = {10, 13, 17, 21, 30};
/// The forms of signs, in pixels, and of pointers, in percent. The first one has no number in its name.
constexpr int32_t BitmapSizes[] = {48, 60, 72, 96, 144};
constexpr int32_t CursorScales[] = {100, 150, 200, 300};

/// The item of a name in the form that is nearest to the one that is wanted. Nothing is scaled: stems lie on
/// whole pixels, which is worth more than the right size.
MString FindForm(const MResourceLibrary& resources, const char* kind, const char* name,
                 std::span<const int32_t> forms, int32_t wanted) {
    MString best = MFormat("{0}{1}", kind, name);
    int32_t distance = std::abs(forms[0] - wanted);
    for (const int32_t form : forms) {
        const MString id = MFormat("{0}{1}_{2}", kind, form, name);
        if (std::abs(form - wanted) >= distance || !resources.HasResource(id)) continue;
        best = id;
        distance = std::abs(form - wanted);
    }
    return best;
}

/// A coverage in one colour. It is a stored mask, or the alpha of a picture.
MBitmap LoadMask(const MResourceLibrary& resources, const MString& id, MColor color) {
    MBitmap bitmap;
    if (!resources.HasResource(id)) return bitmap;
    MAlphaMask mask;
    if (!MGuard("Load style mask", [&] { mask.Load(resources.GetResource(id).Open()); })) {
        bitmap = MLoadPicture(resources, id);
        if (!bitmap.IsEmpty())
            bitmap.ChangeColors([color](MColor pixel) { return color.WithAlpha(pixel.alpha); });
        return bitmap;
    }
    bitmap.Create(mask.GetWidth(), mask.GetHeight());
    if (bitmap.IsEmpty()) return bitmap;
    const uint8_t* const bytes = mask.GetBytes();
    std::transform(bytes, bytes + int64_t{mask.GetWidth()} * mask.GetHeight(), bitmap.EditPixels(),
                   [color](uint8_t alpha) { return color.WithAlpha(alpha); });
    return bitmap;
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

int32_t MPictureTable::GetIconSize() const {
    const int32_t wanted = MStyleScale::Scale(baseSet, scale.GetSmaller());
    const auto isNearer = [&](int32_t one, int32_t other) {
        return std::abs(one - wanted) < std::abs(other - wanted);
    };
    // Of two that are as near the larger one, which comes last.
    const auto best = std::min_element(iconSets.rbegin(), iconSets.rend(), isNearer);
    return best == iconSets.rend() ? baseSet : *best;
}

MBitmap* MPictureTable::GetIcon(int32_t index) {
    if (!resources || index < 0 || index >= static_cast<int32_t>(icons.size())) return nullptr;
    const auto number = static_cast<size_t>(index);
    Picture& icon = icons[number];
    if (!icon.isMade) {
        icon.isMade = true;
        icon.bitmap = LoadMask(*resources, MFormat("icon{0}_{1}", GetIconSize(), MStdIconNames[number]),
                               colors->Get(MStyleTone::Shape));
    }
    return icon.bitmap.IsEmpty() ? nullptr : &icon.bitmap;
}

MColor MPictureTable::GetSignColor(size_t index) const {
    switch (static_cast<MStdBitmap>(index)) {
    case MStdBitmap::Yes: return colors->GetStdColor(static_cast<int32_t>(MStdColor::Green), false);
    case MStdBitmap::No: return colors->GetStdColor(static_cast<int32_t>(MStdColor::Red), false);
    default: return colors->Get(MStyleTone::Ring);
    }
}

MBitmap MPictureTable::MakeBitmap(size_t index) const {
    const int32_t wanted = MStyleScale::Scale(BitmapSizes[0], scale.GetSmaller());
    const MString id = FindForm(*resources, "bitmap", MStdBitmapNames[index], BitmapSizes, wanted);
    return LoadMask(*resources, id, GetSignColor(index));
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
    const MString id = FindForm(*resources, "cursor", name, CursorScales, scale.GetSmaller());
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
