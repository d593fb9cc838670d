#pragma once

#include "examples/windows/MPlainStyle.h"
#include "tests/support/MTestText.h"
#include "tests/ui/drawing/RandomPrimitives.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/MRenderer.h"
#include "ui/control/windows/MWindows.h"
#include "ui/opengl/MOpenGLAcceleration.h"
#include "ui/window/MNativeWindowSystem.h"

#include <cstdlib>
#include <functional>
#include <map>
#include <string>

/// The display that the tests have for themselves; empty for the desktop.
MString MGetTestDisplay();

/// The machine's OpenGL with other functions in place of some, by their whole names.
class PatchedSystem final : public MOpenGLSystem {
public:
    using Patches = std::map<std::string, void*>;

    PatchedSystem(const MNativeWindow& window, Patches patches)
        : system(Open(window)), patches(std::move(patches)) {}

    std::unique_ptr<MOpenGLContext> CreateContext(const MNativeWindow& window) override {
        return system->CreateContext(window);
    }
    void* FindFunction(const char* name) override {
        const auto patch = patches.find(name);
        return patch == patches.end() ? system->FindFunction(name) : patch->second;
    }

private:
    const std::unique_ptr<MOpenGLSystem> system;
    const Patches patches;
};

/// Windows on a display of the tests' own, and what a drawer of OpenGL can be made for.
class OpenGLTest : public testing::Test {
protected:
    /// Accelerates nothing, and remembers for what it was asked.
    struct Spy final : public MWindowAcceleration {
        explicit Spy(MNativeWindow& seen) : seen(seen) {}
        std::shared_ptr<MWindowPainter> CreatePainter(const MNativeWindow& window) override {
            seen = window;
            return nullptr;
        }
        MNativeWindow& seen;
    };

    void SetUp() override {
        Open(std::make_unique<Spy>(native));
        try {
            MDrawerOpenGL(std::make_shared<MOpenGLDevice>()).Initialize(native, MGPUMode::On);
        } catch (const MException& failure) {
            const std::string text = Text(failure.GetMessage());
            // A machine without OpenGL: without the library or, under Wine, without a driver.
            const bool isMissing = text.starts_with("Error opening OpenGL library. ") ||
                                   text.starts_with("Error retrieving OpenGL pixel format. ");
            if (!isMissing) throw;
            GTEST_SKIP() << "OpenGL is missing here; scripts/install-tools installs it: " << text;
        }
    }
    void TearDown() override {
        window.reset();
        windows.reset();
    }

    /// A window, with another one's acceleration.
    void Open(std::unique_ptr<MWindowAcceleration> acceleration) {
        TearDown();
        windows =
            std::make_unique<MWindows>(MCreateNativeWindowSystem(MGetTestDisplay(), std::move(acceleration)));
        windows->SetStyle(std::make_unique<MPlainStyle>(windows.get(), SYSTEM_FONTS));
        window = std::make_unique<MControl>(nullptr, "window");
        for (const MControlFlag flag : {MControlFlag::AdaptSize, MControlFlag::MoveToScreenCenter})
            window->Set(flag, false);
        window->SetControlType(MControlType::Window);
        window->SetCaption("A window", MCaptionType::Normal);
        window->size = {LargestWidth, LargestHeight};
        // What the style paints reaches the window's drawer, not a bitmap first.
        window->GetRootState().renderer = std::make_unique<MRenderer_ToWindow>();
        window->CreateWindow(nullptr);
        window->ShowModeless(nullptr);
    }

    static std::shared_ptr<MOpenGLDevice> MakeDevice(const PatchedSystem::Patches& patches = {}) {
        return std::make_shared<MOpenGLDevice>([patches](const MNativeWindow& window) {
            return std::make_unique<PatchedSystem>(window, patches);
        });
    }

    using Painting = std::function<void(MDrawer&)>;
    /// What a drawer paints on some ground in the window.
    static MBitmap PaintOn(MDrawerOpenGL& drawer, const MBitmap& ground, const Painting& paint) {
        MBitmap picture;
        drawer.BeginPaint({ground.GetWidth(), ground.GetHeight()});
        drawer.SetClip(ground.GetRect());
        drawer.BitBltWhole(ground, {}, Opaque, MDrawMode::Copy);
        paint(drawer);
        drawer.GetScreenShot(picture);
        drawer.EndPaint();
        return picture;
    }
    /// The same by software.
    static MBitmap PaintOn(const MBitmap& ground, const Painting& paint) {
        MBitmap picture;
        picture.CreateOpaque(ground.GetWidth(), ground.GetHeight());
        MDrawerToMBitmap drawer(picture);
        drawer.BitBltWhole(ground, {}, Opaque, MDrawMode::Copy);
        paint(drawer);
        return picture;
    }
    /// By how much colours differ at most; 999 for pictures of two sizes.
    static int32_t GetDifference(const MBitmap& left, const MBitmap& right) {
        if (left.GetRect() != right.GetRect()) return 999;
        int32_t most = 0;
        for (int32_t i = 0; i < left.GetWidth() * left.GetHeight(); ++i) {
            const MColor a = left.GetPixels()[i];
            const MColor b = right.GetPixels()[i];
            most = std::max(
                {most, std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
        }
        return most;
    }
    /// A ground of noise that is opaque.
    static MBitmap MakeGround(int32_t width = Width, int32_t height = Height) {
        MBitmap ground = MMakeNoise(width, height, 5);
        ground.ChangeColors([](MColor color) { return color.WithAlpha(Opaque); });
        return ground;
    }

    static constexpr int32_t Width = 100;
    static constexpr int32_t Height = 80;
    static constexpr int32_t LargestWidth = 300;  ///< of the window
    static constexpr int32_t LargestHeight = 170;
    /// Of colours of a paint by OpenGL and by software.
    static constexpr int32_t Tolerance = 2;

    MNativeWindow native;
    std::unique_ptr<MWindows> windows;
    std::unique_ptr<MControl> window;
};
