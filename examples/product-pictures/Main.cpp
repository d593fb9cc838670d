// Usage: product-pictures FONT FOLDER
//
// Draws the pictures of the example product as PNG files into FOLDER: the band above the wizard's pages and the
// picture left of them, for 100 and 200 percent. FONT is a font file.

#include "examples/product-pictures/ProductPictures.h"
#include "foundation/base/MException.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MStdFileStream.h"
#include "ui/text/MFont.h"

#include <cstdio>

namespace {

void Save(const MBitmap& bitmap, const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    bitmap.SavePNG(file);
    file.Close();
}

void DrawAll(const MString& fontPath, const MString& folder) {
    MFont font;
    font.LoadFromFile(fontPath);
    Save(DrawBand(font, 100), MFile::Join(folder, "band.png"));
    Save(DrawBand(font, 200), MFile::Join(folder, "band-200.png"));
    Save(DrawLeftPicture(100), MFile::Join(folder, "left.png"));
    Save(DrawLeftPicture(200), MFile::Join(folder, "left-200.png"));
}

MString ToPath(const char* argument) {
    return MFile::Normalize(MDecodeUTF8Exact(argument));
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("Usage: product-pictures FONT FOLDER\n", stderr);
        return 2;
    }
    try {
        DrawAll(ToPath(arguments[1]), ToPath(arguments[2]));
        return 0;
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", MEncodeUTF8Exact(exception.GetMessage()).c_str());
        return 1;
    }
}
