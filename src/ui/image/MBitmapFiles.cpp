#include "ui/image/MBitmap.h"

#include "ui/image/files/MJPEGReader.h"
#include "ui/image/files/MPNGReader.h"
#include "ui/image/files/MPNGWriter.h"
#include "ui/image/files/MTGAReader.h"

void MBitmap::LoadBy(void (*read)(MStream&, MBitmap&), MStream& stream) {
    Clear();
    MBitmap loaded;
    read(stream, loaded);
    Assign(loaded);
}

void MBitmap::LoadPNG(MStream& stream) {
    LoadBy(MReadPNG, stream);
}

void MBitmap::LoadJPEG(MStream& stream) {
    LoadBy(MReadJPEG, stream);
}

void MBitmap::LoadTGA(MStream& stream) {
    LoadBy(MReadTGA, stream);
}

void MBitmap::SavePNG(MStream& stream) const {
    MWritePNG(stream, *this);
}
