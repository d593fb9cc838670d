#include "embedded/MProgramBlocks.h"

#include "streams/resources/MResourceLibrary.h"
#include "tests/support/MTestText.h"
#include "ui/control/MCursor.h"
#include "ui/control/kinds/MStdBitmap.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/image/MAlphaMask.h"
#include "ui/text/MFont.h"

#include <algorithm>

namespace {

class ProgramBlocksTest : public testing::Test {
protected:
    ProgramBlocksTest() {
        module.SetEmbeddedBlocks(MGetProgramBlocks());
        module.Initialize();
    }
    ~ProgramBlocksTest() noexcept override = default;

    /// The size of a mask that shows something; 0 for one that does not.
    int32_t ReadMask(const std::string& id) {
        MAlphaMask mask;
        mask.Load(library.GetResource(id.c_str()).Open());
        EXPECT_EQ(mask.GetWidth(), mask.GetHeight()) << id;
        const uint8_t* const end = mask.GetBytes() + mask.GetWidth() * mask.GetHeight();
        return std::find_if(mask.GetBytes(), end, [](uint8_t alpha) { return alpha > 128; }) == end
                   ? 0
                   : mask.GetWidth();
    }

    MModule module;
    MResourceLibrary& library = module.GetResources();
};

}  // namespace

TEST_F(ProgramBlocksTest, HaveEveryIconInEverySize) {
    EXPECT_EQ(Text(library.GetRoot().GetName()), "mstyle");
    for (const int32_t size : {10, 13, 17, 21, 30})
        for (const std::string name : MStdIconNames) {
            const std::string id = "icon" + std::to_string(size) + "_" + name;
            EXPECT_EQ(ReadMask(id), size) << id;
        }
    for (const std::string name : MStdBitmapNames) {
        EXPECT_EQ(ReadMask("bitmap" + name), 48) << name;
        for (const int32_t size : {60, 72, 96, 144})
            EXPECT_EQ(ReadMask("bitmap" + std::to_string(size) + "_" + name), size) << name;
    }
}

TEST_F(ProgramBlocksTest, HavePointersThatPointWhereTheyShow) {
    for (const std::string scale : {"", "150_", "200_", "300_"})
        for (const std::string name : MStdCursorNames) {
            MResource& resource = library.GetResource(("cursor" + scale + name).c_str());
            MBitmap picture;
            picture.LoadPNG(resource.Open());
            const MPoint hot(resource.GetItem().GetInt32Attribute("hotx"),
                             resource.GetItem().GetInt32Attribute("hoty"));
            ASSERT_TRUE(picture.GetRect().Contains(hot)) << name;
            const bool isThere = picture.GetPixel(hot.x, hot.y).alpha > 128;
            EXPECT_EQ(isThere, name != "hollow") << scale << name;
        }
}

TEST_F(ProgramBlocksTest, HaveFacesWithTheLettersOfEurope) {
    for (const char* style : {"regular", "bold", "italic"}) {
        MFont font;
        font.LoadFromStream(library.GetResource(MString("face_") + style).Open());
        font.SetSize(-13);
        EXPECT_EQ(Text(font.GetFamily()), "Corvanth Sans");
        EXPECT_EQ(font.IsBold(), MString(style) == "bold");
        EXPECT_EQ(font.IsItalic(), MString(style) == "italic");
        for (const char32_t character :
             std::u32string_view(U"Az09\u00DF\u0159\u0160\u03A9\u0416\u0457\u1EC7\u2026\u20AC\u2192"))
            EXPECT_TRUE(font.HasGlyph(character)) << static_cast<uint32_t>(character);
        EXPECT_GT(font.GetTextWidth("Next"), 20);
    }
}
