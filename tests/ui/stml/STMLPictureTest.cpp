// Pages as they are on the screen, compared with pictures that were looked at. scripts/generate-text-pictures
// writes them anew.

#include "foundation/text/encodings/MEncoding.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MScratch.h"
#include "tests/ui/stml/STMLFixture.h"

#include <cstdlib>

namespace {

void ExpectPicture(const char* name, int32_t width, int32_t scale) {
    const MString path = MFile::Join(TEST_DATA_DIRECTORY, "stml");
    MSTML document(MEncoding::GetUTF8Codec().Decode(MReadTestFile(MFile::Join(path, "page.stml"))));
    MBitmap image(20, 30);
    MDrawerToMBitmap(image).FillRectangleGradient(image.GetRect(), MColor::FromRGB(255, 200, 0), {},
                                                  MGradientDirection::Vertical, MDrawMode::Copy);
    (void)document.AddImage(image);

    MBitmap sheet;
    MTestDrawer drawer(SYSTEM_FONTS);
    drawer.SetScale(scale);
    sheet.CreateOpaque(width, document.Measure(drawer, width));
    drawer.SetBitmap(&sheet);
    document.Paint(drawer, sheet.GetRect(), false);
    MStdFileStream file;
    if (const char* directory = std::getenv("CORVANTH_WRITE_PICTURES")) {
        file.Open(MFile::Join(directory, name), MOpenWrite | MOpenCreate);
        sheet.SavePNG(file);
        file.Close();
    }
    file.Open(MFile::Join(path, name), MOpenRead);
    MBitmap picture;
    picture.LoadPNG(file);
    ASSERT_EQ(picture.GetRect(), sheet.GetRect());
    for (int32_t y = 0; y < sheet.GetHeight(); ++y)
        for (int32_t x = 0; x < sheet.GetWidth(); ++x)
            ASSERT_EQ(picture.GetPixel(x, y), sheet.GetPixel(x, y)) << name << " at " << x << ", " << y;
}

}  // namespace

TEST(STMLPictureTest, PagesLookAsInThePictures) {
    ExpectPicture("page.png", 460, 100);
    ExpectPicture("narrow.png", 250, 150);
}
