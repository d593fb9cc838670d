#include "ui/dialogs/MDialogWindow.h"

#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"

namespace {

// At 100 percent.
constexpr int32_t Margin = 12;
constexpr int32_t ButtonSpace = 8;
constexpr int32_t ButtonWidth = 72;

}  // namespace

MDialogWindow::MDialogWindow(const MString& name, const MString& caption)
    : MWindow(name, caption),
      container(*new MControlContainer(this, "Container")),
      buttonRow(*new MControlContainer(this, "Buttons")),
      buttonLayout(*new MLayoutHorizontal(buttonRow)) {
    Set(MControlFlag::CloseOnEscape);
    Set(MControlFlag::WindowMovable);
    (new MLayoutBottom(*this))->Add(buttonRow);
    SetClientControl(&container);
    buttonRow.layoutRatio = {100, 0};
    container.layoutBorder = buttonRow.layoutBorder = {Margin, Margin};
    buttonLayout.space = ButtonSpace;
    buttonLayout.Add(*new MControlContainer(&buttonRow, "Space"));
}

MButton& MDialogWindow::AddButton(const MString& id, const MString& text, MModalValue value) {
    auto& button = *new MButton(&buttonRow, id);
    button.SetText(text);
    button.SetModalValue(value);
    button.minClientSize.x = ButtonWidth;
    button.layoutRatio = {0, 0};
    buttonLayout.Add(button);
    return button;
}

void MDialogWindow::SetDefaultButton(MButton& button, MControl* focused) {
    button.SetDefault(true);
    firstFocus.Set(focused);
}

MModalValue MDialogWindow::RunModal(MControl* parent) {
    // One that belongs to no other window is found where those of programs are, and gets the keyboard as they do.
    if (!parent) Set(MControlFlag::InTaskbar);
    if (!Is(MControlFlag::HasWindow)) CreateWindow(parent);
    return MWindow::RunModal(parent);
}

void MDialogWindow::OnPrepared() {
    MWindow::OnPrepared();
    if (firstFocus) SetFocus(firstFocus.Get());
}
