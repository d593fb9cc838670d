// What holds for every primitive, whatever its arguments.

#include "tests/ui/drawing/DrawerFixture.h"
#include "ui/drawing/MClipScope.h"

namespace {

constexpr int32_t Width = 61;
constexpr int32_t Height = 43;
constexpr uint32_t Rounds = 400;

/// The noise that everything is painted on.
MBitmap MakeGround() {
    return MMakeNoise(Width, Height, 3);
}

/// Paints a primitive within each of some clips; the seed decides about its arguments.
MBitmap Paint(const MTestPrimitive& primitive, uint32_t seed, std::initializer_list<MRect> clips) {
    MBitmap bitmap = MakeGround();
    for (const MRect& clip : clips) {
        MDrawerToMBitmap drawer(bitmap);
        drawer.SetClip(clip);
        MTestRandom random(seed);
        primitive.paint(drawer, random);
    }
    return bitmap;
}

template <class Check>
void ForAll(Check check) {
    for (const MTestPrimitive& primitive : MGetTestPrimitives())
        for (uint32_t seed = 0; seed < Rounds && !testing::Test::HasFailure(); ++seed) {
            SCOPED_TRACE(primitive.name + std::string(" with seed ") + std::to_string(seed));
            check(primitive, seed);
        }
}

const MRect All = MRect::FromSize(0, 0, Width, Height);

}  // namespace

TEST(DrawerPropertiesTest, NothingOutsideTheClipChanges) {
    const MBitmap ground = MakeGround();
    ForAll([&](const MTestPrimitive& primitive, uint32_t seed) {
        MTestRandom random(seed + 1000);
        const MRect clip = random.GetRect();
        EXPECT_EQ(MFindDifference(Paint(primitive, seed, {clip}), ground, clip, false), "");
    });
}

TEST(DrawerPropertiesTest, PaintingInPiecesEqualsPaintingOnce) {
    ForAll([&](const MTestPrimitive& primitive, uint32_t seed) {
        MTestRandom random(seed + 2000);
        const int32_t x = random.Get(-3, Width + 3);
        const int32_t y = random.Get(-3, Height + 3);
        const MBitmap whole = Paint(primitive, seed, {All});
        const MBitmap pieces =
            Paint(primitive, seed,
                  {{-99, -99, x, y}, {x + 1, -99, 999, y}, {-99, y + 1, x, 999}, {x + 1, y + 1, 999, 999}});
        EXPECT_EQ(MFindDifference(whole, pieces), "");
    });
}

// What is handed on by a chain of drawers arrives where their origins lie together.
TEST(DrawerPropertiesTest, TranslationsOfAChainAddUp) {
    ForAll([&](const MTestPrimitive& primitive, uint32_t seed) {
        MTestRandom where(seed + 3000);
        const MPoint first = where.GetPoint();
        const MPoint second = where.GetPoint();
        MBitmap chained = MakeGround();
        MDrawerToMBitmap target(chained);
        MDrawer middle(&target);
        middle.SetTranslation(first.x, first.y);
        MDrawer inner(&middle);
        inner.SetTranslation(second.x, second.y);
        EXPECT_EQ(inner.GetClip(), All.Shifted(MPoint() - first - second));
        MTestRandom random(seed);
        primitive.paint(inner, random);

        MBitmap direct = MakeGround();
        MDrawerToMBitmap shifted(direct);
        shifted.SetTranslation(first.x + second.x, first.y + second.y);
        MTestRandom again(seed);
        primitive.paint(shifted, again);
        EXPECT_EQ(MFindDifference(chained, direct), "");
    });
}

TEST(DrawerPropertiesTest, WithoutABitmapNothingHappens) {
    MBitmap empty;
    MBitmap paletted;
    paletted.CreatePaletted(8, 8);
    MDrawerToMBitmap nowhere;
    MDrawerToMBitmap onEmpty(empty);
    MDrawerToMBitmap onPaletted(paletted);
    MDrawer withoutTarget;
    for (MDrawer* drawer : std::initializer_list<MDrawer*>{&nowhere, &onEmpty, &onPaletted, &withoutTarget})
        for (const MTestPrimitive& primitive : MGetTestPrimitives()) {
            MTestRandom random(4);
            primitive.paint(*drawer, random);
        }
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
