#pragma once

#include "foundation/base/MList.h"
#include "ui/control/MContainers.h"
#include "ui/control/windows/MTimer.h"
#include "ui/stml/MSTML.h"

#include <functional>

// Small controls, as a program might write its own.

/// Tells what happened, one line at a time.
using ExampleLog = std::function<void(const MString& line)>;

/// A button that tells its clicks and those of the keyboard.
class ExampleButton final : public MControl {
public:
    ExampleButton(MControl* parent, const MString& caption, std::function<void()> action);

    bool ProcessEvent(const MSystemEvent& event) override;

private:
    void OnClicked(const MOnClickParams& params);

    std::function<void()> action;
};

/// A text that wraps at its width.
class ExampleText final : public MControl {
public:
    ExampleText(MControl* parent, const MString& text);

    [[nodiscard]] MFlexibility GetFlexibility() override { return MFlexibleBoth; }
    [[nodiscard]] int32_t ComputePlasticSize(int32_t dimension, int32_t otherDimensionSize) override;
    void PaintContent(MDrawer& drawer) override;

    /// The first line that is shown, in pixels from the top of the text.
    void ScrollTo(int32_t pixels);
    bool ProcessEvent(const MSystemEvent& event) override;

private:
    [[nodiscard]] int32_t MeasureHeight(int32_t width);

    MSTML document;
    int32_t scroll = 0;
};

/// A line of text that takes the keyboard, with a caret that blinks while it has the focus.
class ExampleEntry final : public MControl, public MTimer {
public:
    ExampleEntry(MControl* parent, const MString& name, ExampleLog log);

    bool ProcessEvent(const MSystemEvent& event) override;
    void PaintContent(MDrawer& drawer) override;
    [[nodiscard]] MStdCursor GetCursorAt(MPoint point) override;
    void OnTimer() override;

private:
    static constexpr int32_t BlinkTime = 500;

    void SetText(const MString& newText);
    void UseClipboard(int32_t key);
    [[nodiscard]] MRect GetCaret();
    [[nodiscard]] MFont& GetOwnFont();

    ExampleLog log;
    MString text;
    bool isCaretShown = false;
};

/// Something to take and drop.
class ExampleChip final : public MControl {
public:
    ExampleChip(MControl* parent, const MString& caption, ExampleLog log);

    bool ProcessEvent(const MSystemEvent& event) override;
    void OnDragFinished(MControl* target, MPoint point, bool accepted) override;

private:
    ExampleLog log;
    MPoint pressPoint;
};

/// Where chips and files can be dropped.
class ExampleTarget final : public MControl {
public:
    ExampleTarget(MControl* parent, ExampleLog log);

    [[nodiscard]] bool OnDragOver(MControl& source, MPoint point) override;
    [[nodiscard]] bool OnDropAccepted(MControl& source, MPoint point) override;
    [[nodiscard]] bool OnFilesDropped(const MList<MString>& files) override;

private:
    ExampleLog log;
};
