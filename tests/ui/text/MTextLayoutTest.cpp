#include "ui/text/MTextLayout.h"
#include "tests/ui/text/TextFixture.h"

#include <vector>

namespace {

constexpr MRect Room = {100, 200, 299, 259};

class MTextLayoutTest : public testing::Test {
protected:
    MTextLayoutTest() {
        font.LoadFromFile(SystemFont("dejavu/DejaVuSansMono.ttf"));
        font.SetSize(-10);
    }
    ~MTextLayoutTest() noexcept override = default;

    std::vector<MPoint> Place(const MString& text, MTextAlignment alignment = MTextLeft, MRect rect = Room) {
        std::vector<MPoint> points;
        MTextLayout layout(font, text, rect, alignment);
        for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);) points.push_back(glyph.point);
        return points;
    }
    /// Where the first glyph begins, as if it had no bearings.
    MPoint PlaceFirst(const MString& text, MTextAlignment alignment, MRect rect = Room) {
        const MGlyph& glyph = font.GetGlyph(text[0]);
        return Place(text, alignment, rect).front() - MPoint{glyph.left, font.GetAscent() - glyph.top};
    }

    MFont font;
};

}  // namespace

TEST_F(MTextLayoutTest, EachAlignmentHasItsEdge) {
    const int32_t width = font.GetTextWidth("abcde");
    const int32_t height = font.GetAscent() + font.GetDescent();
    const int32_t center = Room.left + (200 - width + 1) / 2;
    const int32_t right = Room.left + 200 - width;
    const int32_t middle = Room.top + (60 - height) / 2;
    const int32_t bottom = Room.top + 60 - height;
    const std::pair<MTextAlignment, MPoint> cases[] = {
        {MTextLeft | MTextTop, {Room.left, Room.top}}, {MTextCenter | MTextTop, {center, Room.top}},
        {MTextRight | MTextTop, {right, Room.top}},    {MTextLeft | MTextMiddle, {Room.left, middle}},
        {MTextCenter | MTextMiddle, {center, middle}}, {MTextRight | MTextBottom, {right, bottom}}};
    for (const auto& [alignment, expected] : cases)
        EXPECT_EQ(PlaceFirst("abcde", alignment), expected) << alignment;
    font.SetVerticalShift(4);
    font.SetCharacterSpace(2);
    // The last letter stands at the edge: there is no space behind it.
    EXPECT_EQ(PlaceFirst("abcde", MTextRight | MTextBottom), (MPoint{right - 8, bottom + 4}));
    EXPECT_EQ(Place("x\r x")[1].x - Place("x")[0].x, 2 * (font.GetGlyph('x').advance + 2));
    EXPECT_TRUE(Place(" \n ").empty());
    // What is too large begins at the edges.
    const MRect small = MRect::FromSize(7, 9, 10, 3);
    EXPECT_EQ(PlaceFirst("abc", MTextCenter | MTextMiddle, small), (small.GetTopLeft() + MPoint{0, 4}));
    EXPECT_EQ(PlaceFirst("abc", MTextRight | MTextBottom, small), (small.GetTopLeft() + MPoint{0, 4}));
    // Letters far to the left leave more room than there is.
    font.SetCharacterSpace(-1e9);
    EXPECT_GT(PlaceFirst("abc", MTextRight, {0, 0, 1 << 30, 9}).x, 1 << 29);
}

TEST_F(MTextLayoutTest, EachLineIsAlignedByItself) {
    const int32_t advance = font.GetGlyph('x').advance;
    const std::vector<MPoint> left = Place("xxx\nx\n\nx");
    const std::vector<MPoint> right = Place("xxx\nx\n\nx", MTextRight | MTextBottom);
    ASSERT_EQ(left.size() + right.size(), 10u);
    EXPECT_EQ(left[4], (MPoint{left[0].x, left[0].y + 3 * font.GetLineHeight()}));
    EXPECT_EQ(right[3].x, right[2].x);
    EXPECT_EQ(right[2].x - right[0].x, 2 * advance);
    EXPECT_EQ(MTextLayout::GetWidth(font, "xxx\nx\n\nx"), 3 * advance);
    EXPECT_EQ(MTextLayout::GetHeight(font, "xxx\nx\n\nx"),
              3 * font.GetLineHeight() + font.GetAscent() + font.GetDescent());
    EXPECT_EQ(right[4].y - left[4].y, 60 - MTextLayout::GetHeight(font, "xxx\nx\n\nx"));
}
