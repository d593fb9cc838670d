// Usage: drawing-sheet FONT OUTPUT.png [PERCENT]
//
// Draws everything that a drawer can, on one sheet in memory, and writes it as PNG. FONT is a font file. With
// PERCENT the sheet is drawn larger, as for a dense screen; 100 without it.

#include "examples/drawing-sheet/DrawingSheet.h"
#include "foundation/base/MException.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MStdFileStream.h"
#include "ui/text/MFont.h"

#include <cstdio>
#include <cstdlib>

namespace {

void Draw(const MString& fontPath, const MString& output, int32_t percent) {
    MFont font;
    font.LoadFromFile(fontPath);
    const MBitmap sheet = DrawingSheet(font, percent).Draw();
    MStdFileStream file;
    file.Open(output, MOpenWrite | MOpenCreate);
    sheet.SavePNG(file);
    file.Close();
}

MString ToPath(const char* argument) {
    return MFile::Normalize(MDecodeUTF8Exact(argument));
}

}  // namespace

int main(int count, char** arguments) {
    const int32_t percent = count > 3 ? std::atoi(arguments[3]) : 100;
    if (count < 3 || count > 4 || percent < 50 || percent > 400) {
        std::fputs("Usage: drawing-sheet FONT OUTPUT.png [50 to 400 PERCENT]\n", stderr);
        return 2;
    }
    try {
        Draw(ToPath(arguments[1]), ToPath(arguments[2]), percent);
        return 0;
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", MEncodeUTF8Exact(exception.GetMessage()).c_str());
        return 1;
    }
}
