#include "bench/MComparison.h"
#include "foundation/base/MException.h"
#include "foundation/text/MUnicode.h"
#include "ui/drawing/MDrawerToMBitmap.h"
#include "ui/image/MAlphaMask.h"

#include <memory>
#include <pixman.h>
#include <string>
#include <vector>

namespace {

constexpr int Rounds = 41;
/// So many pixels are painted in one timing.
constexpr int64_t PixelsPerRound = 8'000'000;

struct Size {
    int32_t width;
    int32_t height;

    [[nodiscard]] int64_t GetPixelCount() const { return int64_t{width} * height; }
    [[nodiscard]] std::string GetText() const { return std::to_string(width) + "x" + std::to_string(height); }
};

constexpr Size Sizes[] = {{750, 400}, {256, 256}};
constexpr MColor HalfRed = MColor::FromRGB(200, 60, 20, 128);

/// The same pseudo-random numbers in each run.
class Noise {
public:
    uint32_t Take() { return state = state * 1664525 + 1013904223; }
    uint8_t TakeByte() { return static_cast<uint8_t>(Take() >> 24); }

private:
    uint32_t state = 1;
};

enum class Alphas { Opaque, Mixed };

/// A picture in which each pixel has another colour and, unless it is opaque, another alpha: hardly a vector
/// of pixels is opaque or transparent as a whole.
MBitmap MakePicture(Size size, Alphas alphas) {
    MBitmap bitmap(size.width, size.height);
    MColor* pixels = bitmap.EditPixels();
    Noise noise;
    for (int64_t i = 0; i < size.GetPixelCount(); ++i) {
        pixels[i] = {noise.TakeByte(), noise.TakeByte(), noise.TakeByte(), noise.TakeByte()};
        if (alphas == Alphas::Opaque) pixels[i].alpha = 255;
    }
    return bitmap;
}

MAlphaMask MakeMask(Size size) {
    MAlphaMask mask(size.width, size.height);
    uint8_t* bytes = mask.EditBytes();
    Noise noise;
    for (int64_t i = 0; i < size.GetPixelCount(); ++i) bytes[i] = noise.TakeByte();
    return mask;
}

MColor Premultiply(MColor color) {
    const auto scale = [&](int channel) { return static_cast<uint8_t>((channel * color.alpha + 127) / 255); };
    return {scale(color.blue), scale(color.green), scale(color.red), color.alpha};
}

struct ReleaseImage {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
};
using Image = std::unique_ptr<pixman_image_t, ReleaseImage>;

/// Memory in the form of the reference, and the image on it.
class Reference {
public:
    explicit Reference(const MBitmap& bitmap)
        : words(static_cast<size_t>(bitmap.GetWidth()) * bitmap.GetHeight()) {
        for (size_t i = 0; i < words.size(); ++i) words[i] = Premultiply(bitmap.GetPixels()[i]).GetWord();
        image.reset(pixman_image_create_bits(PIXMAN_a8r8g8b8, bitmap.GetWidth(), bitmap.GetHeight(),
                                             words.data(), bitmap.GetWidth() * 4));
    }
    explicit Reference(const MAlphaMask& mask) {
        const int32_t stride = (mask.GetWidth() + 3) / 4 * 4;
        words.resize(static_cast<size_t>(stride) / 4 * mask.GetHeight());
        for (int32_t y = 0; y < mask.GetHeight(); ++y)
            std::copy_n(mask.GetRow(y), mask.GetWidth(),
                        reinterpret_cast<uint8_t*>(words.data()) + stride * y);
        image.reset(
            pixman_image_create_bits(PIXMAN_a8, mask.GetWidth(), mask.GetHeight(), words.data(), stride));
    }

    [[nodiscard]] pixman_image_t* Get() const { return image.get(); }

private:
    std::vector<uint32_t> words;
    Image image;
};

Image MakeSolid(MColor color) {
    const MColor premultiplied = Premultiply(color);
    const pixman_color_t solid = {
        static_cast<uint16_t>(premultiplied.red * 257), static_cast<uint16_t>(premultiplied.green * 257),
        static_cast<uint16_t>(premultiplied.blue * 257), static_cast<uint16_t>(premultiplied.alpha * 257)};
    return Image(pixman_image_create_solid_fill(&solid));
}

/// What both paint on, and how often in one timing.
class Bench {
public:
    explicit Bench(Size newSize)
        : size(newSize),
          bitmap(newSize.width, newSize.height),
          drawer(bitmap),
          reference(bitmap),
          repetitions(static_cast<int>(PixelsPerRound / newSize.GetPixelCount())) {}

    template <class Function>
    [[nodiscard]] MWork Repeat(Function function) {
        return {{}, [this, function] {
                    for (int i = 0; i < repetitions; ++i) function();
                }};
    }
    /// One image over the whole of the reference's target, through a mask or none.
    [[nodiscard]] MWork Composite(pixman_image_t* source, pixman_image_t* mask) {
        return Repeat([this, source, mask] {
            pixman_image_composite32(PIXMAN_OP_OVER, source, mask, reference.Get(), 0, 0, 0, 0, 0, 0,
                                     size.width, size.height);
        });
    }
    [[nodiscard]] MComparison Compare(const MWork& ours, const MWork& theirs, double goal) const {
        const auto amount = static_cast<double>(size.GetPixelCount() * repetitions) / 1e6;
        MComparison comparison = MCompareSpeeds(Rounds, MClock::Processor, amount, ours, theirs);
        comparison.unit = "Mpixel/s";
        comparison.goal = goal;
        return comparison;
    }
    [[nodiscard]] MRect GetRect() const { return bitmap.GetRect(); }

    const Size size;
    MBitmap bitmap;
    MDrawerToMBitmap drawer;

private:
    Reference reference;
    int repetitions;
};

constexpr double PixmanGoal = 0.8;

MComparison CompareFill(Size size) {
    Bench bench(size);
    const Image solid = MakeSolid(HalfRed);
    const MWork ours =
        bench.Repeat([&] { bench.drawer.FillRectangle(bench.GetRect(), HalfRed, MDrawMode::Alphablend); });
    return bench.Compare(ours, bench.Composite(solid.get(), nullptr), PixmanGoal);
}

MComparison CompareBlit(Size size, Alphas alphas) {
    Bench bench(size);
    const MBitmap picture = MakePicture(size, alphas);
    const Reference image(picture);
    const MWork ours = bench.Repeat([&] {
        bench.drawer.BitBlt(picture.GetRect(), picture, {0, 0}, 255, MDrawMode::Alphablend);
    });
    return bench.Compare(ours, bench.Composite(image.Get(), nullptr), PixmanGoal);
}

MComparison CompareMask(Size size) {
    Bench bench(size);
    const MAlphaMask mask = MakeMask(size);
    const Reference image(mask);
    const Image solid = MakeSolid(HalfRed);
    const MWork ours = bench.Repeat([&] {
        bench.drawer.AlphaMask(bench.GetRect(), mask, {0, 0}, HalfRed, MDrawMode::Alphablend);
    });
    return bench.Compare(ours, bench.Composite(solid.get(), image.Get()), PixmanGoal);
}

/// From a picture of two thirds of the size in both directions.
MComparison CompareStretch(Size size) {
    Bench bench(size);
    const MBitmap picture = MakePicture({size.width * 2 / 3, size.height * 2 / 3}, Alphas::Mixed);
    const Reference image(picture);
    pixman_transform_t transform;
    pixman_transform_init_scale(&transform, pixman_int_to_fixed(picture.GetWidth()) / size.width,
                                pixman_int_to_fixed(picture.GetHeight()) / size.height);
    pixman_image_set_transform(image.Get(), &transform);
    pixman_image_set_filter(image.Get(), PIXMAN_FILTER_NEAREST, nullptr, 0);
    const MWork ours = bench.Repeat([&] {
        bench.drawer.StretchBlt(bench.GetRect(), picture, picture.GetRect(), 255, MDrawMode::Alphablend);
    });
    return bench.Compare(ours, bench.Composite(image.Get(), nullptr), PixmanGoal);
}

/// The curve of contrast costs more than all of a blend, a division far more.
double GetModeGoal(MDrawMode mode) {
    switch (mode) {
    case MDrawMode::IncContrast:
    case MDrawMode::DarkenByContrast: return 0.4;
    case MDrawMode::Color: return 0.1;
    default: return 0.5;
    }
}

/// The same blit in two modes.
MComparison CompareMode(MDrawMode mode) {
    constexpr Size BlitSize = {256, 256};
    Bench bench(BlitSize);
    const MBitmap picture = MakePicture(BlitSize, Alphas::Mixed);
    const auto blit = [&](MDrawMode blitMode) {
        return bench.Repeat([&, blitMode] {
            bench.drawer.BitBlt(picture.GetRect(), picture, {0, 0}, 255, blitMode);
        });
    };
    MComparison comparison = bench.Compare(blit(mode), blit(MDrawMode::Alphablend), GetModeGoal(mode));
    comparison.note += "; the reference is Alphablend";
    return comparison;
}

bool RegisterAll() {
    for (const Size size : Sizes) {
        MRegisterComparison("Pixels, solid fill " + size.GetText(), [size] { return CompareFill(size); });
        MRegisterComparison("Pixels, bitmap " + size.GetText(),
                            [size] { return CompareBlit(size, Alphas::Mixed); });
        MRegisterComparison("Pixels, opaque bitmap " + size.GetText(),
                            [size] { return CompareBlit(size, Alphas::Opaque); });
        MRegisterComparison("Pixels, solid through mask " + size.GetText(),
                            [size] { return CompareMask(size); });
        MRegisterComparison("Pixels, stretch to " + size.GetText(), [size] { return CompareStretch(size); });
    }
    for (int32_t i = 0; i < MColorOpCount; ++i) {
        const auto mode = static_cast<MDrawMode>(i);
        if (mode == MDrawMode::None || mode == MDrawMode::Alphablend) continue;
        MRegisterComparison("Pixels, " + MEncodeUTF8Exact(MGetColorOpName(mode)),
                            [mode] { return CompareMode(mode); });
    }
    return true;
}

[[maybe_unused]] const bool isRegistered = RegisterAll();

}  // namespace
