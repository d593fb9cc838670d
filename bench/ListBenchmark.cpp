#include "bench/MComparison.h"
#include "examples/windows/MPlainStyle.h"
#include "foundation/text/MStringFormatter.h"
#include "ui/control/windows/MWindows.h"
#include "ui/widgets/lists/MSTMLListBoxItem.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <memory>

namespace {

constexpr int Rounds = 31;
constexpr int32_t FewRows = 100;
constexpr int32_t ManyRows = 100'000;
constexpr const char* FontFolder = "/usr/share/fonts/truetype";

/// A window with a list of rich rows of different heights, 400 by 300.
class Window {
public:
    explicit Window(int32_t count) {
        for (int32_t i = 0; i < count; ++i)
            list.AddItem(std::make_unique<MSTMLListBoxItem>(
                MFormat(
                    "<b>Ensemble {0}</b><p>{1}", i,
                    i % 3 == 0
                        ? "Eight players in a small room, with all <i>articulations</i> and some noise of bows"
                        : "Two players"),
                MStdIcon::Download));
        root.SetControlType(MControlType::Window);
        root.SetClientControl(&list);
        root.Set(MControlFlag::AdaptSize, false);
        root.size = {400, 300};
        root.CreateWindow(nullptr);
        root.ShowWindow();
        root.RedrawNow();
    }

    /// Over so many rows, all of which are painted.
    void Scroll(int32_t rows) {
        for (const int32_t last = list.FindRowAt({5, 5}) + rows; list.FindRowAt({5, 5}) < last;) {
            const int64_t before = list.GetScrollPlace();
            list.ScrollTo(before + 40);
            root.RedrawNow();
            if (list.GetScrollPlace() == before) return;
        }
    }
    void Repaint(int32_t times) {
        for (int32_t i = 0; i < times; ++i) {
            list.Invalidate();
            root.RedrawNow();
        }
    }
    /// With keys, which repaint what has changed, down and up again.
    void Walk(int32_t keys) {
        for (int32_t i = 0; i < keys; ++i) {
            root.DispatchEvent({.type = MEventType::KeyDown, .key = i < keys / 2 ? MKeyDown : MKeyUp});
            root.RedrawNow();
        }
    }
    void SelectMiddle() {
        list.SelectRow(list.GetItemCount() / 2);
        list.SetFocus();
        root.RedrawNow();
    }

private:
    MControl root;
    MListBox& list = *new MListBox(&root, "list");
};

MComparison Compare(const std::function<MWork(std::unique_ptr<Window>&, int32_t rows)>& makeWork) {
    const auto windows = std::make_unique<MWindows>(std::make_unique<MWindowSystemHeadless>());
    windows->SetStyle(std::make_unique<MPlainStyle>(windows.get(), FontFolder));
    auto few = std::make_unique<Window>(FewRows);
    auto many = std::make_unique<Window>(ManyRows);
    MComparison comparison =
        MCompareSpeeds(Rounds, MClock::Processor, 1, makeWork(few, FewRows), makeWork(many, ManyRows));
    comparison.unit = "1/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = 1.5;
    comparison.note += "; ours is a list of 100 rich rows, the reference one of 100,000";
    return comparison;
}

/// A list of 100 rows begins anew in each round, since rows that were seen before are parsed and measured.
MWork ScrollOverNewRows(std::unique_ptr<Window>& window, int32_t rows) {
    return {[&window, rows] {
                if (rows == FewRows) window = std::make_unique<Window>(rows);
            },
            [&window] { window->Scroll(80); }};
}

MWork Repaint(std::unique_ptr<Window>& window, int32_t) {
    return {{}, [&window] { window->Repaint(50); }};
}

MWork WalkByKeys(std::unique_ptr<Window>& window, int32_t) {
    window->SelectMiddle();
    return {{}, [&window] { window->Walk(60); }};
}

[[maybe_unused]] const bool isRegistered =
    MRegisterComparison("Lists, scrolling over new rows", [] { return Compare(ScrollOverNewRows); }) &&
    MRegisterComparison("Lists, repainting", [] { return Compare(Repaint); }) &&
    MRegisterComparison("Lists, walking by keys", [] { return Compare(WalkByKeys); });

}  // namespace
