#include "ui/image/files/MJPEGReader.h"

#include "foundation/base/MRaise.h"
#include "ui/image/MBitmap.h"
#include "ui/image/files/MJPEGErrors.h"
#include "ui/image/files/MJPEGSource.h"

namespace {

/// What a progressive file may take beside its pixels, in bytes.
constexpr long MaximumMemory = 1L << 29;

/// The pixels of all scans together: a small file can make many passes over a large picture, each of which
/// costs a few bytes.
constexpr int64_t MaximumWork = int64_t{32} * MBitmap::MaximumLoadedPixels;

int64_t CountPixels(const jpeg_decompress_struct& jpeg) {
    return int64_t{jpeg.image_width} * jpeg.image_height;
}

void OnProgress(j_common_ptr jpeg) {
    const auto& decoder = *reinterpret_cast<j_decompress_ptr>(jpeg);
    if (decoder.input_scan_number * CountPixels(decoder) > MaximumWork)
        MJPEGFail(jpeg, MJPEGErrors::TooManyScans);
}

// Adobe's programs store inks inverted, so that 255 is none.
MColor MixInks(const JSAMPLE* inks, bool isInverted) {
    const int32_t flip = isInverted ? 0 : 255;
    const int32_t light = inks[3] ^ flip;
    const auto mix = [&](JSAMPLE ink) { return static_cast<uint8_t>(((ink ^ flip) * light + 127) / 255); };
    return MColor::FromRGB(mix(inks[0]), mix(inks[1]), mix(inks[2]));
}

/// Owns the structures of libjpeg.
class Decoder {
public:
    explicit Decoder(MStream& stream) : source(stream) { progress.progress_monitor = OnProgress; }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder() { jpeg_destroy_decompress(&jpeg); }

    /// Reads what stands before the pixels and chooses their form.
    [[nodiscard]] bool ReadHeader() {
        jpeg.err = &errors.manager;
        if (setjmp(errors.place)) return false;
        jpeg_create_decompress(&jpeg);
        jpeg.src = &source.manager;
        jpeg.progress = &progress;
        jpeg.mem->max_memory_to_use = MaximumMemory;
        jpeg_read_header(&jpeg, TRUE);
        if (CountPixels(jpeg) > MBitmap::MaximumLoadedPixels)
            MJPEGFail(reinterpret_cast<j_common_ptr>(&jpeg), MJPEGErrors::ImageTooLarge);
        jpeg.out_color_space = HasInks() ? JCS_CMYK : JCS_EXT_BGRA;
        return true;
    }

    [[nodiscard]] int32_t GetWidth() const { return static_cast<int32_t>(jpeg.image_width); }
    [[nodiscard]] int32_t GetHeight() const { return static_cast<int32_t>(jpeg.image_height); }

    [[nodiscard]] bool ReadPixels(MColor* pixels) {
        if (setjmp(errors.place)) return false;
        jpeg_start_decompress(&jpeg);
        while (jpeg.output_scanline < jpeg.output_height)
            ReadRow(pixels + size_t{jpeg.output_width} * jpeg.output_scanline);
        jpeg_finish_decompress(&jpeg);
        return true;
    }

    [[nodiscard]] MString GetErrorText() const { return MString::Copy(errors.text); }

private:
    [[nodiscard]] bool HasInks() const {
        return jpeg.jpeg_color_space == JCS_CMYK || jpeg.jpeg_color_space == JCS_YCCK;
    }

    // Four inks take as much room as a pixel, so they are mixed in place.
    void ReadRow(MColor* row) {
        auto* samples = reinterpret_cast<JSAMPROW>(row);
        jpeg_read_scanlines(&jpeg, &samples, 1);
        if (!HasInks()) return;
        for (JDIMENSION x = 0; x < jpeg.output_width; ++x)
            row[x] = MixInks(samples + size_t{x} * 4, jpeg.saw_Adobe_marker);
    }

    MJPEGErrors errors;
    MJPEGSource source;
    jpeg_progress_mgr progress{};
    jpeg_decompress_struct jpeg{};
};

}  // namespace

void MReadJPEG(MStream& stream, MBitmap& bitmap) {
    Decoder decoder(stream);
    bool isWhole = decoder.ReadHeader();
    if (isWhole) {
        bitmap.CreateUnfilled(decoder.GetWidth(), decoder.GetHeight());
        isWhole = decoder.ReadPixels(bitmap.EditPixels());
    }
    if (!isWhole) MRaise(MExceptionGeneral, "Error loading JPEG file - {0}", decoder.GetErrorText());
}
