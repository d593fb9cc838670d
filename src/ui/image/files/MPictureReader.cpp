#include "ui/image/files/MPictureReader.h"

#include "ui/image/MBitmap.h"

void MReadPicture(uint8_t firstByte, MStream& stream, MBitmap& bitmap) {
    constexpr uint8_t PNG = 0x89;
    constexpr uint8_t JPEG = 0xFF;
    if (firstByte == PNG)
        bitmap.LoadPNG(stream);
    else if (firstByte == JPEG)
        bitmap.LoadJPEG(stream);
    else
        bitmap.LoadTGA(stream);
}
