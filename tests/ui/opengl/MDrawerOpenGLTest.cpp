#include "tests/ui/opengl/OpenGLFixture.h"

namespace {

void OPENGL_CALL GiveSmallLimit(uint32_t, int32_t* value) {
    *value = 64;
}

void OPENGL_CALL GiveMediumLimit(uint32_t, int32_t* value) {
    *value = 4096;
}

uint32_t OPENGL_CALL RefuseFrameBuffer(uint32_t) {
    return 0x8CDD;
}

template <class Function>
PatchedSystem::Patches Patch(const char* name, Function* function) {
    return {{name, reinterpret_cast<void*>(function)}};
}

}  // namespace

TEST_F(OpenGLTest, PaintsWhatSoftwarePaints) {
    MDrawerOpenGL drawer(MakeDevice());
    drawer.Initialize(native, MGPUMode::On);
    const MBitmap ground = MakeGround();
    for (const MDrawMode mode : {MDrawMode::Alphablend, MDrawMode::Modulate, MDrawMode::Copy,
                                 MDrawMode::Invert, MDrawMode::Add, MDrawMode::Subtract, MDrawMode::None}) {
        const bool isBlending = mode == MDrawMode::Alphablend;
        for (int32_t i = 0; i < PrimitiveCount * (isBlending ? ROUNDS : ROUNDS / 8); ++i) {
            const auto seed = static_cast<uint32_t>(i);
            const auto paint = [&](MDrawer& target) {
                target.SetClip(Random(seed + 1000).GetRect());
                PaintPrimitive(i % PrimitiveCount, target, seed, mode);
            };
            // Modes of two steps round twice.
            ASSERT_LE(GetDifference(PaintOn(drawer, ground, paint), PaintOn(ground, paint)),
                      isBlending ? Tolerance : Tolerance + 1)
                << "mode " << static_cast<int32_t>(mode) << ", primitive " << i % PrimitiveCount << ", seed "
                << seed;
        }
    }
}

TEST_F(OpenGLTest, PaintsTextAndAnyNumberOfMasks) {
    MDrawerOpenGL drawer(MakeDevice());
    drawer.Initialize(native, MGPUMode::On);
    MFont font;
    font.LoadFromFile(MString(SYSTEM_FONTS) + "/liberation/LiberationSans-Regular.ttf");
    // Sizes enough to fill the texture of the glyphs more than once.
    for (int32_t size = 8; size < 72; ++size) {
        font.SetSize(-size);
        const auto paint = [&](MDrawer& target) {
            target.AlignedTextOut({-30, -90, 500, 200}, font,
                                  "Quick wafting\nzephyrs vex\nbold JIM!\n0123456789",
                                  MColor::FromRGB(20, 200, 90, 250), MTextLeft | MTextMiddle);
        };
        // Letters side by side may share a pixel.
        ASSERT_LE(GetDifference(PaintOn(drawer, MakeGround(), paint), PaintOn(MakeGround(), paint)),
                  Tolerance + 1)
            << size;
    }
}

TEST_F(OpenGLTest, PaintsTheSameWithoutFrameBuffersAndWithSmallTextures) {
    const struct {
        const char* what;
        PatchedSystem::Patches patches;
        MGPUMode mode;
        bool hasFrame;
    } cases[] = {
        {"all", {}, MGPUMode::On, true},
        {"mode", {}, MGPUMode::WithoutFrameBuffer, false},
        {"refused", Patch("glCheckFramebufferStatus", &RefuseFrameBuffer), MGPUMode::On, false},
        {"limit", Patch("glGetIntegerv", &GiveMediumLimit), MGPUMode::On, false},
        {"tiles of powers of two", Patch("glGetIntegerv", &GiveSmallLimit), MGPUMode::On, false},
    };
    const MBitmap ground = MakeGround(LargestWidth, LargestHeight);
    const MBitmap large = MMakeNoise(211, 157, 9);
    MAlphaMask mask;
    large.ToAlphaMask(mask);
    const auto paint = [&](MDrawer& target) {
        target.BitBltWhole(large, {-113, 5}, 200, MDrawMode::Alphablend);
        target.StretchBlt({100, 0, 299, 89}, large, {30, 10, 190, 150}, 100, MDrawMode::Add);
        target.PatBlt({100, 90, 240, 169}, large, {150, 100}, 90, MDrawMode::Subtract);
        target.AlphaMask(mask.GetRect(), mask, {241, 90}, MColor::FromRGB(9, 8, 7), MDrawMode::Alphablend);
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        MDrawerOpenGL drawer(MakeDevice(one.patches));
        drawer.Initialize(native, one.mode);
        EXPECT_LE(GetDifference(PaintOn(drawer, ground, paint), PaintOn(ground, paint)), Tolerance);
        EXPECT_EQ(drawer.HasFrame({300, 170}), one.hasFrame);
        EXPECT_FALSE(drawer.HasFrame({170, 300}));
    }
}

TEST_F(OpenGLTest, ShowsPicturesAsTheyAreWhenTheyArePainted) {
    MDrawerOpenGL drawer(MakeDevice());
    drawer.Initialize(native, MGPUMode::On);
    MBitmap picture(8, 8);
    const auto paint = [&](MDrawer& target) {
        for (int32_t i = 0; i < 6; ++i) {
            // A picture that changes, one of another size, and one that does not outlive its painting.
            if (i % 3 == 0) picture.Create(8 + 5 * i, 8);
            picture.ChangeColors(
                [&](MColor) { return MColor::FromWord(0xFF305070U * static_cast<uint32_t>(i + 1)); });
            target.BitBltWhole(picture, {i * 12, 5}, Opaque, MDrawMode::Copy);
            target.BitBltWhole(MMakeNoise(9, 9, static_cast<uint32_t>(i)), {i * 12, 40}, 90, MDrawMode::Add);
        }
    };
    for (int32_t i = 0; i < 3; ++i)
        EXPECT_LE(GetDifference(PaintOn(drawer, MakeGround(), paint), PaintOn(MakeGround(), paint)),
                  Tolerance);
}

TEST_F(OpenGLTest, OnePaintMayInterruptAnother) {
    const std::shared_ptr<MOpenGLDevice> device = MakeDevice();
    MNativeWindow otherNative;
    MDrawerOpenGL first(device);
    first.Initialize(native, MGPUMode::On);
    auto second = std::make_unique<MDrawerOpenGL>(device);
    MControl otherWindow(nullptr, "other");
    otherWindow.size = {60, 50};
    otherWindow.CreateWindow(nullptr);
    second->Initialize({native.connection, windows->GetSystem().GetNativeHandle(otherWindow), native.visual},
                       MGPUMode::On);
    const auto paint = [&](MDrawer& target) {
        target.FillCircle({40, 40}, 30, MColor::FromRGB(250, 20, 60, 200), MDrawMode::Alphablend);
        if (&target == &first) {
            PaintOn(*second, MakeGround(60, 50), [](MDrawer&) {});
            // Within its own as well; and the other one ends in the middle of a paint.
            first.BeginPaint({Width, Height});
            first.EndPaint();
            second->BeginPaint({60, 50});
            second.reset();
        }
        target.FillRoundRectangle({10, 50, 90, 75}, 8, MColor::FromRGB(0, 20, 90, 150),
                                  MDrawMode::Alphablend);
    };
    EXPECT_LE(GetDifference(PaintOn(first, MakeGround(), paint), PaintOn(MakeGround(), paint)),
              2 * Tolerance);
    first.Close();
    EXPECT_THROW(first.BeginPaint({Width, Height}), MException);
}
