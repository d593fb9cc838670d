#pragma once

#include "ui/drawing/MPixelOperators.h"
#include "ui/drawing/MPixelRowSets.h"

/// The rows, written once for all operations and all forms. A `Form` is one of MPixelsPlain, MPixelsSSE2 and
/// MPixelsAVX2; it has
///
/// - `Block`, an even number `Count` of pixels, and `Lanes`, half of them as numbers of 16 bits (MPixelOperators.h),
///   and the ways between the two: `GetLow`, `GetHigh`, `Pack`, which takes values of up to 255;
/// - operations that load and store a block, and `...Part` of it: the first 1 to `Count` - 1 pixels, touching no
///   memory behind them. `LoadMask` makes a pixel of each byte by repeating it; `Gather` takes the pixels at
///   `position`, `position + step` and so on, in 16.16 fixed point.
///
/// Lanes are compared, and the lesser or the greater is taken, as numbers with sign; so are those whose `Magnitude` is
/// asked for. `Signed(a, b)` gives a the sign of b; where b is 0, a has to be 0 too. A comparison gives all bits or
/// none. `Alphas` puts a pixel's alpha in all of its lanes, `WithAlphas` takes over the others' alphas, `OnColors`
/// clears the alphas, and `SumOfPixel` puts the sum of its lanes in each of them.
namespace MPixelRowTemplate {

/// What comes over one half of a block: the source, and its scaled alphas in all lanes.
template <class Lanes>
struct Paint {
    Lanes colors;
    Lanes alphas;
};

/// (alpha + 1) * opacity / 256
template <class Lanes>
[[gnu::always_inline]] inline Lanes Scale(Lanes alphas, Lanes opacity) {
    return ((alphas + Lanes::All(1)) * opacity) >> 8;
}

/// A source of which each block of pixels is another, with their own alphas.
template <class Form>
struct PixelSource {
    using Lanes = typename Form::Lanes;
    using Block = typename Form::Block;

    explicit PixelSource(uint8_t alpha) : opacity(Lanes::All(alpha)) {}

    [[gnu::always_inline]] Paint<Lanes> GetLow(Block block) const { return MakePaint(Form::GetLow(block)); }
    [[gnu::always_inline]] Paint<Lanes> GetHigh(Block block) const { return MakePaint(Form::GetHigh(block)); }

private:
    [[gnu::always_inline]] Paint<Lanes> MakePaint(Lanes colors) const {
        return {colors, Scale(colors.Alphas(), opacity)};
    }

    Lanes opacity;
};

/// The pixels of a row.
template <class Form>
struct BitmapSource : PixelSource<Form> {
    BitmapSource(const MColor* row, uint8_t alpha) : PixelSource<Form>(alpha), row(row) {}

    [[gnu::always_inline]] auto Load(int32_t x) const { return Form::Load(row + x); }
    [[gnu::always_inline]] auto LoadPart(int32_t x, int32_t count) const {
        return Form::LoadPart(row + x, count);
    }

private:
    const MColor* row;
};

/// The pixels of a row, some of them left out or repeated.
template <class Form>
struct StretchedSource : PixelSource<Form> {
    StretchedSource(const MColor* row, uint32_t position, uint32_t step, uint8_t alpha)
        : PixelSource<Form>(alpha), row(row), start(position), step(step) {}

    [[gnu::always_inline]] auto Load(int32_t x) const { return Form::Gather(row, GetPosition(x), step); }
    [[gnu::always_inline]] auto LoadPart(int32_t x, int32_t count) const {
        return Form::GatherPart(row, GetPosition(x), step, count);
    }

private:
    [[nodiscard]] uint32_t GetPosition(int32_t x) const { return start + static_cast<uint32_t>(x) * step; }

    const MColor* row;
    uint32_t start;
    uint32_t step;
};

/// One colour. Its paint is the same for all blocks, so the compiler takes the work on it out of the loop.
template <class Form>
struct ColorSource {
    using Lanes = typename Form::Lanes;
    struct Nothing {};

    explicit ColorSource(MColor color) : paint{Lanes::Repeat(color), Lanes::All(color.alpha)} {}

    [[gnu::always_inline]] Nothing Load(int32_t) const { return {}; }
    [[gnu::always_inline]] Nothing LoadPart(int32_t, int32_t) const { return {}; }
    [[gnu::always_inline]] Paint<Lanes> GetLow(Nothing) const { return paint; }
    [[gnu::always_inline]] Paint<Lanes> GetHigh(Nothing) const { return paint; }

private:
    Paint<Lanes> paint;
};

/// One colour through a mask.
template <class Form>
struct MaskSource {
    using Lanes = typename Form::Lanes;
    using Block = typename Form::Block;

    MaskSource(const uint8_t* mask, MColor color)
        : mask(mask), colors(Lanes::Repeat(color)), opacity(Lanes::All(color.alpha)) {}

    [[gnu::always_inline]] Block Load(int32_t x) const { return Form::LoadMask(mask + x); }
    [[gnu::always_inline]] Block LoadPart(int32_t x, int32_t count) const {
        return Form::LoadMaskPart(mask + x, count);
    }
    [[gnu::always_inline]] Paint<Lanes> GetLow(Block block) const { return MakePaint(Form::GetLow(block)); }
    [[gnu::always_inline]] Paint<Lanes> GetHigh(Block block) const { return MakePaint(Form::GetHigh(block)); }

private:
    [[gnu::always_inline]] Paint<Lanes> MakePaint(Lanes alphas) const {
        return {colors, Scale(alphas, opacity)};
    }

    const uint8_t* mask;
    Lanes colors;
    Lanes opacity;
};

template <class Operator, class Lanes>
[[gnu::always_inline]] inline Lanes Combine(Lanes target, const Paint<Lanes>& paint) {
    return Operator::Combine(target, paint.colors, paint.alphas);
}

/// The loop of all rows.
template <class Form, class Operator, class Source>
[[gnu::always_inline]] inline void CombineRow(MColor* target, int32_t count, const Source& source) {
    const auto combine = [&](typename Form::Block block, auto sourceBlock) __attribute__((always_inline)) {
        return Form::Pack(Combine<Operator>(Form::GetLow(block), source.GetLow(sourceBlock)),
                          Combine<Operator>(Form::GetHigh(block), source.GetHigh(sourceBlock)));
    };
    int32_t x = 0;
    for (; x <= count - Form::Count; x += Form::Count)
        Form::Store(target + x, combine(Form::Load(target + x), source.Load(x)));
    const int32_t rest = count - x;
    if (rest <= 0) return;
    Form::StorePart(target + x, combine(Form::LoadPart(target + x, rest), source.LoadPart(x, rest)), rest);
}

template <class Form, class Operator>
struct Rows {
    static void Blit(MColor* target, const MColor* source, int32_t count, uint8_t alpha) {
        CombineRow<Form, Operator>(target, count, BitmapSource<Form>(source, alpha));
    }
    static void Fill(MColor* target, int32_t count, MColor color) {
        CombineRow<Form, Operator>(target, count, ColorSource<Form>(color));
    }
    static void Mask(MColor* target, const uint8_t* mask, int32_t count, MColor color) {
        CombineRow<Form, Operator>(target, count, MaskSource<Form>(mask, color));
    }
    static void Stretch(MColor* target, const MColor* source, uint32_t position, uint32_t step, int32_t count,
                        uint8_t alpha) {
        CombineRow<Form, Operator>(target, count, StretchedSource<Form>(source, position, step, alpha));
    }

    static constexpr MPixelRows Set = {Blit, Fill, Mask, Stretch};
};

/// The rows of all operations but None, which paints nothing, and Color, which has no form for vectors.
template <class Form>
constexpr MPixelRowSet MakeSet() {
    using namespace MPixelOperators;
    return {MPixelRows(),
            Rows<Form, Alphablend>::Set,
            Rows<Form, Modulate>::Set,
            Rows<Form, Copy>::Set,
            Rows<Form, Overlay>::Set,
            MPixelRows(),
            Rows<Form, Invert>::Set,
            Rows<Form, Add>::Set,
            Rows<Form, Subtract>::Set,
            Rows<Form, Lighten>::Set,
            Rows<Form, Darken>::Set,
            Rows<Form, Difference>::Set,
            Rows<Form, IncContrast>::Set,
            Rows<Form, DecContrast>::Set,
            Rows<Form, LightenByContrast>::Set,
            Rows<Form, DarkenByContrast>::Set,
            Rows<Form, AddAndOverflow>::Set};
}

}  // namespace MPixelRowTemplate
