#include "ui/image/pixels/MPixelRows.h"

#include "tests/ui/image/pixels/PixelForms.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <tuple>

namespace {

constexpr int32_t MostPixels = 70;
constexpr size_t GuardCount = 9;

using Pixels = std::vector<MColor>;

/// Pixels of all sorts, in the first half with runs that are transparent or opaque.
Pixels MakePixels(size_t count, uint32_t seed) {
    Pixels pixels(count);
    if (count > 0)
        std::memcpy(pixels.data(), MTestNoise(count * sizeof(MColor), seed).data(), count * sizeof(MColor));
    for (size_t i = 0; i < count / 2; ++i) pixels[i].alpha = i % 23 < 11 ? 0 : 255;
    return pixels;
}

}  // namespace

/// Each row is painted with pixels around it that have to stay, and compared with one painted pixel by pixel.
class MPixelRowsTest : public testing::TestWithParam<std::tuple<int32_t, MPixelForm>> {
protected:
    void SetUp() override {
        if (!MHasPixelForm(std::get<MPixelForm>(GetParam()))) GTEST_SKIP() << "not on this processor";
    }

    /// What `sources`, one for each pixel, make of the target.
    [[nodiscard]] Pixels PaintOneByOne(size_t start, const Pixels& sources, uint8_t alpha) const {
        Pixels pixels = target;
        const MPixelRows& plain = MGetPixelRows(operation, MPixelForm::Plain);
        for (size_t i = 0; i < sources.size(); ++i)
            plain.blit(pixels.data() + start + i, sources.data() + i, 1, alpha);
        return pixels;
    }

    /// Calls `check` with all counts and starts of rows.
    template <class Function>
    void ForAllRows(Function check) {
        for (size_t start = GuardCount; start < GuardCount + 8; start += BYTE_STRIDE)
            for (int32_t count = 0; count <= MostPixels; ++count) {
                SCOPED_TRACE(testing::Message() << count << " pixels from " << start);
                check(start, count);
                if (HasFailure()) return;
            }
    }

    const MColorOp operation{std::get<int32_t>(GetParam())};
    const MPixelRows& rows = MGetPixelRows(operation, std::get<MPixelForm>(GetParam()));
    const Pixels target = MakePixels(MostPixels + 3 * GuardCount, 1);
    const MColor color{90, 200, 10, 140};
};

TEST_P(MPixelRowsTest, BlitsRowsOfAnyLength) {
    for (const uint8_t alpha : {201, 255})
        ForAllRows([&](size_t start, int32_t count) {
            const Pixels sources = MakePixels(static_cast<size_t>(count), 2);
            Pixels pixels = target;
            rows.blit(pixels.data() + start, sources.data(), count, alpha);
            EXPECT_EQ(pixels, PaintOneByOne(start, sources, alpha));
        });
}

TEST_P(MPixelRowsTest, FillsAsIfFromPixelsOfTheColour) {
    ForAllRows([&](size_t start, int32_t count) {
        Pixels pixels = target;
        rows.fill(pixels.data() + start, count, color);
        EXPECT_EQ(pixels, PaintOneByOne(start, Pixels(static_cast<size_t>(count), color), 255));
    });
}

TEST_P(MPixelRowsTest, PaintsThroughAMaskAsIfItWereTheAlpha) {
    ForAllRows([&](size_t start, int32_t count) {
        const std::string mask = MTestNoise(static_cast<size_t>(count));
        Pixels sources;
        for (const char byte : mask) sources.push_back(color.WithAlpha(static_cast<uint8_t>(byte)));
        Pixels pixels = target;
        rows.mask(pixels.data() + start, reinterpret_cast<const uint8_t*>(mask.data()), count, color);
        EXPECT_EQ(pixels, PaintOneByOne(start, sources, color.alpha));
    });
}

TEST_P(MPixelRowsTest, StretchesAsIfFromTheGatheredPixels) {
    for (const uint32_t step : {0x0u, 0x1u, 0x5555u, 0xFFFFu, 0x10000u, 0x10001u, 0x2FFFFu})
        ForAllRows([&](size_t start, int32_t count) {
            constexpr uint32_t Position = 0xABCD;
            const uint32_t last = (Position + static_cast<uint32_t>(std::max(0, count - 1)) * step) >> 16;
            const Pixels row = MakePixels(last + 1, 3);
            Pixels sources;
            for (uint32_t i = 0; i < static_cast<uint32_t>(count); ++i)
                sources.push_back(row[(Position + i * step) >> 16]);
            Pixels pixels = target;
            const uint8_t alpha = count % 2 == 0 ? 230 : 255;
            rows.stretch(pixels.data() + start, row.data(), Position, step, count, alpha);
            EXPECT_EQ(pixels, PaintOneByOne(start, sources, alpha));
        });
}

INSTANTIATE_TEST_SUITE_P(All, MPixelRowsTest,
                         testing::Combine(testing::Range(0, MColorOpCount),
                                          testing::Values(MPixelForm::Plain, MPixelForm::SSE2,
                                                          MPixelForm::AVX2)),
                         [](const testing::TestParamInfo<MPixelRowsTest::ParamType>& instance) {
                             return "Operation" + std::to_string(std::get<int32_t>(instance.param)) + "_" +
                                    MGetPixelFormName(std::get<MPixelForm>(instance.param));
                         });

TEST(MPixelRowsSelectionTest, TakesTheFastestFormAndNothingForAnUnknownOperation) {
    EXPECT_EQ(&MGetPixelRows(MColorOp::Add), &MGetPixelRows(MColorOp::Add, MGetPixelForms().back()));
    EXPECT_NE(&MGetPixelRows(MColorOp::Add), &MGetPixelRows(MColorOp::Add, MPixelForm::Plain));
    MColor pixel{1, 2, 3, 4};
    const MColor source{9, 9, 9, 255};
    for (const MColorOp operation : {MColorOp::None, MColorOp{MColorOpCount}, MColorOp{-1}})
        MGetPixelRows(operation).blit(&pixel, &source, 1, 255);
    EXPECT_EQ(pixel, (MColor{1, 2, 3, 4}));
}
