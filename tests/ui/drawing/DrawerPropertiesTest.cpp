// What holds for every primitive, whatever its arguments.

#include "tests/ui/drawing/RandomPrimitives.h"
#include "ui/drawing/MClipScope.h"

namespace {

constexpr int32_t Width = 61;
constexpr int32_t Height = 43;
const MRect All = MRect::FromSize(0, 0, Width, Height);

/// The noise that everything is painted on.
MBitmap MakeGround() {
    return MMakeNoise(Width, Height, 3);
}

/// Paints a primitive within each of some clips; the seed decides about its arguments.
MBitmap Paint(int32_t primitive, uint32_t seed, std::initializer_list<MRect> clips) {
    MBitmap bitmap = MakeGround();
    for (const MRect& clip : clips) {
        MDrawerToMBitmap drawer(bitmap);
        drawer.SetClip(clip);
        PaintPrimitive(primitive, drawer, seed);
    }
    return bitmap;
}

}  // namespace

TEST(DrawerPropertiesTest, HoldForAllPrimitives) {
    const MBitmap ground = MakeGround();
    for (int32_t i = 0; i < PrimitiveCount * PRIMITIVE_ROUNDS && !HasFailure(); ++i) {
        const int32_t primitive = i / PRIMITIVE_ROUNDS;
        const auto seed = static_cast<uint32_t>(i % PRIMITIVE_ROUNDS);
        SCOPED_TRACE(testing::Message() << "primitive " << primitive << ", seed " << seed);
        Random where(seed + 1000);

        // Nothing outside of the clip changes.
        const MRect clip = where.GetRect();
        EXPECT_EQ(MFindDifference(Paint(primitive, seed, {clip}), ground, clip, false), "");

        // Painting in pieces equals painting once.
        const int32_t x = where.Get(-3, Width + 3);
        const int32_t y = where.Get(-3, Height + 3);
        const MBitmap pieces =
            Paint(primitive, seed,
                  {{-99, -99, x, y}, {x + 1, -99, 999, y}, {-99, y + 1, x, 999}, {x + 1, y + 1, 999, 999}});
        EXPECT_EQ(MFindDifference(Paint(primitive, seed, {All}), pieces), "");

        // What a chain of drawers hands on arrives where their origins lie together, within the clip of the chain.
        const MPoint first = where.GetPoint();
        const MPoint second = where.GetPoint();
        MBitmap chained = ground;
        MDrawerToMBitmap target(chained);
        MDrawer middle(&target);
        middle.SetTranslation(first.x, first.y);
        MDrawer inner(&middle);
        inner.SetTranslation(second.x, second.y);
        EXPECT_EQ(inner.GetClip(), All.Shifted(MPoint() - first - second));
        inner.SetClip(clip);
        PaintPrimitive(primitive, inner, seed);
        MBitmap direct = ground;
        MDrawerToMBitmap shifted(direct);
        shifted.SetTranslation(first.x + second.x, first.y + second.y);
        shifted.SetClip(clip);
        EXPECT_EQ(shifted.GetClip(), clip);
        PaintPrimitive(primitive, shifted, seed);
        EXPECT_EQ(MFindDifference(chained, direct), "");
        EXPECT_EQ(MFindDifference(direct, ground, clip.Shifted(first + second), false), "");

        // What is opaque stays so in all modes but one.
        if (Random(seed).GetMode() == MDrawMode::Copy) continue;
        MBitmap opaque;
        opaque.CreateOpaque(Width, Height);
        MDrawerToMBitmap onOpaque(opaque);
        PaintPrimitive(primitive, onOpaque, seed);
        EXPECT_TRUE(std::all_of(opaque.GetPixels(), opaque.GetPixels() + Width * Height,
                                [](MColor pixel) { return pixel.alpha == 255; }));
    }
}

TEST(DrawerPropertiesTest, WithoutABitmapNothingHappens) {
    MBitmap empty, paletted;
    paletted.CreatePaletted(8, 8);
    MDrawerToMBitmap nowhere, onEmpty(empty), onPaletted(paletted);
    MDrawer withoutTarget;
    for (MDrawer* drawer : std::initializer_list<MDrawer*>{&nowhere, &onEmpty, &onPaletted, &withoutTarget})
        for (int32_t primitive = 0; primitive < PrimitiveCount; ++primitive)
            PaintPrimitive(primitive, *drawer, 4);
    EXPECT_EQ(paletted.GetIndices()[3 * 8 + 3], 0);
}

TEST(DrawerPropertiesTest, AClipScopeNarrowsAndBringsBack) {
    MBitmap bitmap = MakeGround();
    MDrawerToMBitmap drawer(bitmap);
    {
        MClipScope outer(drawer);
        EXPECT_FALSE(outer.Intersect({10, 10, 20, 20}));
        MClipScope inner(drawer);
        EXPECT_FALSE(inner.Intersect({15, 0, 100, 100}));
        EXPECT_EQ(drawer.GetClip(), (MRect{15, 10, 20, 20}));
        EXPECT_TRUE(inner.Intersect({0, 0, 14, 100}));
    }
    EXPECT_EQ(drawer.GetClip(), All);
}

TEST(DrawerPropertiesTest, ASizeOfZeroIsThatOfTheTarget) {
    MBitmap bitmap = MakeGround();
    MDrawerToMBitmap target(bitmap);
    MDrawer chained(&target);
    for (MDrawer* drawer : {&chained, static_cast<MDrawer*>(&target)})
        for (const auto& [own, answered] : {std::pair{MPoint{30, 0}, MPoint{30, Height}},
                                            {MPoint{0, 20}, MPoint{Width, 20}},
                                            {MPoint{0, 0}, MPoint{Width, Height}}}) {
            drawer->SetSize(own.x, own.y);
            EXPECT_EQ((MPoint{drawer->GetWidth(), drawer->GetHeight()}), answered);
        }
}

TEST(DrawerPropertiesTest, RectanglesUniteAroundWhatIsNotEmpty) {
    const MRect rect{2, 3, 4, 5};
    EXPECT_EQ(rect.United({-1, 4, 9, 4}), (MRect{-1, 3, 9, 5}));
    for (const MRect empty : {MRect{-9, -9, -10, 99}, MRect()})
        EXPECT_TRUE(rect.United(empty) == rect && empty.United(rect) == rect);
}
