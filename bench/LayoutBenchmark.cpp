#include "bench/MComparison.h"
#include "examples/windows/MPlainStyle.h"
#include "ui/control/MControl.h"
#include "ui/control/MWindows.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <functional>
#include <memory>

namespace {

constexpr int Rounds = 21;
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

/// What laying out 10,000 controls takes, in times of what `reference` does. The comparison is of speeds.
MComparison CompareLayout(double goal, const std::function<void(Window& large, Window& small)>& reference) {
    const std::unique_ptr<MWindows> windows = MakeWindows();
    Window large(4);
    Window small(3);
    MComparison comparison = MCompareSpeeds(
        Rounds, MClock::Processor, 1, {{}, [&] { reference(large, small); }}, {{}, [&] { large.LayOut(); }});
    comparison.unit = "1/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = goal;
    comparison.note += "; the reference lays out 10,000 controls";
    return comparison;
}

[[maybe_unused]] const bool isGrowthRegistered =
    MRegisterComparison("Layout, 10,000 controls against 1,000",
                        [] { return CompareLayout(12, [](Window&, Window& small) { small.LayOut(); }); });
[[maybe_unused]] const bool isPaintRegistered =
    MRegisterComparison("Layout, measuring and arranging against painting",
                        [] { return CompareLayout(0.5, [](Window& large, Window&) { large.Paint(); }); });

}  // namespace
