#include "tests/ui/image/JPEGFile.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <jpeglib.h>

namespace {

J_COLOR_SPACE InputSpaceOf(MJPEGColors colors) {
    const bool hasInks = colors == MJPEGColors::CMYK || colors == MJPEGColors::YCCK;
    return hasInks ? JCS_CMYK : JCS_EXT_BGRX;
}

J_COLOR_SPACE FileSpaceOf(MJPEGColors colors) {
    switch (colors) {
    case MJPEGColors::Grey: return JCS_GRAYSCALE;
    case MJPEGColors::CMYK: return JCS_CMYK;
    case MJPEGColors::YCCK: return JCS_YCCK;
    default: return JCS_YCbCr;
    }
}

/// As much black as there is dark in all colours.
void ToInks(MColor color, bool isInverted, JSAMPLE* inks) {
    const int32_t light = std::max({color.red, color.green, color.blue, uint8_t{1}});
    const auto invert = [&](int32_t rest) { return static_cast<JSAMPLE>(isInverted ? rest : 255 - rest); };
    inks[0] = invert(color.red * 255 / light);
    inks[1] = invert(color.green * 255 / light);
    inks[2] = invert(color.blue * 255 / light);
    inks[3] = invert(light);
}

void Configure(jpeg_compress_struct& jpeg, const MJPEGOptions& options) {
    jpeg_set_defaults(&jpeg);
    jpeg_set_colorspace(&jpeg, FileSpaceOf(options.colors));
    jpeg_set_quality(&jpeg, 98, TRUE);
    for (int i = 0; i < jpeg.num_components; ++i)
        jpeg.comp_info[i].h_samp_factor = jpeg.comp_info[i].v_samp_factor = 1;
    jpeg.restart_in_rows = options.restartRows;
    jpeg.write_Adobe_marker = options.isAdobe && jpeg.num_components == 4;
    if (options.isProgressive) jpeg_simple_progression(&jpeg);
}

void WriteRows(jpeg_compress_struct& jpeg, const MBitmap& bitmap, const MJPEGOptions& options) {
    std::vector<JSAMPLE> samples(static_cast<size_t>(bitmap.GetWidth()) * 4);
    for (int32_t y = 0; y < bitmap.GetHeight(); ++y) {
        const MColor* const row = bitmap.GetRow(y);
        for (size_t x = 0; x < samples.size() / 4; ++x)
            if (jpeg.in_color_space == JCS_CMYK)
                ToInks(row[x], options.isAdobe, &samples[x * 4]);
            else
                *reinterpret_cast<MColor*>(&samples[x * 4]) = row[x];
        JSAMPROW line = samples.data();
        jpeg_write_scanlines(&jpeg, &line, 1);
    }
}

}  // namespace

std::string MEncodeJPEG(const MBitmap& bitmap, const MJPEGOptions& options) {
    jpeg_error_mgr errors;
    jpeg_compress_struct jpeg{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &bytes, &size);
    jpeg.image_width = static_cast<JDIMENSION>(bitmap.GetWidth());
    jpeg.image_height = static_cast<JDIMENSION>(bitmap.GetHeight());
    jpeg.input_components = 4;
    jpeg.in_color_space = InputSpaceOf(options.colors);
    Configure(jpeg, options);
    jpeg_start_compress(&jpeg, TRUE);
    WriteRows(jpeg, bitmap, options);
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    const std::string file(reinterpret_cast<char*>(bytes), size);
    std::free(bytes);
    return file;
}

MBitmap MOpaque(const MBitmap& bitmap) {
    MBitmap opaque = bitmap;
    MColor* const pixels = opaque.EditPixels();
    std::transform(pixels, pixels + bitmap.GetWidth() * bitmap.GetHeight(), pixels,
                   [](MColor pixel) { return pixel.WithAlpha(255); });
    return opaque;
}
