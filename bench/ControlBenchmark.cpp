#include "bench/MComparison.h"
#include "examples/windows/MPlainStyle.h"
#include "foundation/base/MException.h"
#include "ui/control/MControl.h"
#include "ui/control/windows/MWindows.h"
#include "ui/drawing/MDrawerToMBitmap.h"
#include "ui/image/MAlphaMask.h"
#include "ui/text/MTextLayout.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int Rounds = 41;
constexpr const char* FontFolder = "/usr/share/fonts/truetype";

/// What painting comes down to: fills, frames and masks of glyphs, to be repeated without the controls.
class Recorder final : public MDrawer {
public:
    void FillRectangle(const MRect& rect, MColor color, MDrawMode mode) override {
        primitives.emplace_back(
            [=, rect = Shift(rect)](MDrawer& drawer) { drawer.FillRectangle(rect, color, mode); });
    }
    void Rectangle(const MRect& rect, MColor color, MDrawMode mode) override {
        primitives.emplace_back(
            [=, rect = Shift(rect)](MDrawer& drawer) { drawer.Rectangle(rect, color, mode); });
    }
    void AlignedTextOut(const MRect& rect, MFont& font, const MString& text, MColor color,
                        MTextAlignment alignment) override {
        MTextLayout layout(font, text, Shift(rect), alignment);
        for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);)
            primitives.emplace_back([=](MDrawer& drawer) {
                drawer.AlphaMask(MRect::FromSize(0, 0, glyph.mask->GetWidth(), glyph.mask->GetHeight()),
                                 *glyph.mask, glyph.point, color, MDrawMode::Alphablend);
            });
    }

    std::vector<std::function<void(MDrawer&)>> primitives;
};

std::unique_ptr<MWindows> MakeWindows() {
    auto windows = std::make_unique<MWindows>(std::make_unique<MWindowSystemHeadless>());
    windows->SetStyle(std::make_unique<MPlainStyle>(windows.get(), FontFolder));
    return windows;
}

void Place(MControl& control, const MRect& rect) {
    control.Set(MControlFlag::OverlayControl);
    control.Set(MControlFlag::AdaptSize, false);
    control.position = rect.GetTopLeft();
    control.size = {rect.GetWidth(), rect.GetHeight()};
}

void Open(MControl& root, MPoint size) {
    root.SetControlType(MControlType::Window);
    root.Set(MControlFlag::AdaptSize, false);
    root.size = size;
    root.CreateWindow(nullptr);
    root.ShowWindow();
    root.RedrawNow();
}

/// A window of 750 by 400 with 60 controls: three panels with buttons and entries.
class Window {
public:
    Window() {
        for (int32_t column = 0; column < 3; ++column) {
            auto* const panel = new MControl(&root);
            panel->SetControlType(MControlType::Panel);
            panel->SetCaption("Components", MCaptionType::Normal);
            Place(*panel, MRect::FromSize(10 + 245 * column, 10, 240, 380));
            for (int32_t row = 0; row < 19; ++row) {
                auto* const control = new MControl(panel);
                control->SetControlType(row % 2 ? MControlType::Edit : MControlType::Button);
                control->SetCaption("Presets and manual", MCaptionType::Normal);
                Place(*control, MRect::FromSize(10, 28 + 18 * row, 220, 17));
                last = control;
            }
        }
        Open(root, {750, 400});
        Record(root);
    }

    void Paint() {
        root.Invalidate();
        root.PerformPaintDispatch();
    }
    void PaintCaret() {
        last->InvalidateRect({20, 1, 21, 16});
        root.PerformPaintDispatch();
    }
    void PaintBare() {
        for (const auto& primitive : recorder.primitives) primitive(drawer);
    }

private:
    void Record(MControl& control) {
        recorder.SetTranslation(control.windowOffset.x, control.windowOffset.y);
        control.GetStyle()->PaintControl(control, recorder);
        for (MControl* child : control.GetChildren()) Record(*child);
    }

    MControl root;
    MControl* last = nullptr;
    Recorder recorder;
    MBitmap bitmap{750, 400};
    MDrawerToMBitmap drawer{bitmap};
};

/// How many times the time of `reference` the other work takes, which is repeated so often.
MComparison CompareTimes(double goal, int repetitions, const std::function<void()>& reference,
                         const std::function<void()>& work) {
    const auto repeat = [=](const std::function<void()>& body) {
        return [=] {
            for (int i = 0; i < repetitions; ++i) body();
        };
    };
    MComparison comparison = MCompareSpeeds(Rounds, MClock::Processor, repetitions / 1e3,
                                            {{}, repeat(reference)}, {{}, repeat(work)});
    comparison.unit = "thousand/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = goal;
    return comparison;
}

MComparison CompareRepaint() {
    const std::unique_ptr<MWindows> windows = MakeWindows();
    Window window;
    MComparison comparison = CompareTimes(
        3, 50, [&] { window.PaintBare(); }, [&] { window.Paint(); });
    comparison.note += "; ours are the bare primitives, the reference is the window";
    return comparison;
}

MComparison CompareCaret() {
    const std::unique_ptr<MWindows> windows = MakeWindows();
    Window window;
    MComparison comparison = CompareTimes(
        0.02, 50, [&] { window.Paint(); }, [&] { window.PaintCaret(); });
    comparison.note += "; ours is the window, the reference is the caret";
    return comparison;
}

/// Twenty levels of fifty controls, the last of which holds the next level.
class DeepWindow {
public:
    DeepWindow() {
        MControl* parent = &root;
        for (int32_t level = 0; level < 20; ++level) {
            MControl* next = nullptr;
            for (int32_t i = 0; i < 50; ++i) {
                next = new MControl(parent);
                const bool isLast = i == 49;
                Place(*next, isLast ? MRect::FromSize(100, 0, 2700 - 100 * level, 400)
                                    : MRect::FromSize(i, i, 40, 8));
            }
            parent = next;
        }
        Open(root, {2800, 400});
    }

    void MoveMouse() {
        MSystemEvent event;
        event.point = {2150 + ++moves % 100, 200};
        root.DispatchEvent(event);
    }
    void Walk() {
        const MPoint point{2150 + ++moves % 100, 200};
        ++walks;
        const MControl* control = &root;
        while (control) {
            const MControl* found = nullptr;
            for (const MControl* child : control->GetChildren()) {
                if (!child->contentRect.Contains(point - child->windowOffset)) continue;
                found = child;
                break;
            }
            control = found;
            depth += found != nullptr;
        }
    }

    int64_t walks = 0;
    int64_t depth = 0;

private:
    MControl root;
    int32_t moves = 0;
};

MComparison CompareRouting() {
    const std::unique_ptr<MWindows> windows = MakeWindows();
    DeepWindow window;
    MComparison comparison = CompareTimes(
        3, 1000, [&] { window.Walk(); }, [&] { window.MoveMouse(); });
    if (window.walks == 0 || window.depth != 20 * window.walks)
        MRaise(MExceptionGeneral, "The walk did not get down.");
    comparison.note += "; ours is a bare walk to the control, the reference is the event";
    return comparison;
}

[[maybe_unused]] const bool isRegistered =
    MRegisterComparison("Controls, a window of 60", CompareRepaint) &&
    MRegisterComparison("Controls, a caret", CompareCaret) &&
    MRegisterComparison("Controls, the way of a mouse move", CompareRouting);

}  // namespace
