#include "ui/image/pixels/MPixelRows.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace {

constexpr size_t ValueCount = 256;
using Pixels = std::vector<MColor>;

uint8_t Byte(size_t value) {
    return static_cast<uint8_t>(value);
}

int32_t Blend(int32_t d, int32_t s, int32_t a) {
    return a == 0 ? d : (s * a + d * (255 - a)) / 256;
}

int32_t IncreaseContrast(int32_t d, int32_t s) {
    return std::clamp(((s * -16 + 4335) * (d - 127)) / 255 + 127, 0, 255);
}

/// What becomes of one channel; `luminance` is that of the source pixel, for the operations that go by it.
int32_t CombineChannel(MColorOp operation, int32_t d, int32_t s, int32_t a, int32_t luminance) {
    const int32_t increased = IncreaseContrast(d, s);
    switch (operation) {
    case MColorOp::Alphablend:
    case MColorOp::Color:
    case MColorOp::Overlay: return Blend(d, s, a);
    case MColorOp::Modulate: return Blend(d, s * (d + 1) / 256, a);
    case MColorOp::Copy: return s;
    case MColorOp::Invert: return Blend(d, 255 - d, a);
    case MColorOp::Add: return std::min(255, d + s * a / 256);
    case MColorOp::Subtract: return std::max(0, d - s * a / 256);
    case MColorOp::Lighten: return std::min(255, d + luminance * a / 256);
    case MColorOp::Darken: return std::max(0, d - (255 - luminance) * a / 256);
    case MColorOp::Difference: return Blend(d, std::abs(d - s), a);
    case MColorOp::IncContrast: return Blend(d, increased, a);
    case MColorOp::DecContrast: return Blend(d, s * (d - 127) / 255 + 127, a);
    case MColorOp::LightenByContrast: return increased > d ? std::max(d, Blend(d, increased, a)) : d;
    case MColorOp::DarkenByContrast: return increased < d ? Blend(d, increased, a) : d;
    case MColorOp::AddAndOverflow: return (d + s * a / 256) % 256;
    case MColorOp::None: break;
    }
    return d;
}

MColor Combine(MColorOp operation, MColor target, MColor source) {
    if (operation == MColorOp::Overlay && target.alpha == 0) return source;
    const MColor s = operation == MColorOp::Color ? source.WithLightnessOf(target) : source;
    const auto combine = [&](int32_t targetChannel, int32_t sourceChannel) {
        return static_cast<uint8_t>(
            CombineChannel(operation, targetChannel, sourceChannel, source.alpha, source.GetLuminance()));
    };
    int32_t alpha = target.alpha;
    if (operation == MColorOp::Copy) alpha = source.alpha;
    if (operation == MColorOp::Overlay) alpha = std::min(255, target.alpha + source.alpha);
    return {combine(target.blue, s.blue), combine(target.green, s.green), combine(target.red, s.red),
            static_cast<uint8_t>(alpha)};
}

/// Every value in each channel, in another order in each; the alphas are all sorts, and often 0.
Pixels MakeValues() {
    Pixels values;
    for (size_t i = 0; i < ValueCount; ++i)
        values.push_back({Byte(i), Byte(i ^ 0x5A), Byte(255 - i), Byte(i % 5 == 0 ? 0 : i * 37)});
    return values;
}

/// Pixels of all sorts, in the first half with runs that are transparent or opaque.
Pixels MakePixels(size_t count, uint32_t seed) {
    const std::string noise = MTestNoise(count * sizeof(MColor), seed);
    Pixels pixels(count);
    std::copy_n(noise.data(), noise.size(), reinterpret_cast<char*>(pixels.data()));
    for (size_t i = 0; i < count / 2; ++i) pixels[i].alpha = i % 23 < 11 ? 0 : 255;
    return pixels;
}

}  // namespace

class MPixelRowsTest : public testing::TestWithParam<std::tuple<int32_t, MPixelForm>> {
protected:
    void SetUp() override {
        if (!MHasPixelForm(std::get<MPixelForm>(GetParam()))) GTEST_SKIP() << "not on this processor";
    }

    /// Whether the sources make of all values what the formula says; their alphas are scaled beforehand.
    [[nodiscard]] bool FollowsFormula(const Pixels& sources, size_t opacity) const {
        Pixels found = values;
        rows.blit(found.data(), sources.data(), static_cast<int32_t>(ValueCount), Byte(opacity));
        for (size_t i = 0; i < ValueCount; ++i) {
            const MColor scaled = sources[i].WithAlpha(Byte((sources[i].alpha + 1) * opacity / 256));
            const MColor right = Combine(operation, values[i], scaled);
            if (found[i] == right) continue;
            ADD_FAILURE() << std::hex << scaled.GetWord() << " over " << values[i].GetWord() << " gives "
                          << found[i].GetWord() << " instead of " << right.GetWord();
            return false;
        }
        return true;
    }

    const MColorOp operation{std::get<int32_t>(GetParam())};
    const MPixelRows& rows = MGetPixelRows(operation, std::get<MPixelForm>(GetParam()));
    const Pixels values = MakeValues();
};

// A third of the values of a channel is seen in each of the three, so that together each meets each value of the target
// with each alpha.
TEST_P(MPixelRowsTest, FollowsItsFormulaForAllValues) {
    constexpr size_t Third = ValueCount / 3 + 1;
    for (size_t alpha = 0; alpha < ValueCount; alpha += BYTE_STRIDE)
        for (size_t s = 0; s < Third; ++s) {
            const MColor source{Byte(s), Byte(s + Third), Byte(s + 2 * Third), Byte(alpha)};
            ASSERT_TRUE(FollowsFormula(Pixels(ValueCount, source), 255));
        }
    Pixels sources = values;
    for (size_t alpha = 0; alpha < ValueCount; ++alpha) sources[alpha].alpha = Byte(alpha);
    for (size_t opacity = 0; opacity < ValueCount; opacity += BYTE_STRIDE)
        ASSERT_TRUE(FollowsFormula(sources, opacity)) << opacity;
    if (operation != MColorOp::Color) return;
    // Here the channels depend on each other.
    constexpr uint8_t Values[] = {0, 1, 2, 64, 126, 127, 128, 129, 200, 253, 254, 255};
    for (const uint8_t blue : Values)
        for (const uint8_t green : Values)
            for (const uint8_t red : Values)
                ASSERT_TRUE(FollowsFormula(Pixels(ValueCount, MColor{blue, green, red, 255}), 255));
}

// Each row is painted with pixels around it that have to stay, and compared with one painted pixel by pixel.
TEST_P(MPixelRowsTest, PaintsRowsOfAnyLengthAsPixelByPixel) {
    constexpr size_t Guard = 9;
    constexpr size_t MostPixels = 70;
    constexpr uint32_t Position = 0xABCD;
    const MColor color{90, 200, 10, 140};
    const Pixels target = MakePixels(MostPixels + 3 * Guard, 1);
    const MPixelRows& plain = MGetPixelRows(operation, MPixelForm::Plain);
    for (size_t start = Guard; start < Guard + 8; start += BYTE_STRIDE)
        for (size_t count = 0; count <= MostPixels && !HasFailure(); ++count) {
            const auto size = static_cast<int32_t>(count);
            const auto check = [&](const char* name, const Pixels& sources, uint8_t alpha, auto paint) {
                Pixels found = target;
                Pixels right = target;
                paint(found.data() + start);
                for (size_t i = 0; i < count; ++i) plain.blit(&right[start + i], &sources[i], 1, alpha);
                EXPECT_EQ(found, right) << name << ", " << count << " pixels from " << start;
            };
            const Pixels pixels = MakePixels(count, 2);
            for (const uint8_t alpha : {201, 255})
                check("blit", pixels, alpha,
                      [&](MColor* row) { rows.blit(row, pixels.data(), size, alpha); });
            check("fill", Pixels(count, color), 255, [&](MColor* row) { rows.fill(row, size, color); });
            Pixels masked(count, color);
            std::vector<uint8_t> mask;
            for (size_t i = 0; i < count; ++i) mask.push_back(masked[i].alpha = pixels[i].red);
            check("mask", masked, color.alpha,
                  [&](MColor* row) { rows.mask(row, mask.data(), size, color); });
            for (const uint32_t step : {0x0u, 0x1u, 0x5555u, 0xFFFFu, 0x10000u, 0x10001u, 0x2FFFFu}) {
                const Pixels source =
                    MakePixels(((Position + std::max<size_t>(count, 1) * step) >> 16) + 1, 3);
                Pixels gathered;
                for (uint32_t i = 0; i < count; ++i) gathered.push_back(source[(Position + i * step) >> 16]);
                const uint8_t alpha = count % 2 == 0 ? 230 : 255;
                check("stretch", gathered, alpha,
                      [&](MColor* row) { rows.stretch(row, source.data(), Position, step, size, alpha); });
            }
        }
}

INSTANTIATE_TEST_SUITE_P(All, MPixelRowsTest,
                         testing::Combine(testing::Range(0, MColorOpCount),
                                          testing::Values(MPixelForm::Plain, MPixelForm::SSE2,
                                                          MPixelForm::AVX2)),
                         [](const testing::TestParamInfo<MPixelRowsTest::ParamType>& instance) {
                             const MColorOp operation{std::get<int32_t>(instance.param)};
                             const auto form = static_cast<int>(std::get<MPixelForm>(instance.param));
                             return Text(MGetColorOpName(operation)) + "_" + std::to_string(form);
                         });

TEST(MPixelRowsSelectionTest, AnUnknownOperationPaintsNothing) {
    MColor pixel{1, 2, 3, 4};
    for (const int32_t operation : {MColorOpCount, -1})
        MGetPixelRows(MColorOp{operation}).fill(&pixel, 1, MColor());
    EXPECT_EQ(pixel, (MColor{1, 2, 3, 4}));
}
