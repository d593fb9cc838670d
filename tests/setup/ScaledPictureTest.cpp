#include "setup/wizard/MScaledPicture.h"
#include "tests/setup/SetupFixture.h"

#include <zlib.h>

namespace {

class DrawerAtScale final : public MDrawer {
public:
    int32_t ScaleX(int32_t value) override { return value * percent / 100; }
    int32_t percent = 100;
};

class ScaledPictureTest : public SetupTest {
protected:
    /// A picture of `own` with those of other scales.
    MScaledPicture Make(const std::string& own,
                        const std::vector<std::pair<const char*, std::string>>& scaled) {
        std::string children;
        for (const auto& [percent, bytes] : scaled)
            children += std::string("<scaled percent=\"") + percent + "\"" + payload.Add(bytes) + "/>";
        Define("<topimage" + payload.Add(own) + ">" + children + "</topimage>");
        return MScaledPicture(library, "topimage");
    }
    /// As in "75x6 shade 1", or "none".
    static std::string Describe(const MScaledPicture& picture, int32_t percent) {
        const MBitmap bitmap = picture.GetBitmap(percent);
        if (bitmap.IsEmpty()) return "none";
        return std::to_string(bitmap.GetWidth()) + "x" + std::to_string(bitmap.GetHeight()) + " shade " +
               std::to_string(bitmap.GetPixel(0, 0).red);
    }
};

}  // namespace

TEST_F(ScaledPictureTest, ShowsTheNextLargerPictureInTheSizeOfTheScale) {
    const MScaledPicture picture =
        Make(MakePNG(75, 6, 1), {{"300", MakePNG(225, 18, 3)}, {"200", MakePNG(150, 12, 2)}});
    const std::pair<int32_t, const char*> cases[] = {
        {0, "1x1 shade 1"},      {50, "38x3 shade 1"},    {100, "75x6 shade 1"},   {125, "94x8 shade 2"},
        {200, "150x12 shade 2"}, {250, "188x15 shade 3"}, {400, "300x24 shade 3"},
    };
    for (const auto& [percent, expected] : cases) EXPECT_EQ(Describe(picture, percent), expected) << percent;
    EXPECT_EQ(Describe(MScaledPicture(library, "leftimage"), 100), "none");

    MContentScaledPicture content(picture, {150, 100});
    DrawerAtScale drawer;
    EXPECT_EQ(content.GetSize(drawer, {}), (MPoint{75, 6}));
    drawer.percent = 150;
    EXPECT_EQ(content.GetSize(drawer, {}), (MPoint{113, 9}));
    EXPECT_EQ(content.GetLowestColor(drawer), MColor::FromRGB(2, 2, 2));
    for (const auto& [most, size] : {std::pair{MPoint{50, 9}, MPoint{75, 6}}, {{900, 3}, {38, 3}}})
        EXPECT_EQ(MContentScaledPicture(picture, most).GetSize(drawer, {}), size) << "of its shape";
}

// One head tells of 30000 by 30000 pixels, that of a TGA of none.
TEST_F(ScaledPictureTest, PassesOverWhatIsNoPicture) {
    const std::string whole = MakePNG(150, 12, 2);
    std::string vast = whole;
    vast.replace(16, 8, std::string("\0\0\x75\x30\0\0\x75\x30", 8));
    const uint32_t sum = crc32(0, reinterpret_cast<const Bytef*>(vast.data()) + 12, 17);
    for (size_t i = 0; i < 4; ++i) vast[29 + i] = static_cast<char>(sum >> (24 - 8 * i));
    const std::string noPixels = std::string("\0\0\2", 3) + std::string(13, '\0') + std::string(" \0", 2);
    for (const std::string& bad :
         {std::string(), std::string("\x89garbage"), std::string(500, 'x'), whole.substr(0, whole.size() / 2),
          vast, noPixels, MakePNG(1, MScaledPicture::LongestSide + 1, 9)}) {
        EXPECT_EQ(Describe(Make(bad, {{"200", whole}}), 100), "75x6 shade 2");
        EXPECT_EQ(Describe(Make(whole, {{"200", bad}, {"0", whole}}), 150), "225x18 shade 2");
        EXPECT_EQ(Describe(Make(bad, {{"200", bad}}), 100), "none");
    }
    // Enlarged beyond reason.
    EXPECT_EQ(Describe(Make("", {{"1", whole}}), 100), "none");
    // Bytes that the payload does not have.
    Define("<topimage filestart=\"0\" filesize=\"9000000000\"><scaled percent=\"200\" filestart=\"-1\" "
           "filesize=\"1\"/><scaled percent=\"300\"/></topimage>");
    EXPECT_EQ(Describe(MScaledPicture(library, "topimage"), 100), "none");
}
