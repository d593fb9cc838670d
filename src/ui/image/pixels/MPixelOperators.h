#pragma once

#include "ui/image/MColor.h"

/// The pixel operators: what each `MColorOp` does to a pixel. Each struct stands for one operation and is
/// written once for all forms of the rows (MPixelRows.h): `Lanes` are numbers of 16 bits without sign, four
/// for each pixel, in the order blue, green, red, alpha. Their operations are told in MPixelRowTemplate.h.
///
/// In the formulas d is a channel of the destination, s that of the source, i = 255 - a, and a the source's
/// alpha, scaled beforehand by the operation's own one: (alpha + 1) * opacity / 256. All of it is done in
/// whole numbers; a division by 256 is a shift. Formulas are for the three colours. The destination's alpha
/// stays as it is unless the operation says otherwise; for that, the lane of the alpha in `a` is 0.
///
/// A source with a = 0 changes nothing, although the formulas would darken the destination by one step; Copy,
/// and Overlay over nothing, are the exceptions.
namespace MPixelOperators {

/// (s * a + d * i) / 256. Where a is 0, i is taken as 256, which leaves d whole.
template <class Lanes>
[[gnu::always_inline]] inline Lanes Blend(Lanes d, Lanes s, Lanes a) {
    const Lanes i = Lanes::All(255) - a - Equals(a, Lanes::All(0));
    return (s * a + d * i) >> 8;
}

/// What `combine` makes of the four lanes of each pixel, in all of them.
template <class Lanes, class Function>
[[gnu::always_inline]] inline Lanes OverPixel(Lanes s, Function combine) {
    const Lanes pairs = combine(s, s.Neighbours());
    return combine(pairs, pairs.OtherPairs());
}

/// The luminance of each pixel in its four lanes, as in MColor::GetLuminance.
template <class Lanes>
[[gnu::always_inline]] inline Lanes Luminance(Lanes s) {
    const auto add = [](Lanes a, Lanes b) { return a + b; };
    return OverPixel(s * Lanes::Repeat(29, 150, 77, 0), add) >> 8;
}

/// The least of each pixel's colours, in its four lanes.
template <class Lanes>
[[gnu::always_inline]] inline Lanes Lowest(Lanes s) {
    return OverPixel(s.WithAlphas(s.ToAlphas()), [](Lanes a, Lanes b) { return Min(a, b); });
}

/// The greatest of each pixel's colours, in its four lanes.
template <class Lanes>
[[gnu::always_inline]] inline Lanes Highest(Lanes s) {
    return OverPixel(s.WithAlphas(s.ToAlphas()), [](Lanes a, Lanes b) { return Max(a, b); });
}

/// How far the colours may be spread at a lightness, which is the sum of the extremes.
template <class Lanes>
[[gnu::always_inline]] inline Lanes Spread(Lanes lightness) {
    return Lanes::All(255) - Magnitude(lightness - Lanes::All(255));
}

/// As `MColor::WithLightnessOf`; anything in the lanes of the alphas.
///
/// At a fixed hue and saturation each channel lies at a fixed part of the spread above the lowest one, and
/// the chroma takes a fixed part of the spread, which depends on the lightness alone.
template <class Lanes>
[[gnu::always_inline]] inline Lanes WithLightnessOf(Lanes s, Lanes d) {
    const Lanes from = Lowest(s) + Highest(s);
    const Lanes to = Lowest(d) + Highest(d);
    // c := (to * spread + offset * Spread(to) + spread) / (2 * spread). What is whole of the lightness is
    // kept out of the division, and a negative quotient is rounded away from 0, so that 16 bits without sign
    // are enough.
    const Lanes spread = Spread(from);
    const Lanes divisor = Max(spread + spread, Lanes::All(1));
    const Lanes lightness = to + Lanes::All(1);
    const Lanes half = spread & (Lanes::All(0) - (lightness & Lanes::All(1)));
    const Lanes offset = s + s - from;
    const Lanes rounding = Select(IsAbove(Lanes::All(0), offset), divisor - Lanes::All(1) - half, half);
    const Lanes moved = Quotient(Magnitude(offset) * Spread(to) + rounding, divisor);
    return (lightness >> 1) + Signed(moved, offset);
}

/// x / 255, for all x of 16 bits.
template <class Lanes>
[[gnu::always_inline]] inline Lanes DividedBy255(Lanes x) {
    return MultiplyHigh(x, Lanes::All(0x8081)) >> 7;
}

/// How much farther from 127 a d is after the contrast was increased, without the limits; `distance` is where
/// it was.
///
/// As s * -16 + 4335 is 255 + 16 * (255 - s), the curve of IncContrast adds 16 * (255 - s) * distance / 255.
/// What lies behind the point of a quotient by 255 does not change the quotient by 16 that follows, so 16
/// bits are enough.
template <class Lanes>
[[gnu::always_inline]] inline Lanes AddedContrast(Lanes distance, Lanes s) {
    const Lanes product = (Lanes::All(255) - s) * distance;
    return (product + DividedBy255(product)) >> 4;
}

/// d := (s * a + d * i) / 256
struct Alphablend {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        return Blend(d, s, a);
    }

    /// The same for pixels whose a is 255 throughout: d := max(0, s - 1).
    template <class Form>
    [[gnu::always_inline]] static auto CombineOpaque(typename Form::Block target,
                                                     typename Form::Block source) {
        return Form::WithAlphasOf(Form::SubtractOne(source), target);
    }
};

/// m := s * (d + 1) / 256; d := (m * a + d * i) / 256
struct Modulate {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        return Blend(d, (s * (d + Lanes::All(1))) >> 8, a);
    }
};

/// All four bytes of the source, a included.
struct Copy {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes, Lanes s, Lanes a) {
        return s.WithAlphas(a.ToAlphas());
    }

    /// The same for pixels whose alphas are not scaled.
    template <class Form>
    [[gnu::always_inline]] static auto CombineUnscaled(typename Form::Block, typename Form::Block source) {
        return source;
    }
};

/// Over a destination of alpha 0, all four bytes of the source, a included. Otherwise as Alphablend, and the
/// alpha of the destination := min(255, alpha + a).
struct Overlay {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        const Lanes alphas = d.Alphas();
        const Lanes added = Min(alphas + a.ToAlphas(), Lanes::All(255));
        return Select(Equals(alphas, Lanes::All(0)), s.WithAlphas(a.ToAlphas()),
                      Blend(d, s, a).WithAlphas(added));
    }
};

/// c := the source with the lightness of the destination (MColor::WithLightnessOf);
/// d := (c * a + d * i) / 256
struct Color {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        return Blend(d, WithLightnessOf(s, d), a);
    }
};

/// d := ((255 - d) * a + d * i) / 256
struct Invert {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes, Lanes a) {
        return Blend(d, Lanes::All(255) - d, a);
    }
};

/// d := min(255, d + s * a / 256)
struct Add {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        return Min(d + ((s * a) >> 8), Lanes::All(255));
    }
};

/// d := max(0, d - s * a / 256)
struct Subtract {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        return SubtractToZero(d, (s * a) >> 8);
    }
};

/// l := the source's luminance; d := min(255, d + l * a / 256)
struct Lighten {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        return Min(d + ((Luminance(s) * a) >> 8), Lanes::All(255));
    }
};

/// l := the source's luminance; d := max(0, d - (255 - l) * a / 256)
struct Darken {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        return SubtractToZero(d, ((Lanes::All(255) - Luminance(s)) * a) >> 8);
    }
};

/// d := (|d - s| * a + d * i) / 256
struct Difference {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        return Blend(d, Magnitude(d - s), a);
    }
};

/// c := (s * -16 + 4335) * (d - 127) / 255 + 127, the division towards zero, limited to 0..255;
/// d := (c * a + d * i) / 256
struct IncContrast {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        const Lanes offset = d - Lanes::All(127);
        const Lanes c = d + Signed(AddedContrast(Magnitude(offset), s), offset);
        return Blend(d, Min(Max(c, Lanes::All(0)), Lanes::All(255)), a);
    }
};

/// c := s * (d - 127) / 255 + 127, the division towards zero; d := (c * a + d * i) / 256
struct DecContrast {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        const Lanes offset = d - Lanes::All(127);
        return Blend(d, Lanes::All(127) + Signed(DividedBy255(s * Magnitude(offset)), offset), a);
    }
};

/// c as in IncContrast; where c > d, d := max(d, (c * a + d * i) / 256). So it never darkens. That c > d only
/// happens above 127; below, c stands for d here, and the blend is not above it.
struct LightenByContrast {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        const Lanes added = AddedContrast(SubtractToZero(d, Lanes::All(127)), s);
        return Max(d, Blend(d, Min(d + added, Lanes::All(255)), a));
    }
};

/// c as in IncContrast; where c < d, d := (c * a + d * i) / 256. So it never lightens.
struct DarkenByContrast {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        const Lanes c = SubtractToZero(d, AddedContrast(SubtractToZero(Lanes::All(127), d), s));
        return Blend(d, c, a & IsAbove(d, c));
    }
};

/// d := (d + s * a / 256) mod 256
struct AddAndOverflow {
    template <class Lanes>
    [[gnu::always_inline]] static Lanes Combine(Lanes d, Lanes s, Lanes a) {
        return (d + ((s * a) >> 8)) & Lanes::All(255);
    }
};

}  // namespace MPixelOperators
