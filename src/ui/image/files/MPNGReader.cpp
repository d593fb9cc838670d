#include "ui/image/files/MPNGReader.h"

#include "foundation/base/MException.h"
#include "streams/basic/MStream.h"
#include "ui/image/MBitmap.h"

#include <png.h>

// libpng leaves a failure by a jump over its own frames and into ours, so the functions that it jumps to and
// those that it calls hold plain data only.
namespace {

[[noreturn]] void OnError(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) {}

bool ReadAll(MStream& stream, png_bytep block, size_t size) {
    try {
        return stream.Read(block, static_cast<int32_t>(size)) == static_cast<int32_t>(size);
    } catch (const MException&) {
        return false;
    }
}

void OnRead(png_structp png, png_bytep block, size_t size) {
    if (!ReadAll(*static_cast<MStream*>(png_get_io_ptr(png)), block, size)) png_error(png, "read error");
}

/// Owns the structures of libpng.
class Decoder {
public:
    explicit Decoder(MStream& stream) {
        png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, OnError, OnWarning);
        if (!png) MRaise(MExceptionGeneral, "Could not initialize libpng.");
        info = png_create_info_struct(png);
        if (!info) {
            png_destroy_read_struct(&png, nullptr, nullptr);
            MRaise(MExceptionGeneral, "Could not initialize libpng info structure.");
        }
        png_set_read_fn(png, &stream, OnRead);
        // Texts and profiles may unpack to any size, and nobody asks for them.
        png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder() { png_destroy_read_struct(&png, &info, nullptr); }

    /// Reads what stands before the pixels.
    [[nodiscard]] bool ReadHeader() {
        if (setjmp(png_jmpbuf(png))) return false;
        png_read_info(png, info);
        return true;
    }

    [[nodiscard]] bool LacksPalette() const {
        return png_get_color_type(png, info) == PNG_COLOR_TYPE_PALETTE &&
               !png_get_valid(png, info, PNG_INFO_PLTE);
    }
    [[nodiscard]] bool IsTooLarge() const {
        return uint64_t{GetWidth()} * GetHeight() > uint64_t{MBitmap::MaximumLoadedPixels};
    }
    [[nodiscard]] uint32_t GetWidth() const { return png_get_image_width(png, info); }
    [[nodiscard]] uint32_t GetHeight() const { return png_get_image_height(png, info); }

    /// Reads the pixels, whatever their kind, as `MColor`, and the rest of the file.
    [[nodiscard]] bool ReadPixels(MColor* pixels) {
        if (setjmp(png_jmpbuf(png))) return false;
        png_set_expand(png);
        png_set_strip_16(png);
        png_set_gray_to_rgb(png);
        png_set_bgr(png);
        png_set_add_alpha(png, 255, PNG_FILLER_AFTER);
        ReadRows(pixels, png_set_interlace_handling(png));
        png_read_end(png, nullptr);
        return true;
    }

private:
    void ReadRows(MColor* pixels, int passCount) {
        png_read_update_info(png, info);
        for (int pass = 0; pass < passCount; ++pass)
            for (uint32_t y = 0; y < GetHeight(); ++y)
                png_read_row(png, reinterpret_cast<png_bytep>(pixels + size_t{GetWidth()} * y), nullptr);
    }

    png_structp png = nullptr;
    png_infop info = nullptr;
};

[[noreturn]] void RaiseDamaged() {
    MRaise(MExceptionGeneral, "Error loading a PNG file.");
}

}  // namespace

void MReadPNG(MStream& stream, MBitmap& bitmap) {
    Decoder decoder(stream);
    const bool hasHeader = decoder.ReadHeader();
    if (decoder.LacksPalette()) MRaise(MExceptionGeneral, "Error loading PNG palette.");
    if (!hasHeader || decoder.IsTooLarge()) RaiseDamaged();
    bitmap.CreateUnfilled(static_cast<int32_t>(decoder.GetWidth()),
                          static_cast<int32_t>(decoder.GetHeight()));
    if (!decoder.ReadPixels(bitmap.EditPixels())) RaiseDamaged();
}
