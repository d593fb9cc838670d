#pragma once

#include "ui/stml/MSTMLContainer.h"

#include <array>
#include <cstdint>

/// Text with mark-up (the tags: MSTMLParser.h), parsed once, measured for any width and painted. Mark-up
/// never fails: what a syntax error leaves unread is not there.
///
/// What was measured is kept until fonts or sizes of the drawer change, so painting and asking again cost
/// little. Belongs to one thread; a parse ends before another begins.
class MSTML final : public MSTMLContainer {
public:
    MSTML() = default;
    explicit MSTML(const MString& text) { Parse(text); }

    /// Replaces what the document holds. The images stay.
    void Parse(const MString& text);
    void Reset();

    /// Font, colour and state of what says nothing else.
    void SetDefaults(const MSTMLDefaults& newDefaults);
    /// The flags of paragraphs (`MSTMLParagraph`) as long as no tag says more, from the next parse on. The
    /// vertical ones also tell where the document stands in a rectangle that is higher.
    void SetDefaultFlags(uint8_t newFlags) { defaultFlags = newFlags; }
    /// Adds the next image for `img`, which shares the bitmap's pixels as they are now. Gives its number,
    /// from 0 on.
    int32_t AddImage(const MBitmap& bitmap);

    // Lengths are in pixels.
    /// The height for a width.
    [[nodiscard]] int32_t Measure(MDrawer& drawer, int32_t width);
    /// The same; `outWidth` becomes what the document needs of the width.
    [[nodiscard]] int32_t GetHeightForWidth(MDrawer& drawer, int32_t width, int32_t& outWidth);
    /// The width below which words are cut, and that above which nothing changes.
    [[nodiscard]] int32_t GetMinimalWidth(MDrawer& drawer);
    [[nodiscard]] int32_t GetMaximalWidth(MDrawer& drawer);
    /// The narrowest width that gives no other height than `width`.
    [[nodiscard]] int32_t GetOptimalWidth(MDrawer& drawer, int32_t width);
    /// Paints the document into a rectangle, for its width; what does not fit into its height goes beyond.
    void Paint(MDrawer& drawer, const MRect& rect, bool isInverted);

    /// Tells where the characters would be painted.
    void Observe(MDrawer& drawer, const MRect& rect, MSTMLTextObserver& observer);

    [[nodiscard]] MSTML* Clone() const override { return new MSTML(*this); }

private:
    using MSTMLContainer::GetMaximalWidth;
    using MSTMLContainer::GetMinimalWidth;
    using MSTMLContainer::Paint;

    /// What of a drawer measures depend on: scale, sizes and fonts.
    using Signature = std::array<uint32_t, 40>;

    [[nodiscard]] MSTMLContext MakeContext(MDrawer& drawer);
    void PaintInside(MSTMLContext& context, const MRect& rect, bool isInverted);

    MSTMLDefaults defaults;
    uint8_t defaultFlags = 0;
    MSTMLContext::ImageList images;
    Signature signature = {};
    uint32_t mark = 0;
};
