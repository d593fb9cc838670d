#pragma once

#include "foundation/base/MList.h"
#include "ui/drawing/MDrawer.h"
#include "ui/stml/MSTMLLook.h"

#include <cstdint>

/// What a text has that says nothing of it. An index of -1 stands for the first one of the style.
struct MSTMLDefaults {
    int32_t font = -1;      ///< of `MStdFont`
    int32_t color = -1;     ///< of `MStdColor`
    uint8_t drawState = 0;  ///< of the control that shows the document, as for `MDrawer::GetFont`
};

/// Hears of the characters of a document in their order.
class MSTMLTextObserver {
public:
    virtual ~MSTMLTextObserver() = default;
    /// `cell` is as wide as the character and as high as its line. A blank at which a line was broken and a
    /// line feed, which each line ends with that was not broken, have none.
    virtual void TakeCharacter(char32_t character, const MRect& cell) = 0;
};

/// What measuring and painting of a document run through, for one call. Drawer and images outlive it.
class MSTMLContext {
public:
    using ImageList = MList<MBitmap>;

    /// The mark is another one than before when fonts or sizes of the drawer have changed; what was measured
    /// with the same mark still holds.
    MSTMLContext(MDrawer& drawer, const MSTMLDefaults& defaults, const ImageList& images, uint32_t mark)
        : drawer(drawer), images(images), mark(mark), defaults(defaults) {}

    /// The font of a look and the colour to use it with; null if the drawer has none.
    [[nodiscard]] MFont* GetFont(const MSTMLLook& look, bool isInverted, MColor& color) const;

    MDrawer& drawer;
    const ImageList& images;
    const uint32_t mark;
    MSTMLTextObserver* observer = nullptr;  ///< hears of what is painted, inside the clip or not

private:
    const MSTMLDefaults defaults;
};
