#pragma once

#include "ui/image/pixels/MPixelRowSets.h"

#include <cstring>

/// The rows, written once for all operations and all forms with vectors. A `Form` is MPixelsSSE2 or
/// MPixelsAVX2. It has `Block`, an even number `Count` of pixels, and `Lanes`, as many numbers of 16 bits as
/// half of the pixels have channels. The lanes are used in two ways:
///
/// - The channels of pixels: `GetLow` and `GetHigh` make them of a block, `Pack` makes a block of two times
///   values of up to 255.
/// - One number for each pixel of a block, in every other lane from the first on, with zeros between.
///   `GetAlphas` makes them of a block, `LoadMask` of bytes. `SpreadLow` and `SpreadHigh` repeat them in the
///   lanes of the colours of the pixels that `GetLow` and `GetHigh` give, with 0 in that of the alpha.
///
/// Operations named `...Part` load and store the first 1 to `Count` - 1 pixels of a block, and touch no
/// memory behind them. `Gather` takes the pixels at `position`, `position + step` and so on, in 16.16 fixed
/// point; so does `Pick`, which not all forms have, from a block. `AreOpaque` and `AreTransparent` tell
/// whether all alphas of a block are 255 or 0, `SubtractOne` takes 1 from each byte that is not 0, and
/// `WithAlphasOf` takes over the alphas of another block.
///
/// Lanes are compared, and the lesser or the greater is taken, as numbers with sign; so are those whose
/// `Magnitude` is asked for. `Signed(a, b)` gives a the sign of b; where b is 0, a has to be 0 too. A
/// comparison gives all bits or none. `Quotient` drops the fraction; the divisor is not 0, and the quotient
/// below 32768, or else it is any number. `Alphas` puts a pixel's alpha in all of its lanes, `ToAlphas` puts
/// the number of the red in the lane of the alpha and anything in the others, and `WithAlphas` takes over the
/// others' alphas. `Neighbours` swaps a pixel's first lane with the second and the third with the fourth,
/// `OtherPairs` swaps the first two with the last two.
namespace MPixelRowTemplate {

/// What comes over a block: the channels of its halves, and the scaled alphas in their colours' lanes.
template <class Lanes>
struct Paint {
    Lanes low;
    Lanes high;
    Lanes lowAlphas;
    Lanes highAlphas;
};

/// (alpha + 1) * opacity / 256; zeros between alphas stay.
template <class Lanes>
[[gnu::always_inline]] inline Lanes Scale(Lanes alphas, Lanes opacity) {
    return ((alphas + Lanes::All(1)) * opacity) >> 8;
}

template <class Form>
[[gnu::always_inline]] inline auto MakePaint(typename Form::Block block, typename Form::Lanes alphas) {
    return Paint<typename Form::Lanes>{Form::GetLow(block), Form::GetHigh(block), Form::SpreadLow(alphas),
                                       Form::SpreadHigh(alphas)};
}

/// The pixels of a row.
template <class Form>
struct BitmapSource {
    [[gnu::always_inline]] auto Get(int32_t x) const { return Form::Load(row + x); }
    [[gnu::always_inline]] auto GetPart(int32_t x, int32_t count) const {
        return Form::LoadPart(row + x, count);
    }

    const MColor* row;
};

/// The pixels of a row, some of them left out or repeated.
template <class Form>
struct StretchedSource {
    [[gnu::always_inline]] auto Get(int32_t x) const { return Form::Gather(row, GetPosition(x), step); }
    [[gnu::always_inline]] auto GetPart(int32_t x, int32_t count) const {
        return Form::GatherPart(row, GetPosition(x), step, count);
    }
    [[nodiscard]] uint32_t GetPosition(int32_t x) const { return start + static_cast<uint32_t>(x) * step; }

    const MColor* row;
    uint32_t start;
    uint32_t step;
};

/// The pixels of a row, none of them left out: those for a block lie in a block too. Nothing behind the last
/// pixel is read; a row of less than a block is copied into `room`.
template <class Form>
struct EnlargedSource {
    struct Room {
        alignas(MColor) unsigned char bytes[Form::Count * sizeof(MColor)] = {};
    };

    EnlargedSource(const StretchedSource<Form>& newSource, int32_t count, Room& room) : source(newSource) {
        const uint32_t size = (source.GetPosition(count - 1) >> 16) + 1;
        if (size >= Form::Count) {
            lastBlock = size - Form::Count;
        } else {
            std::memcpy(room.bytes, source.row, size * sizeof(MColor));
            source.row = reinterpret_cast<const MColor*>(room.bytes);
        }
    }

    [[gnu::always_inline]] auto Get(int32_t x) const {
        const uint32_t position = source.GetPosition(x);
        const uint32_t first = position >> 16 < lastBlock ? position >> 16 : lastBlock;
        return Form::Pick(Form::Load(source.row + first), position - (first << 16), source.step);
    }
    [[gnu::always_inline]] auto GetPart(int32_t x, int32_t) const { return Get(x); }

private:
    StretchedSource<Form> source;
    uint32_t lastBlock = 0;
};

/// The pixels of another source, with their alphas scaled.
template <class Form, class Source>
struct ScaledSource {
    using Lanes = typename Form::Lanes;

    ScaledSource(const Source& newSource, uint8_t alpha) : source(newSource), opacity(Lanes::All(alpha)) {}

    [[gnu::always_inline]] Paint<Lanes> Get(int32_t x) const { return MakePaint(source.Get(x)); }
    [[gnu::always_inline]] Paint<Lanes> GetPart(int32_t x, int32_t count) const {
        return MakePaint(source.GetPart(x, count));
    }

private:
    [[gnu::always_inline]] Paint<Lanes> MakePaint(typename Form::Block block) const {
        return MPixelRowTemplate::MakePaint<Form>(block, Scale(Form::GetAlphas(block), opacity));
    }

    Source source;
    Lanes opacity;
};

/// One colour. What is done to its paint alone, the compiler takes out of the loop.
template <class Form>
struct ColorSource {
    using Lanes = typename Form::Lanes;

    explicit ColorSource(MColor color)
        : channels(Lanes::Repeat(color)), alphas(Lanes::Repeat(color.alpha, color.alpha, color.alpha, 0)) {}

    [[gnu::always_inline]] Paint<Lanes> Get(int32_t) const { return {channels, channels, alphas, alphas}; }
    [[gnu::always_inline]] Paint<Lanes> GetPart(int32_t x, int32_t) const { return Get(x); }

private:
    Lanes channels;
    Lanes alphas;
};

/// One colour through a mask.
template <class Form>
struct MaskSource {
    using Lanes = typename Form::Lanes;

    MaskSource(const uint8_t* mask, MColor color)
        : mask(mask), channels(Lanes::Repeat(color)), opacity(Lanes::All(color.alpha)) {}

    [[gnu::always_inline]] Paint<Lanes> Get(int32_t x) const { return MakePaint(Form::LoadMask(mask + x)); }
    [[gnu::always_inline]] Paint<Lanes> GetPart(int32_t x, int32_t count) const {
        return MakePaint(Form::LoadMaskPart(mask + x, count));
    }

private:
    [[gnu::always_inline]] Paint<Lanes> MakePaint(Lanes bytes) const {
        const Lanes alphas = Scale(bytes, opacity);
        return {channels, channels, Form::SpreadLow(alphas), Form::SpreadHigh(alphas)};
    }

    const uint8_t* mask;
    Lanes channels;
    Lanes opacity;
};

template <class Form, class Operator>
[[gnu::always_inline]] inline auto Combine(typename Form::Block target,
                                           const Paint<typename Form::Lanes>& paint) {
    return Form::Pack(Operator::Combine(Form::GetLow(target), paint.low, paint.lowAlphas),
                      Operator::Combine(Form::GetHigh(target), paint.high, paint.highAlphas));
}

template <class Form, class Operator>
concept HasOpaqueForm = requires(typename Form::Block block) {
    Operator::template CombineOpaque<Form>(block, block);
};

template <class Form, class Operator>
concept HasUnscaledForm = requires(typename Form::Block block) {
    Operator::template CombineUnscaled<Form>(block, block);
};

/// Pictures have large parts that are opaque or transparent, and are mostly blended.
template <class Form, class Operator>
[[gnu::always_inline]] inline auto Combine(typename Form::Block target, typename Form::Block source) {
    if constexpr (HasUnscaledForm<Form, Operator>) {
        return Operator::template CombineUnscaled<Form>(target, source);
    } else if constexpr (HasOpaqueForm<Form, Operator>) {
        if (Form::AreOpaque(source)) return Operator::template CombineOpaque<Form>(target, source);
        if (Form::AreTransparent(source)) return target;
    }
    return Combine<Form, Operator>(target, MakePaint<Form>(source, Form::GetAlphas(source)));
}

/// The loop of all rows.
template <class Form, class Operator, class Source>
[[gnu::always_inline]] inline void CombineRow(MColor* target, int32_t count, const Source& source) {
    int32_t x = 0;
    for (; x <= count - Form::Count; x += Form::Count)
        Form::Store(target + x, Combine<Form, Operator>(Form::Load(target + x), source.Get(x)));
    const int32_t rest = count - x;
    if (rest <= 0) return;
    const auto last = Combine<Form, Operator>(Form::LoadPart(target + x, rest), source.GetPart(x, rest));
    Form::StorePart(target + x, last, rest);
}

template <class Form>
concept HasPick = requires(typename Form::Block block) {
    Form::Pick(block, 0u, 0u);
};

template <class Form, class Operator>
struct Rows {
    static void Blit(MColor* target, const MColor* source, int32_t count, uint8_t alpha) {
        CombinePixels(target, count, BitmapSource<Form>{source}, alpha);
    }
    static void Fill(MColor* target, int32_t count, MColor color) {
        CombineRow<Form, Operator>(target, count, ColorSource<Form>(color));
    }
    static void Mask(MColor* target, const uint8_t* mask, int32_t count, MColor color) {
        CombineRow<Form, Operator>(target, count, MaskSource<Form>(mask, color));
    }
    static void Stretch(MColor* target, const MColor* row, uint32_t position, uint32_t step, int32_t count,
                        uint8_t alpha) {
        const StretchedSource<Form> source{row, position, step};
        if constexpr (HasPick<Form>) {
            typename EnlargedSource<Form>::Room room;
            if (step <= 0x10000 && count > 0)
                return CombinePixels(target, count, EnlargedSource<Form>(source, count, room), alpha);
        }
        CombinePixels(target, count, source, alpha);
    }

    static constexpr MPixelRows Set = {Blit, Fill, Mask, Stretch};

private:
    template <class Source>
    [[gnu::always_inline]] static void CombinePixels(MColor* target, int32_t count, const Source& source,
                                                     uint8_t alpha) {
        if (alpha == 255) return CombineRow<Form, Operator>(target, count, source);
        CombineRow<Form, Operator>(target, count, ScaledSource<Form, Source>(source, alpha));
    }
};

}  // namespace MPixelRowTemplate
