#include "tests/support/MScratch.h"
#include "tests/ui/text/TextFixture.h"
#include "ui/text/MFontSubstitutes.h"
#include "ui/text/MSystemFonts.h"

namespace {

// Liberation has neither, DejaVu Sans both, DejaVu Serif the first; nobody has the last.
constexpr char32_t Arrow = U'\u2B06';
constexpr char32_t Smile = U'\U0001F604';
constexpr char32_t Missing = U'\u4E00';

class FontSubstitutesTest : public testing::Test {
protected:
    FontSubstitutesTest() {
        font.LoadFromFile(SystemFont("liberation/LiberationSans-Regular.ttf"));
        font.SetSize(-14);
    }
    ~FontSubstitutesTest() noexcept override = default;

    static std::string Draw(MFont& font, char32_t character) {
        return Drawing(font.GetGlyph(character).mask.get());
    }
    static std::string DrawIn(const char* file, char32_t character, double size = -14) {
        MFont other;
        other.LoadFromFile(SystemFont(file));
        other.SetSize(size);
        return Draw(other, character);
    }

    MFont font;
};

}  // namespace

TEST_F(FontSubstitutesTest, AMissingCharacterComesFromTheFirstFaceThatHasIt) {
    const std::string box = Draw(font, Arrow);
    MList<MString> paths;
    for (const char* file : {"missing.ttf", "liberation/LiberationMono-Bold.ttf", "dejavu/DejaVuSerif.ttf",
                             "dejavu/DejaVuSans.ttf"})
        paths.Add(SystemFont(file));
    MFontSubstitutes substitutes(paths);
    const uint32_t revision = font.GetRevision();
    font.SetSubstitutes(&substitutes);
    EXPECT_NE(font.GetRevision(), revision);
    EXPECT_NE(DrawIn("dejavu/DejaVuSerif.ttf", Arrow), box);
    EXPECT_EQ(Draw(font, Arrow), DrawIn("dejavu/DejaVuSerif.ttf", Arrow));
    EXPECT_EQ(Draw(font, Smile), DrawIn("dejavu/DejaVuSans.ttf", Smile));
    EXPECT_EQ(Draw(font, 'A'), DrawIn("liberation/LiberationSans-Regular.ttf", 'A'));
    EXPECT_EQ(Draw(font, Missing), box);
    EXPECT_EQ(Draw(font, U'\uE000'), box);
    EXPECT_FALSE(font.HasGlyph(Arrow));
    font.SetSize(-30);
    EXPECT_EQ(Draw(font, Arrow), DrawIn("dejavu/DejaVuSerif.ttf", Arrow, -30));
    font.SetSubstitutes(nullptr);
    font.SetSize(-14);
    EXPECT_EQ(Draw(font, Arrow), box);
}

TEST_F(FontSubstitutesTest, FamiliesComeInTheirOrderAndStylesAsInTheFont) {
    MScratch scratch;
    int32_t listings = 0;
    for (const MString file :
         {"dejavu/DejaVuSans", "dejavu/DejaVuSans-Bold", "dejavu/DejaVuSerif", "dejavu/DejaVuSerif-Bold"})
        scratch.WriteFile("fonts/" + MFile::GetFileName(file) + ".ttf",
                          MReadTestFile(SystemFont(file + ".ttf")));
    MList<MString> folders;
    folders.Add(scratch.Join("fonts"));
    MSystemFonts machine(folders, scratch.Join("cache"));
    const char* const preferred[] = {"No Such", "dejavu serif"};
    MFontSubstitutes substitutes(
        [&] {
            ++listings;
            return machine.GetFonts();
        },
        preferred);
    EXPECT_EQ(listings, 0);
    font.SetSubstitutes(&substitutes);
    EXPECT_EQ(Draw(font, Arrow), DrawIn("dejavu/DejaVuSerif.ttf", Arrow));
    font.LoadFromFile(SystemFont("liberation/LiberationSans-BoldItalic.ttf"));
    font.SetSize(-14);
    EXPECT_EQ(Draw(font, Arrow), DrawIn("dejavu/DejaVuSerif-Bold.ttf", Arrow));
    // A character that only another style has, or another family.
    EXPECT_EQ(Draw(font, Smile), DrawIn("dejavu/DejaVuSans-Bold.ttf", Smile));
    EXPECT_EQ(listings, 1);
}
