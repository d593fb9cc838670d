#include "foundation/module/MDataFolders.h"
#include "tests/support/MScratch.h"
#include "tests/ui/opengl/OpenGLFixture.h"
#include "ui/opengl/MGPUSettings.h"

namespace {

/// A context that is lost some day.
class LosingContext final : public MOpenGLContext {
public:
    LosingContext(std::unique_ptr<MOpenGLContext> context, const bool& isLost)
        : context(std::move(context)), isLost(isLost) {}
    bool MakeCurrent() override { return !isLost && context->MakeCurrent(); }
    void Release() override { context->Release(); }
    void Swap() override { context->Swap(); }

private:
    const std::unique_ptr<MOpenGLContext> context;
    const bool& isLost;
};

class LosingSystem final : public MOpenGLSystem {
public:
    LosingSystem(const MNativeWindow& window, const bool& isLost) : system(Open(window)), isLost(isLost) {}
    std::unique_ptr<MOpenGLContext> CreateContext(const MNativeWindow& window) override {
        return std::make_unique<LosingContext>(system->CreateContext(window), isLost);
    }
    void* FindFunction(const char* name) override { return system->FindFunction(name); }

private:
    const std::unique_ptr<MOpenGLSystem> system;
    const bool& isLost;
};

class AccelerationTest : public OpenGLTest {
protected:
    MBitmap Capture() {
        MBitmap picture;
        while (windows->GetSystem().ProcessPending() > 0) {}
        EXPECT_TRUE(windows->GetSystem().CaptureToBitmap(*window, picture));
        return picture;
    }
};

}  // namespace

// Letters side by side may share a pixel, which is then blended twice.
TEST_F(AccelerationTest, AWindowLooksAlikeHoweverItIsPainted) {
    const MBitmap expected = Capture();
    for (const MGPUMode mode : {MGPUMode::On, MGPUMode::WithoutFrameBuffer}) {
        std::string failures;
        Open(std::make_unique<MOpenGLAcceleration>(mode,
                                                   [&](const MString& text) { failures += Text(text); }));
        EXPECT_LE(GetDifference(Capture(), expected), Tolerance + 1);
        // In part, and in another size.
        window->InvalidateRect({5, 5, 20, 20});
        EXPECT_LE(GetDifference(Capture(), expected), Tolerance + 1);
        windows->GetSystem().Resize(*window, {140, 60});
        EXPECT_EQ(Capture().GetRect(), MRect::FromSize(0, 0, 140, 60));
        windows->GetSystem().Resize(*window, {LargestWidth, LargestHeight});
        EXPECT_LE(GetDifference(Capture(), expected), Tolerance + 1);
        EXPECT_EQ(failures, "");
    }
}

TEST_F(AccelerationTest, ALostContextLeavesAWindowInMemory) {
    const MBitmap expected = Capture();
    bool isLost = false;
    Open(std::make_unique<MOpenGLAcceleration>(
        MGPUMode::On, nullptr, std::make_shared<MOpenGLDevice>([&](const MNativeWindow& opened) {
            return std::make_unique<LosingSystem>(opened, isLost);
        })));
    EXPECT_LE(GetDifference(Capture(), expected), Tolerance + 1);
    isLost = true;
    EXPECT_EQ(GetDifference(Capture(), expected), 0);
    EXPECT_EQ(GetDifference(Capture(), expected), 0);
}

TEST_F(AccelerationTest, WhatFailsIsToldOnceAndSwitchedOff) {
    const std::function<void()> failures[] = {
        [] { MRaise(MExceptionGeneral, "Error creating global OpenGL context. "); },
        [] { throw 1; },
    };
    const char* const reasons[] = {"Error creating global OpenGL context. ", "Fatal GPU driver malfunction."};
    for (size_t i = 0; i < 2; ++i) {
        std::string told;
        MOpenGLAcceleration acceleration(
            MGPUMode::On, [&](const MString& text) { told += Text(text); },
            std::make_shared<MOpenGLDevice>([&](const MNativeWindow&) -> std::unique_ptr<MOpenGLSystem> {
                failures[i]();
                return nullptr;
            }));
        EXPECT_EQ(acceleration.CreatePainter(native), nullptr);
        EXPECT_EQ(acceleration.CreatePainter(native), nullptr);
        EXPECT_EQ(acceleration.GetMode(), MGPUMode::Off);
        EXPECT_EQ(told,
                  std::string("Sorry, your system is out of GPU resources. The software will switch to CPU "
                              "emulated mode. Please consider buying a modern graphics card. If this occurs "
                              "commonly, use software settings to disable GPU acceleration "
                              "permanently.\n\nInformation: ") +
                      reasons[i]);
    }
}

TEST(GPUSettingsTest, AreKeptAndOffWhenInDoubt) {
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    EXPECT_EQ(MGPUSettings::Load(), MGPUMode::Off);
    for (const MGPUMode mode : {MGPUMode::WithoutFrameBuffer, MGPUMode::On}) {
        MGPUSettings::Save(mode);
        EXPECT_EQ(MGPUSettings::Load(), mode);
    }
    const MString file = MFile::Join(MDataFolders::GetDataPath_User(MString()), "GPU.xml");
    for (const char* damaged : {"<GPU mode=\"3\"/>", "<GPU mode=\"-1\"/>", "<GPU/>", "<GPU mode=\"1\"", ""}) {
        MWriteTestFile(file, damaged);
        EXPECT_EQ(MGPUSettings::Load(), MGPUMode::Off) << damaged;
    }
}
