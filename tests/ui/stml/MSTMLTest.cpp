#include "tests/ui/stml/STMLFixture.h"

namespace {

constexpr const char* Prose =
    "<justify>A plain text with <b>bold</b> and <cred><l2>large</l2></cred> words, "
    "<img icon=add/> pictures and a <tr><td width=30%>small table</td><td>of a few words</td></tr> between.";

/// Two bitmaps, and a drawer with letters of different widths.
class MSTMLTest : public testing::Test {
protected:
    MSTMLTest() { bitmap.CreateOpaque(300, 200); }
    ~MSTMLTest() noexcept override = default;

    /// The pixels after something was painted on black.
    template <class Function>
    std::string Painted(Function paint) {
        bitmap.CreateOpaque(300, 200);
        drawer.SetBitmap(&bitmap);
        paint();
        return {reinterpret_cast<const char*>(bitmap.GetPixels()), 300 * 200 * sizeof(MColor)};
    }

    MBitmap bitmap;
    MTestDrawer drawer{SYSTEM_FONTS};
    MRect room = MRect::FromSize(10, 20, 250, 160);
};

}  // namespace

TEST_F(MSTMLTest, PlainTextStandsWhereDrawersPutIt) {
    const MString text = Wide(u"Quartz g\u00E9od\u00E9 \u03A9\u0416 AVATAR os ll");
    const std::pair<const char*, MTextAlignment> alignments[] = {
        {"<left>", MTextLeft}, {"<center>", MTextCenter}, {"<right>", MTextRight}};
    for (const double space : {0, 2, -1}) {
        drawer.fonts[0].SetCharacterSpace(space);
        drawer.fonts[0].SetVerticalShift(static_cast<int32_t>(space));
        for (const auto& [tag, side] : alignments) {
            const MTextAlignment alignment = side;
            MSTML document(tag + text);
            const MColor color = drawer.GetTextColor(0, false);
            EXPECT_EQ(Painted([&] { document.Paint(drawer, room, false); }),
                      Painted([&] { drawer.AlignedTextOut(room, drawer.fonts[0], text, color, alignment); }))
                << tag << space;
        }
    }
}

TEST_F(MSTMLTest, PaintingInPiecesGivesTheSame) {
    MSTML document(Prose);
    const std::string whole = Painted([&] { document.Paint(drawer, room, false); });
    EXPECT_EQ(whole, Painted([&] {
                  for (int32_t y = 0; y < 200; y += 7) {
                      drawer.SetClip({0, y, 299, y + 6});
                      document.Paint(drawer, room, false);
                  }
              }));
    const std::unique_ptr<MSTML> copy(document.Clone());
    document.Parse("other");
    EXPECT_EQ(whole, Painted([&] { copy->Paint(drawer, room, false); }));
    EXPECT_NE(whole, Painted([&] { copy->Paint(drawer, room, true); }));
}

TEST_F(MSTMLTest, WhatWasMeasuredIsForgottenWhenFontsAndSizesChange) {
    MSTML document(Prose);
    int32_t last = document.Measure(drawer, 200);
    const auto expectChange = [&](const char* what) {
        const int32_t now = document.Measure(drawer, 200);
        EXPECT_NE(now, last) << what;
        EXPECT_EQ(now, MSTML(document).Measure(drawer, 200));
        last = now;
    };
    drawer.fonts[1].SetSize(-40);
    expectChange("size");
    drawer.fonts[0].SetCharacterSpace(9);
    expectChange("space");
    document.SetDefaults({7, -1, 0});
    expectChange("default font");
    document.Parse("x");
    expectChange("text");
    document.Parse("<rectangle width=90 height=90/>");
    expectChange("text");
    drawer.scale = 300;
    expectChange("scale");
    document.Parse("<img number=0/>");
    (void)document.AddImage(MBitmap(70, 70));
    expectChange("image");
}

TEST_F(MSTMLTest, TheOptimalWidthIsTheNarrowestOfItsHeight) {
    for (const char* text :
         {Prose, "one", "one two", "", "<tr><td>a b c d</td><td width=20%>e f g</td></tr>"}) {
        MSTML document(text);
        for (const int32_t width : {10, 90, 200, 777}) {
            const int32_t optimal = document.GetOptimalWidth(drawer, width);
            const int32_t height = document.Measure(drawer, width);
            ASSERT_LE(optimal, width);
            EXPECT_EQ(document.Measure(drawer, optimal), height) << text << " in " << width;
            if (optimal == width || optimal <= document.GetMinimalWidth(drawer) + 1) continue;
            EXPECT_GT(document.Measure(drawer, optimal - 1), height) << text << " in " << width;
        }
        // Nothing is cut at the minimal width and nothing wraps at the maximal one.
        int32_t needed = 0;
        const int32_t maximal = document.GetMaximalWidth(drawer);
        (void)document.GetHeightForWidth(drawer, document.GetMinimalWidth(drawer), needed);
        EXPECT_LE(needed, document.GetMinimalWidth(drawer)) << text;
        EXPECT_LE(document.Measure(drawer, 2000), document.Measure(drawer, maximal)) << text;
    }
}
