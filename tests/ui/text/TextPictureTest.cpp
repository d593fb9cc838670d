// Text as it is on the screen, compared with pictures that were looked at. scripts/generate-text-pictures
// writes them anew.

#include "streams/basic/MStdFileStream.h"
#include "tests/ui/text/TextFixture.h"
#include "ui/image/MBitmap.h"
#include "ui/text/MTextLayout.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

constexpr int32_t Sizes[] = {-9, -12, -15, -20, -32};
/// No glyph of the sample reaches further beyond its line.
constexpr int32_t Margin = 6;

MString GetSample() {
    return MString::Copy(u"Quartz g\u00E9od\u00E9 & (my) \u03A9\u0416\u20AC \U0001D538 \u4E00\n"
                         u"\"fjord\" AVATAR #0123 W\u00C5lk");
}

/// White, with room for the sample at all sizes.
MBitmap MakeSheet(MFont& font) {
    int32_t width = 0;
    int32_t height = Margin;
    for (const int32_t size : Sizes) {
        font.SetSize(size);
        width = std::max(width, MTextLayout::GetWidth(font, GetSample()) + 2 * Margin);
        height += MTextLayout::GetHeight(font, GetSample()) + Margin;
    }
    MBitmap sheet(width, height);
    std::fill_n(sheet.EditPixels(), width * height, MColor::FromRGB(255, 255, 255));
    return sheet;
}

/// Black through the mask; where glyphs overlap the darker one stays.
void Paint(MBitmap& sheet, const MPlacedGlyph& glyph) {
    const MAlphaMask& mask = *glyph.mask;
    const MRect place = MRect::FromSize(glyph.point.x, glyph.point.y, mask.GetWidth(), mask.GetHeight());
    ASSERT_EQ(sheet.GetRect().Intersected(place), place);
    for (int32_t y = 0; y < mask.GetHeight(); ++y) {
        MColor* row = sheet.EditRow(place.top + y) + place.left;
        for (int32_t x = 0; x < mask.GetWidth(); ++x) {
            const uint8_t grey = std::min(row[x].red, static_cast<uint8_t>(255 - mask.GetRow(y)[x]));
            row[x] = MColor::FromRGB(grey, grey, grey);
        }
    }
}

/// The sample at all sizes, one below the other.
MBitmap DrawSheet(MFont& font) {
    MBitmap sheet = MakeSheet(font);
    MRect room = sheet.GetRect().Shrunk(Margin, Margin);
    const MString sample = GetSample();
    for (const int32_t size : Sizes) {
        font.SetSize(size);
        MTextLayout layout(font, sample, room, MTextCenter);
        for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);) Paint(sheet, glyph);
        room.top += MTextLayout::GetHeight(font, sample) + Margin;
    }
    return sheet;
}

MBitmap LoadPicture(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    MBitmap picture;
    picture.LoadPNG(file);
    return picture;
}

void SavePicture(const MBitmap& picture, const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    picture.SavePNG(file);
    file.Close();
}

/// "none", or how many pixels differ and where the first one is.
std::string FindDifference(const MBitmap& left, const MBitmap& right) {
    if (left.GetWidth() != right.GetWidth() || left.GetHeight() != right.GetHeight()) return "the sizes";
    int32_t count = 0;
    std::string first;
    for (int32_t y = 0; y < left.GetHeight(); ++y) {
        for (int32_t x = 0; x < left.GetWidth(); ++x) {
            if (left.GetPixel(x, y) == right.GetPixel(x, y)) continue;
            if (count++ == 0) first = std::to_string(x) + ", " + std::to_string(y);
        }
    }
    return count == 0 ? "none" : std::to_string(count) + " pixels from " + first;
}

class TextPictureTest : public testing::TestWithParam<const char*> {};

}  // namespace

TEST_P(TextPictureTest, TextLooksAsInThePicture) {
    const std::string font = GetParam();
    MFont opened;
    opened.LoadFromFile(SystemFont(MString::Copy((font + ".ttf").c_str())));
    const MBitmap sheet = DrawSheet(opened);
    const std::string name = font.substr(font.find('/') + 1) + ".png";
    if (const char* directory = std::getenv("CORVANTH_WRITE_PICTURES"))
        SavePicture(sheet, MFile::Join(MString::Copy(directory), MString::Copy(name.c_str())));
    const MString picture = MFile::Join(TEST_DATA_DIRECTORY, MString::Copy(("text/" + name).c_str()));
    EXPECT_EQ(FindDifference(sheet, LoadPicture(picture)), "none");
}

INSTANTIATE_TEST_SUITE_P(, TextPictureTest,
                         testing::Values("dejavu/DejaVuSans", "dejavu/DejaVuSansMono-Bold",
                                         "dejavu/DejaVuSerif", "liberation/LiberationSans-Regular",
                                         "liberation/LiberationSans-Italic",
                                         "liberation/LiberationSerif-Regular"));
