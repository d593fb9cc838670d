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

/// Black through the mask; where glyphs overlap the darker one stays.
void Paint(MBitmap& sheet, const MPlacedGlyph& glyph) {
    const MAlphaMask& mask = *glyph.mask;
    for (int32_t y = 0; y < mask.GetHeight(); ++y) {
        MColor* row = sheet.EditRow(glyph.point.y + y) + glyph.point.x;
        for (int32_t x = 0; x < mask.GetWidth(); ++x) {
            const uint8_t grey = std::min(row[x].red, static_cast<uint8_t>(255 - mask.GetRow(y)[x]));
            row[x] = MColor::FromRGB(grey, grey, grey);
        }
    }
}

/// The sample at all sizes, one below the other.
MBitmap DrawSheet(MFont& font) {
    const MString sample =
        MString::Copy(u"Quartz g\u00E9od\u00E9 & (my) \u03A9\u0416\u20AC \U0001D538 \u4E00\n"
                      u"\"fjord\" AVATAR #0123 W\u00C5lk fill");
    MBitmap sheet(640, 300);
    std::fill_n(sheet.EditPixels(), 640 * 300, MColor::FromRGB(255, 255, 255));
    MRect room = sheet.GetRect().Shrunk(6, 6);
    for (const int32_t size : {-9, -10, -11, -12, -13, -15, -20, -32}) {
        font.SetSize(size);
        MTextLayout layout(font, sample, room, MTextCenter);
        for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);) Paint(sheet, glyph);
        room.top += MTextLayout::GetHeight(font, sample);
    }
    return sheet;
}

void ExpectPicture(const MString& font) {
    const MString name = MFile::GetFileName(font) + ".png";
    MFont opened;
    opened.LoadFromFile(SystemFont(font + ".ttf"));
    const MBitmap sheet = DrawSheet(opened);
    MStdFileStream file;
    if (const char* directory = std::getenv("CORVANTH_WRITE_PICTURES")) {
        file.Open(MFile::Join(directory, name), MOpenWrite | MOpenCreate);
        sheet.SavePNG(file);
        file.Close();
    }
    file.Open(MFile::Join(TEST_DATA_DIRECTORY, "text/" + name), MOpenRead);
    MBitmap picture;
    picture.LoadPNG(file);
    ASSERT_EQ(picture.GetRect(), sheet.GetRect());
    for (int32_t y = 0; y < sheet.GetHeight(); ++y)
        for (int32_t x = 0; x < sheet.GetWidth(); ++x)
            ASSERT_EQ(picture.GetPixel(x, y), sheet.GetPixel(x, y)) << Text(font) << " at " << x << ", " << y;
}

}  // namespace

TEST(TextPictureTest, TextLooksAsInThePicture) {
    for (const char* font : {"dejavu/DejaVuSans", "dejavu/DejaVuSansMono-Bold", "dejavu/DejaVuSerif",
                             "liberation/LiberationSans-Regular", "liberation/LiberationSans-Italic",
                             "liberation/LiberationSerif-Regular"})
        ExpectPicture(font);
}
