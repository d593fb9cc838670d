#pragma once

#include "examples/windows/ExampleControls.h"
#include "ui/control/MContainers.h"

#include <memory>

/// A window of nested layouts: a row of buttons above, a column with entry, chip and drop target at the left,
/// a long text for the rest, and what happens told in the lowest line.
class ExampleWindow final : public MWindow {
public:
    ExampleWindow(const MString& text, ExampleLog log);

    void OnHidden() override;

private:
    void MakeButtons();
    void MakeColumn();
    void OpenPopup();
    void OpenDialog();
    void Tell(const MString& line);
    void Capture(const MOnKeyboardShortcutParams& params);

    ExampleLog log;
    std::unique_ptr<MWindow> popup;
    MControl* status = nullptr;
};
