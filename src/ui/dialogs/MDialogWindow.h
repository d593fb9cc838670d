#pragma once

#include "ui/control/MContainers.h"
#include "ui/widgets/buttons/MButton.h"

/// A window that asks something: what it shows, and below that, at the right, buttons that close it. Escape
/// closes it with `Cancel`.
class MDialogWindow : public MWindow {
public:
    MDialogWindow(const MString& name, const MString& caption);

    /// The first one is the leftmost.
    MButton& AddButton(const MString& id, const MString& text, MModalValue value);
    /// What Enter does, and what has the focus in the beginning; null for the first control that can have it.
    void SetDefaultButton(MButton& button, MControl* focused);

    /// Makes the window if there is none.
    MModalValue RunModal(MControl* parent) override;
    void OnPrepared() override;

protected:
    /// For what the window shows; its client control.
    [[nodiscard]] MControlContainer& GetContainer() { return container; }

private:
    MControlContainer& container;
    MControlContainer& buttonRow;
    MLayout& buttonLayout;
    MControlRef firstFocus;
};
