#include "tests/ui/control/ControlFixture.h"
#include "ui/control/windows/MControlInvalidator.h"

#include <random>
#include <thread>

namespace {

/// Fills itself with one colour, and tells where.
class Patch final : public MControl {
public:
    Patch(MControl* parent, MColor color, std::string* log = nullptr)
        : MControl(parent, "p"), color(color), log(log) {
        SetControlType(MControlType::Panel);
    }
    ~Patch() noexcept override = default;

    bool Paint(MDrawer& drawer) override {
        const MRect clip = drawer.GetClip();
        if (log)
            *log += std::to_string(color.red) + ":" + std::to_string(clip.left) + "," +
                    std::to_string(clip.top) + "-" + std::to_string(clip.right) + "," +
                    std::to_string(clip.bottom) + " ";
        drawer.FillRectangle(windowRect, color, MDrawMode::Copy);
        if (onPaint) onPaint();
        return true;
    }

    std::function<void()> onPaint;
    MColor color;

private:
    std::string* log;
};

class PaintTest : public ControlTest {
protected:
    PaintTest() {
        Place(lower, {0, 0, 199, 99});
        Place(inside, {10, 10, 59, 59});
        Place(upper, {40, 40, 149, 149});
    }
    ~PaintTest() noexcept override = default;

    void Show(std::unique_ptr<MRenderer> renderer = nullptr) {
        if (renderer) root.GetRootState().renderer = std::move(renderer);
        Open(root);
        system.AdvanceTime(100);
        Take();
    }
    /// What the next tick paints.
    std::string Tick() {
        system.AdvanceTime(100);
        return Take();
    }

    Patch root{nullptr, MColor::FromRGB(1, 0, 0), &log};
    Patch lower{&root, MColor::FromRGB(2, 0, 0), &log};
    Patch upper{&root, MColor::FromRGB(4, 0, 0), &log};
    Patch inside{&lower, MColor::FromRGB(3, 0, 0), &log};
};

TEST_F(PaintTest, PaintsWhatLiesOnSomethingPainted) {
    Show();
    struct Case {
        const char* what;
        std::function<void()> change;
        const char* expected;
    };
    const Case cases[] = {
        {"nothing", [] {}, ""},
        {"inside, under the upper one",
         [&] {
             inside.InvalidateRect({0, 0, 39, 39});
         },
         "3:0,0-39,39 4:0,0-9,9"},
        {"behind all",
         [&] {
             lower.InvalidateRect({0, 0, 12, 12});
         },
         "2:0,0-12,12 3:0,0-2,2"},
        {"two parts",
         [&] {
             upper.InvalidateRect({0, 0, 1, 1}), upper.InvalidateRect({5, 6, 7, 8});
         },
         "4:0,0-7,8"},
        {"outside of itself",
         [&] {
             inside.InvalidateRect({50, 0, 90, 9});
         },
         ""},
        {"hidden", [&] { lower.SetVisible(false), Tick(), inside.Invalidate(); }, ""},
        {"shown", [&] { lower.SetVisible(true); }, "2:0,0-199,99 3:0,0-49,49 4:0,0-109,59"},
        {"without a width",
         [&] {
             inside.SetSize({0, 10}), Tick(), inside.Invalidate();
         },
         ""},
        {"the root",
         [&] {
             root.InvalidateRect({0, 0, 0, 0});
         },
         "1:0,0-0,0 2:0,0-0,0"},
        {"frozen and thawed", [&] { root.SetFrozen(true), upper.Invalidate(), root.SetFrozen(false); },
         "1:0,0-299,199 2:0,0-199,99 4:0,0-109,109"},
        {"thawed after a paint that was asked for before",
         [&] {
             root.Invalidate(), root.SetFrozen(true), Tick();
             upper.Invalidate(), root.SetFrozen(false);
         },
         "1:0,0-299,199 2:0,0-199,99 4:0,0-109,109"},
    };
    for (const Case& test : cases) {
        test.change();
        std::string painted = Tick();
        EXPECT_EQ(painted, test.expected) << test.what;
    }
    upper.Invalidate();
    root.RedrawNow();
    EXPECT_EQ(Take(), "4:0,0-109,109") << "at once";
    EXPECT_EQ(Tick(), "");

    // Its place on the screen changes after it was recorded in its own coordinates.
    upper.Invalidate();
    upper.SetPosition({180, 80});
    Tick();
    EXPECT_EQ(system.GetPicture(root).GetPixel(285, 185).red, 4);
}

TEST_F(PaintTest, GoesOnAfterFailuresAndAfterTheEndOfControls) {
    Show();
    auto* const failing = new Patch(&root, MColor::FromRGB(5, 0, 0), &log);
    auto* const ending = new Patch(&root, MColor::FromRGB(6, 0, 0), &log);
    Patch last(&root, MColor::FromRGB(7, 0, 0), &log);
    for (Patch* patch : {failing, ending, &last}) Place(*patch, {200, 150, 209, 159});
    failing->onPaint = [] { throw 1; };
    ending->onPaint = [=] { delete failing; };
    root.UpdateLayout();
    Tick();
    last.Invalidate();
    EXPECT_EQ(Tick(), "7:0,0-9,9");
    root.onPaint = [&] { upper.Invalidate(); };
    root.InvalidateRect({0, 0, 0, 0});
    EXPECT_EQ(Tick().substr(0, 9), "1:0,0-0,0");
    root.onPaint = nullptr;
    EXPECT_EQ(Tick(), "") << "what is asked for while painting is painted, once";
    delete ending;

    root.SetSize({1 << 28, 1 << 28});
    EXPECT_EQ(Tick(), "") << "there is no memory for it";
    root.SetSize({300, 200});
    EXPECT_EQ(Tick().substr(0, 13), "1:0,0-299,199");
}

TEST_F(PaintTest, GivesTheSamePixelsWithEveryRendererAndForEveryPart) {
    std::mt19937 random;
    const auto draw = [&](std::unique_ptr<MRenderer> renderer) {
        random.seed(7);
        Patch window(nullptr, MColor::FromRGB(200, 200, 200));
        window.GetRootState().renderer = std::move(renderer);
        std::vector<MControl*> all{&window};
        for (int32_t i = 0; i < 60; ++i) {
            auto* const patch =
                new Patch(all[random() % all.size()], MColor::FromWord(random() | 0xFF000000));
            const auto x = static_cast<int32_t>(random() % 200);
            const auto y = static_cast<int32_t>(random() % 150);
            Place(*patch, MRect::FromSize(x, y, 20 + static_cast<int32_t>(random() % 150), 60));
            all.push_back(patch);
        }
        Open(window, {600, 300});
        MBitmap whole;
        EXPECT_TRUE(system.CaptureToBitmap(window, whole));
        for (int32_t i = 0; i < 300; ++i) {
            const auto x = static_cast<int32_t>(random() % 100);
            all[random() % all.size()]->InvalidateRect({x, 10, x + 30, 40});
            if (i % 3 == 0) system.AdvanceTime(20);
        }
        MBitmap parts;
        EXPECT_TRUE(system.CaptureToBitmap(window, parts));
        EXPECT_TRUE(std::equal(whole.GetPixels(), whole.GetPixels() + 300 * 200, parts.GetPixels()));
        return whole;
    };
    const MBitmap bitmaps = draw(std::make_unique<MRenderer_MBitmap>());
    const MBitmap window = draw(std::make_unique<MRenderer_ToWindow>());
    EXPECT_TRUE(std::equal(bitmaps.GetPixels(), bitmaps.GetPixels() + 300 * 200, window.GetPixels()));
}

TEST_F(PaintTest, ShowsWhatLiesBehindTransparentControls) {
    root.GetRootState().renderer = std::make_unique<MRenderer_MBitmap>();
    struct Sign : MControl {
        Sign(MControl* parent, MControlType type) : MControl(parent) { SetControlType(type); }
        ~Sign() noexcept override = default;
        void PaintContent(MDrawer& drawer) override {
            drawer.FillRectangle({0, 0, 4, 4}, MColor::FromRGB(9, 9, 9), MDrawMode::Copy);
        }
    };
    for (const MControlType type : {MControlType::Empty, MControlType::NoBackground, MControlType::Static}) {
        Sign sign(&lower, type);
        Place(sign, {70, 0, 89, 19});
        Show();
        const MBitmap& picture = system.GetPicture(root);
        EXPECT_EQ(picture.GetPixel(72, 2).red, 9);
        EXPECT_EQ(picture.GetPixel(80, 10).red, 2);
        sign.InvalidateRect({3, 3, 9, 9});
        Tick();
        EXPECT_EQ(picture.GetPixel(74, 4).red, 9);
        EXPECT_EQ(picture.GetPixel(76, 6).red, 2);
    }
}

TEST_F(PaintTest, PaintsWhatIsFarLargerThanAScreen) {
    Place(lower, MRect::FromSize(0, 0, 1 << 20, 1 << 12));
    Place(upper, {40, 40, 49, 49});
    Show();
    EXPECT_EQ(system.GetPicture(root).GetPixel(5, 5).red, 2);
    EXPECT_EQ(system.GetPicture(root).GetPixel(20, 20).red, 3);
    EXPECT_EQ(system.GetPicture(root).GetPixel(45, 45).red, 4);
}

TEST_F(PaintTest, OtherThreadsInvalidate) {
    Show();
    system.SetPatience(10000);
    MControlInvalidator invalidator;
    auto control = std::make_unique<Patch>(&root, MColor::FromRGB(8, 0, 0), &log);
    Place(*control, {250, 150, 299, 199});
    root.UpdateLayout();
    Tick();
    invalidator.SetControl(control.get());
    int32_t count = 0;
    control->onPaint = [&] {
        if (++count == 20) root.GetRootState().modalResult = MModalValue::Ok;
    };
    std::jthread other([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            invalidator.InvalidateRect({1, 1, 5, 5});
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
    });
    system.RunLoop(root);
    EXPECT_EQ(count, 20);
    control.reset();
    EXPECT_EQ(invalidator.GetControl(), nullptr);
    system.AdvanceTime(100);
}

}  // namespace
