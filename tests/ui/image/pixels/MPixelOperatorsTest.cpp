#include "ui/image/pixels/MPixelRows.h"

#include "foundation/text/MUnicode.h"
#include "tests/ui/image/pixels/PixelForms.h"

#include <algorithm>
#include <array>
#include <future>
#include <gmock/gmock.h>
#include <optional>
#include <sstream>
#include <thread>

namespace {

constexpr int32_t ValueCount = 256;
using Row = std::array<MColor, ValueCount>;

int32_t Blend(int32_t d, int32_t s, int32_t a) {
    return a == 0 ? d : (s * a + d * (255 - a)) / 256;
}

int32_t IncreaseContrast(int32_t d, int32_t s) {
    return std::clamp(((s * -16 + 4335) * (d - 127)) / 255 + 127, 0, 255);
}

int32_t DecreaseContrast(int32_t d, int32_t s) {
    return std::clamp((s * (d - 127)) / 255 + 127, 0, 255);
}

int32_t GetLuminance(MColor color) {
    return (77 * color.red + 150 * color.green + 29 * color.blue) / 256;
}

/// Twice the lightness of HSL, the sum of the lowest and the highest channel; and how far the channels may be spread.
int32_t GetLightness(MColor color) {
    const auto [low, high] = std::minmax({color.blue, color.green, color.red});
    return low + high;
}

int32_t GetSpread(int32_t lightness) {
    return 255 - std::abs(lightness - 255);
}

/// Hue and saturation of the source with the lightness of the target.
MColor Tint(MColor target, MColor source) {
    const int32_t from = GetLightness(source);
    const int32_t to = GetLightness(target);
    const int32_t spread = GetSpread(from);
    const auto move = [&](int32_t channel) {
        // Black and white have no hue.
        if (spread == 0) return static_cast<uint8_t>((to + 1) / 2);
        const int32_t doubled = to * spread + (2 * channel - from) * GetSpread(to);
        return static_cast<uint8_t>((doubled + spread) / (2 * spread));
    };
    return {move(source.blue), move(source.green), move(source.red), source.alpha};
}

/// What becomes of one channel; `luminance` is that of the source pixel, for the operations that go by it.
int32_t CombineChannel(MColorOp operation, int32_t d, int32_t s, int32_t a, int32_t luminance) {
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
    case MColorOp::IncContrast: return Blend(d, IncreaseContrast(d, s), a);
    case MColorOp::DecContrast: return Blend(d, DecreaseContrast(d, s), a);
    case MColorOp::LightenByContrast: {
        const int32_t c = IncreaseContrast(d, s);
        return c > d ? std::max(d, Blend(d, c, a)) : d;
    }
    case MColorOp::DarkenByContrast: {
        const int32_t c = IncreaseContrast(d, s);
        return c < d ? Blend(d, c, a) : d;
    }
    case MColorOp::AddAndOverflow: return (d + s * a / 256) % 256;
    case MColorOp::None: break;
    }
    return d;
}

int32_t CombineAlpha(MColorOp operation, MColor target, MColor source) {
    if (operation == MColorOp::Copy) return source.alpha;
    if (operation == MColorOp::Overlay) return std::min(255, target.alpha + source.alpha);
    return target.alpha;
}

MColor Combine(MColorOp operation, MColor target, MColor source) {
    if (operation == MColorOp::Overlay && target.alpha == 0) return source;
    const MColor s = operation == MColorOp::Color ? Tint(target, source) : source;
    const int32_t luminance = GetLuminance(source);
    const auto combine = [&](int32_t targetChannel, int32_t sourceChannel) {
        return static_cast<uint8_t>(
            CombineChannel(operation, targetChannel, sourceChannel, source.alpha, luminance));
    };
    return {combine(target.blue, s.blue), combine(target.green, s.green), combine(target.red, s.red),
            static_cast<uint8_t>(CombineAlpha(operation, target, source))};
}

/// Every value in each channel, in another order in each; the alphas are all sorts, and often 0.
Row MakeTarget() {
    Row row;
    for (int32_t i = 0; i < ValueCount; ++i)
        row[static_cast<size_t>(i)] = {static_cast<uint8_t>(i), static_cast<uint8_t>(i ^ 0x5A),
                                       static_cast<uint8_t>(255 - i),
                                       static_cast<uint8_t>(i % 5 == 0 ? 0 : i * 37)};
    return row;
}

std::string Describe(MPixelForm form, MColor target, MColor source, MColor expected, MColor found) {
    std::ostringstream text;
    text << MGetPixelFormName(form) << std::hex << ": " << source.GetWord() << " over " << target.GetWord()
         << " gives " << found.GetWord() << " instead of " << expected.GetWord();
    return text.str();
}

std::optional<std::string> FindFault(MColorOp operation, MColor source) {
    static const Row targets = MakeTarget();
    Row sources;
    sources.fill(source);
    Row expected;
    std::ranges::transform(targets, expected.begin(),
                           [&](MColor target) { return Combine(operation, target, source); });
    for (const MPixelForm form : MGetPixelForms()) {
        Row found = targets;
        MGetPixelRows(operation, form).blit(found.data(), sources.data(), ValueCount, 255);
        const auto [wrong, right] = std::ranges::mismatch(found, expected);
        if (wrong != found.end())
            return Describe(form, targets[static_cast<size_t>(wrong - found.begin())], source, *right,
                            *wrong);
    }
    return std::nullopt;
}

/// All sources of every `stride`-th alpha from `firstAlpha` on. A third of the values of a channel is seen in each of
/// the three, so that together each meets each value of the target with each alpha.
std::string FindFaultInAlphas(MColorOp operation, int32_t firstAlpha, int32_t stride) {
    constexpr int32_t Third = ValueCount / 3 + 1;
    for (int32_t alpha = firstAlpha; alpha < ValueCount; alpha += stride)
        for (int32_t s = 0; s < Third; ++s)
            if (const auto fault =
                    FindFault(operation, {static_cast<uint8_t>(s), static_cast<uint8_t>(s + Third),
                                          static_cast<uint8_t>(s + 2 * Third), static_cast<uint8_t>(alpha)}))
                return *fault;
    return {};
}

}  // namespace

class MPixelOperatorsTest : public testing::TestWithParam<int32_t> {
protected:
    const MColorOp operation{GetParam()};
};

TEST_P(MPixelOperatorsTest, FollowsItsFormulaForAllValuesInAllForms) {
    std::vector<std::future<std::string>> faults(std::max(1u, std::thread::hardware_concurrency()));
    const auto stride = static_cast<int32_t>(faults.size());
    for (int32_t i = 0; i < stride; ++i)
        faults[static_cast<size_t>(i)] =
            std::async(std::launch::async, FindFaultInAlphas, operation, i, stride);
    for (std::future<std::string>& fault : faults) EXPECT_EQ(fault.get(), "");
}

TEST_P(MPixelOperatorsTest, ScalesTheAlphaBeforehand) {
    const Row targets = MakeTarget();
    for (const MPixelForm form : MGetPixelForms()) {
        const MPixelRows& rows = MGetPixelRows(operation, form);
        for (int32_t opacity = 0; opacity < ValueCount; ++opacity) {
            Row sources;
            Row scaled;
            for (int32_t alpha = 0; alpha < ValueCount; ++alpha) {
                const auto i = static_cast<size_t>(alpha);
                sources[i] = MColor{200, 30, 120, static_cast<uint8_t>(alpha)};
                scaled[i] = sources[i].WithAlpha(static_cast<uint8_t>((alpha + 1) * opacity / 256));
            }
            Row found = targets;
            rows.blit(found.data(), sources.data(), ValueCount, static_cast<uint8_t>(opacity));
            Row expected;
            std::ranges::transform(targets, scaled, expected.begin(), [&](MColor target, MColor source) {
                return Combine(operation, target, source);
            });
            ASSERT_EQ(found, expected) << MGetPixelFormName(form) << ", opacity " << opacity;
        }
    }
}

TEST(MPixelOperatorsColorTest, TintsByAnySource) {
    constexpr uint8_t Values[] = {0, 1, 2, 64, 126, 127, 128, 129, 200, 253, 254, 255};
    for (const uint8_t blue : Values)
        for (const uint8_t green : Values)
            for (const uint8_t red : Values)
                ASSERT_EQ(FindFault(MColorOp::Color, {blue, green, red, 255}), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(All, MPixelOperatorsTest, testing::Range(0, MColorOpCount),
                         [](const testing::TestParamInfo<int32_t>& instance) {
                             return MEncodeUTF8Exact(MGetColorOpName(MColorOp{instance.param}));
                         });
