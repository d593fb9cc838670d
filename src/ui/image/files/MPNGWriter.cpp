#include "ui/image/files/MPNGWriter.h"

#include "foundation/base/MException.h"
#include "streams/basic/MStream.h"
#include "ui/image/MBitmap.h"

#include <algorithm>
#include <exception>

#include <png.h>

// As in the reader, libpng jumps over the frames of functions that hold plain data only.
namespace {

constexpr int CompressionLevel = 9;

/// Where the bytes go, and what the stream raised, since nothing may be thrown through libpng.
struct Target {
    MStream& stream;
    std::exception_ptr failure;
};

[[noreturn]] void OnError(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) {}

bool WriteAll(Target& target, png_bytep block, size_t size) {
    try {
        target.stream.Write(block, static_cast<int32_t>(size));
        return true;
    } catch (...) {
        target.failure = std::current_exception();
        return false;
    }
}

void OnWrite(png_structp png, png_bytep block, size_t size) {
    if (!WriteAll(*static_cast<Target*>(png_get_io_ptr(png)), block, size)) png_error(png, "write error");
}

void OnFlush(png_structp) {}

/// Owns the structures of libpng.
class Encoder {
public:
    explicit Encoder(Target& target) {
        png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, OnError, OnWarning);
        if (!png) MRaise(MExceptionGeneral, "Could not initialize libpng.");
        info = png_create_info_struct(png);
        if (!info) {
            png_destroy_write_struct(&png, nullptr);
            MRaise(MExceptionGeneral, "Could not initialize libpng info structure.");
        }
        png_set_write_fn(png, &target, OnWrite, OnFlush);
    }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;
    ~Encoder() { png_destroy_write_struct(&png, &info); }

    [[nodiscard]] bool Write(const MBitmap& bitmap) {
        if (setjmp(png_jmpbuf(png))) return false;
        WriteHeader(bitmap);
        for (int32_t y = 0; y < bitmap.GetHeight(); ++y)
            png_write_row(png, reinterpret_cast<png_const_bytep>(bitmap.GetRow(y)));
        png_write_end(png, nullptr);
        return true;
    }

private:
    // Level and filters are fixed, so the bytes do not follow a change of libpng's own choice.
    void WriteHeader(const MBitmap& bitmap) {
        const auto width = static_cast<uint32_t>(bitmap.GetWidth());
        const auto height = static_cast<uint32_t>(bitmap.GetHeight());
        const MColor* const pixels = bitmap.GetPixels();
        const bool isOpaque = std::all_of(pixels, pixels + int64_t{bitmap.GetWidth()} * bitmap.GetHeight(),
                                          [](MColor pixel) { return pixel.alpha == 255; });
        const int colors = isOpaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA;
        png_set_user_limits(png, width, height);
        png_set_compression_level(png, CompressionLevel);
        // What is opaque is a picture of windows, whose plain areas become smallest as they are.
        png_set_filter(png, PNG_FILTER_TYPE_BASE, isOpaque ? PNG_FILTER_NONE : PNG_ALL_FILTERS);
        png_set_IHDR(png, info, width, height, 8, colors, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE,
                     PNG_FILTER_TYPE_BASE);
        png_write_info(png, info);
        png_set_bgr(png);
        if (isOpaque) png_set_filler(png, 0, PNG_FILLER_AFTER);
    }

    png_structp png = nullptr;
    png_infop info = nullptr;
};

}  // namespace

void MWritePNG(MStream& stream, const MBitmap& bitmap) {
    if (bitmap.IsEmpty()) MRaise(MExceptionGeneral, "Empty image cannot be saved to PNG.");
    const MBitmap direct = bitmap.ToDirect();
    Target target{stream, nullptr};
    Encoder encoder(target);
    if (encoder.Write(direct)) return;
    if (target.failure) std::rethrow_exception(target.failure);
    MRaise(MExceptionGeneral, "Error saving a PNG file.");
}
