#include "bench/MComparison.h"
#include "examples/windows/MPlainStyle.h"
#include "ui/control/MControl.h"
#include "ui/control/windows/MWindows.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <functional>
#include <memory>

namespace {

constexpr int Rounds = 41;
constexpr int32_t ChildCount = 10;
constexpr const char* FontFolder = "/usr/share/fonts/truetype";

/// Ten controls in each of ten, and so on, in layouts of all kinds; buttons in the end.
void Fill(MControl& parent, int32_t depth) {
    MLayout* layout;
    switch (depth % 3) {
    case 0: layout = new MLayoutVertical(parent); break;
    case 1: layout = new MLayoutHorizontal(parent); break;
    default: layout = new MLayoutGrid(parent, 5); break;
    }
    for (int32_t i = 0; i < ChildCount; ++i) {
        MControl& child = *new MControl(&parent);
        layout->Add(child);
        if (depth > 1) {
            Fill(child, depth - 1);
        } else {
            child.SetControlType(MControlType::Button);
            child.SetCaption("Cancel", MCaptionType::Normal);
        }
    }
}

/// A window of as many buttons as there are tens in each other.
class Window {
public:
    explicit Window(int32_t depth) {
        Fill(root, depth);
        root.CreateWindow(nullptr);
        root.ShowWindow();
    }

    void LayOut() {
        root.TouchSizes();
        root.UpdateLayout();
    }
    void Paint() {
        root.Invalidate();
        root.RedrawNow();
    }

private:
    MControl root;
};

std::unique_ptr<MWindows> MakeWindows() {
    auto windows = std::make_unique<MWindows>(std::make_unique<MWindowSystemHeadless>());
    windows->SetStyle(std::make_unique<MPlainStyle>(windows.get(), FontFolder));
    return windows;
}

/// How many times as long laying out 10,000 controls takes as something else. In between another such window
/// is laid out: when a user changes a window, the processor's caches hold something else too.
MComparison CompareLayout(const std::function<void(Window& large, Window& small)>& other) {
    const std::unique_ptr<MWindows> windows = MakeWindows();
    Window large(4);
    Window small(3);
    Window another(4);
    const auto forget = [&] { another.LayOut(); };
    // The comparison gives speeds; what a layout costs more is the other one's speed by its own.
    MComparison comparison =
        MCompareSpeeds(Rounds, MClock::Processor, 1, {forget, [&] { other(large, small); }},
                       {forget, [&] { large.LayOut(); }});
    comparison.unit = "1/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.note += "; the reference lays out 10,000 controls";
    return comparison;
}

MComparison CompareGrowth() {
    MComparison comparison = CompareLayout([](Window&, Window& small) { small.LayOut(); });
    comparison.goal = 12;
    comparison.note += ", ours 1,000";
    return comparison;
}

MComparison CompareWithPaint() {
    MComparison comparison = CompareLayout([](Window& large, Window&) { large.Paint(); });
    comparison.goal = 0.5;
    comparison.note += ", ours paints them";
    return comparison;
}

[[maybe_unused]] const bool isGrowthRegistered =
    MRegisterComparison("Layout, 10,000 controls against 1,000", CompareGrowth);
[[maybe_unused]] const bool isPaintRegistered =
    MRegisterComparison("Layout, measuring and arranging against painting", CompareWithPaint);

}  // namespace
