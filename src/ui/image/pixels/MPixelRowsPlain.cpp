#include "ui/image/pixels/MPixelLanes.h"
#include "ui/image/pixels/MPixelRowSets.h"

namespace {

uint8_t Scale(uint8_t alpha, uint8_t opacity) {
    return static_cast<uint8_t>(((alpha + 1) * opacity) >> 8);
}

/// The rows pixel by pixel.
template <class Operator>
struct PlainRows {
    static void Blit(MColor* target, const MColor* source, int32_t count, uint8_t alpha) {
        for (int32_t i = 0; i < count; ++i) Combine(target[i], source[i], Scale(source[i].alpha, alpha));
    }
    static void Fill(MColor* target, int32_t count, MColor color) {
        for (int32_t i = 0; i < count; ++i) Combine(target[i], color, color.alpha);
    }
    static void Mask(MColor* target, const uint8_t* mask, int32_t count, MColor color) {
        for (int32_t i = 0; i < count; ++i) Combine(target[i], color, Scale(mask[i], color.alpha));
    }
    static void Stretch(MColor* target, const MColor* source, uint32_t position, uint32_t step, int32_t count,
                        uint8_t alpha) {
        for (int32_t i = 0; i < count; ++i, position += step) {
            const MColor pixel = source[position >> 16];
            Combine(target[i], pixel, Scale(pixel.alpha, alpha));
        }
    }

    static constexpr MPixelRows Set = {Blit, Fill, Mask, Stretch};

private:
    // Programs are smaller with one of it, and rows in this form are rare.
    [[gnu::noinline]] static void Combine(MColor& target, MColor source, uint8_t alpha) {
        target = Operator::Combine(MPixelLanes::Repeat(target), MPixelLanes::Repeat(source),
                                   MPixelLanes::Repeat(alpha, alpha, alpha, 0))
                     .GetColor();
    }
};

}  // namespace

constexpr MPixelRowSet MPixelRowsPlain = MMakePixelRowSet<PlainRows>();
