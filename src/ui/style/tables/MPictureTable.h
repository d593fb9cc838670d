#pragma once

#include "ui/control/MCursor.h"
#include "ui/control/kinds/MStdBitmap.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/style/MStyleScale.h"
#include "ui/style/colors/MStyleColors.h"

#include <array>
#include <vector>

class MResourceLibrary;
class MXMLItem;

/// The icons, the signs of message boxes and the pointers of a style, made when they are asked for.
///
/// Icons and signs are coverage masks, the items "icon10_left" and "bitmapyes", given in the colour of icons, so that
/// the inverted look needs no set of its own.
/// Of each there may be several sizes: the definition says by "IconSize10" and the like which sets of icons
/// there are, "IconSizeBase" being that of 100 percent. Larger signs have their size in their name, as
/// "bitmap96_yes", and pointers, which are pictures with alpha, their scale: "cursorarrow", "cursor200_arrow".
class MPictureTable {
public:
    /// The library outlives the table, or the next `Load`.
    void Load(MXMLItem& definition, const MResourceLibrary& resources);
    /// Forgets all pictures; the next ones have this size and these colours. The colours outlive the table.
    void Reset(MStyleScale scale, const MStyleColors& colors);
    void Clear();

    /// Null if there is no such picture. Owned by the table until the next call of another operation.
    [[nodiscard]] MBitmap* GetIcon(int32_t index);
    [[nodiscard]] MBitmap* GetBitmap(int32_t index);
    /// One without a picture is the platform's own.
    [[nodiscard]] const MCursor& GetCursor(MStdCursor cursor);
    /// The size that icons have, in pixels.
    [[nodiscard]] int32_t GetIconSize() const;

private:
    struct Picture {
        MBitmap bitmap;
        bool isMade = false;
    };
    static constexpr size_t CursorCount = std::size(MStdCursorNames);

    [[nodiscard]] MBitmap MakeBitmap(size_t index) const;
    [[nodiscard]] MColor GetSignColor(size_t index) const;
    [[nodiscard]] MCursor MakeCursor(MStdCursor kind) const;

    const MResourceLibrary* resources = nullptr;
    const MStyleColors* colors = nullptr;
    MStyleScale scale;
    std::vector<int32_t> iconSets;
    int32_t baseSet = 10;
    std::array<Picture, std::size(MStdIconNames)> icons;
    std::array<Picture, std::size(MStdBitmapNames)> bitmaps;
    struct Pointer {
        MCursor cursor;
        bool isMade = false;
    };
    std::array<Pointer, CursorCount> cursors;
};
