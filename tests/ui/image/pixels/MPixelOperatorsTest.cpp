#include "ui/image/pixels/MPixelRows.h"

#include "foundation/text/MUnicode.h"
#include "tests/ui/image/pixels/PixelForms.h"

#include <algorithm>
#include <array>
#include <future>
#include <gmock/gmock.h>
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
    const int32_t alpha = operation == MColorOp::Copy      ? source.alpha
                          : operation == MColorOp::Overlay ? std::min(255, target.alpha + source.alpha)
                                                           : target.alpha;
    return {combine(target.blue, s.blue), combine(target.green, s.green), combine(target.red, s.red),
            static_cast<uint8_t>(alpha)};
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

/// What is wrong with an operation in any of the forms; empty if all is right.
std::string FindFault(MColorOp operation, MColor source) {
    static const Row targets = MakeTarget();
    Row sources;
    sources.fill(source);
    for (const MPixelForm form : MGetPixelForms()) {
        Row found = targets;
        MGetPixelRows(operation, form).blit(found.data(), sources.data(), ValueCount, 255);
        for (size_t i = 0; i < found.size(); ++i) {
            if (found[i] == Combine(operation, targets[i], source)) continue;
            std::ostringstream text;
            text << MGetPixelFormName(form) << std::hex << ": " << source.GetWord() << " over "
                 << targets[i].GetWord() << " gives " << found[i].GetWord();
            return text.str();
        }
    }
    return "";
}

/// All sources of every `stride`-th alpha from `firstAlpha` on. A third of the values of a channel is seen in each of
/// the three, so that together each meets each value of the target with each alpha.
std::string FindFaultInAlphas(MColorOp operation, int32_t firstAlpha, int32_t stride) {
    constexpr int32_t Third = ValueCount / 3 + 1;
    const auto byte = [](int32_t value) { return static_cast<uint8_t>(value); };
    std::string fault;
    for (int32_t alpha = firstAlpha; alpha < ValueCount && fault.empty(); alpha += stride)
        for (int32_t s = 0; s < Third && fault.empty(); ++s)
            fault = FindFault(operation, {byte(s), byte(s + Third), byte(s + 2 * Third), byte(alpha)});
    return fault;
}

}  // namespace

class MPixelOperatorsTest : public testing::TestWithParam<int32_t> {
protected:
    const MColorOp operation{GetParam()};
};

TEST_P(MPixelOperatorsTest, FollowsItsFormulaForAllValuesInAllForms) {
    std::vector<std::future<std::string>> faults(std::max(1u, std::thread::hardware_concurrency()));
    const auto stride = static_cast<int32_t>(faults.size()) * BYTE_STRIDE;
    for (size_t i = 0; i < faults.size(); ++i)
        faults[i] = std::async(std::launch::async, FindFaultInAlphas, operation,
                               static_cast<int32_t>(i) * BYTE_STRIDE, stride);
    for (std::future<std::string>& fault : faults) EXPECT_EQ(fault.get(), "");
}

TEST_P(MPixelOperatorsTest, ScalesTheAlphaBeforehand) {
    const Row targets = MakeTarget();
    for (const MPixelForm form : MGetPixelForms())
        for (int32_t opacity = 0; opacity < ValueCount; opacity += BYTE_STRIDE) {
            Row sources;
            Row expected;
            for (size_t i = 0; i < sources.size(); ++i) {
                sources[i] = MColor{200, 30, 120, static_cast<uint8_t>(i)};
                const auto scaled = (static_cast<int32_t>(i) + 1) * opacity / 256;
                expected[i] =
                    Combine(operation, targets[i], sources[i].WithAlpha(static_cast<uint8_t>(scaled)));
            }
            Row found = targets;
            MGetPixelRows(operation, form)
                .blit(found.data(), sources.data(), ValueCount, static_cast<uint8_t>(opacity));
            ASSERT_EQ(found, expected) << MGetPixelFormName(form) << ", opacity " << opacity;
        }
}

TEST(MPixelOperatorsColorTest, TintsByAnySource) {
    constexpr uint8_t Values[] = {0, 1, 2, 64, 126, 127, 128, 129, 200, 253, 254, 255};
    for (const uint8_t blue : Values)
        for (const uint8_t green : Values)
            for (const uint8_t red : Values)
                ASSERT_EQ(FindFault(MColorOp::Color, {blue, green, red, 255}), "");
}

INSTANTIATE_TEST_SUITE_P(All, MPixelOperatorsTest, testing::Range(0, MColorOpCount),
                         [](const testing::TestParamInfo<int32_t>& instance) {
                             return MEncodeUTF8Exact(MGetColorOpName(MColorOp{instance.param}));
                         });
