#include "examples/windows/ExampleWindow.h"

#include "examples/windows/ExampleScript.h"
#include "examples/windows/MPlainStyle.h"
#include "foundation/text/MStringFormatter.h"
#include "ui/control/windows/MWindows.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutOccupyBorder.h"
#include "ui/layout/MLayoutSide.h"

namespace {

constexpr int32_t CaptureKey = MKeyF1 + 11;

}  // namespace

ExampleWindow::ExampleWindow(const MString& text, ExampleLog log)
    : MWindow("Example", "Windows"), log(std::move(log)) {
    Set(MControlFlag::InTaskbar);
    Set(MControlFlag::Resizable);
    Set(MControlFlag::WindowMovable);
    Set(MControlFlag::MaximizeAllowed);
    Set(MControlFlag::AcceptsFiles);
    minClientSize = {720, 400};
    MLayoutOccupyBorder* const margins = new MLayoutOccupyBorder(*this);
    margins->x1 = margins->x2 = MPlainStyle::Space;
    MakeButtons();
    MLayoutBottom* const bottom = new MLayoutBottom(*this);
    status = new MControl(this, "status");
    status->SetControlType(MControlType::Static);
    status->SetCaption("Ready", MCaptionType::Normal);
    status->minimalSize.y = 18;
    status->layoutRatio = {100, 0};
    bottom->Add(*status);
    MakeColumn();
    SetClientControl(new ExampleText(this, text));
    GetShortcuts().Connect(this, &ExampleWindow::Capture, {.key = CaptureKey});
}

void ExampleWindow::MakeButtons() {
    MLayoutTop* const top = new MLayoutTop(*this);
    MControlContainer* const bar = new MControlContainer(this, "bar");
    bar->layoutBorder = {0, 4};
    top->Add(*bar);
    MLayoutHorizontal* const row = new MLayoutHorizontal(*bar);
    row->Add(*new ExampleButton(bar, "Popup", [this] { OpenPopup(); }));
    row->Add(*new ExampleButton(bar, "Dialog", [this] { OpenDialog(); }));
    row->Add(*new ExampleButton(bar, "Close", [this] { RequestClose(); }));
}

void ExampleWindow::MakeColumn() {
    MLayoutLeft* const left = new MLayoutLeft(*this);
    MPanel* const panel = new MPanel(this, "column");
    panel->SetCaption("Controls", MCaptionType::Normal);
    panel->minClientSize = {180, 0};
    left->Add(*panel);
    const ExampleLog tell = [this](const MString& line) { Tell(line); };
    MLayoutVertical* const column = new MLayoutVertical(*panel);
    column->defBorderX = 8;
    column->defBorderY = 4;
    column->Add(*new ExampleEntry(panel, "first", tell));
    column->Add(*new ExampleEntry(panel, "second", tell));
    column->Add(*new ExampleChip(panel, "Chip", tell));
    column->Add(*new ExampleTarget(panel, tell));
}

void ExampleWindow::Tell(const MString& line) {
    log(line);
    status->SetCaption(line, MCaptionType::Normal);
}

void ExampleWindow::OpenPopup() {
    popup = std::make_unique<MWindow>("Popup");
    popup->SetControlType(MControlType::Menu);
    popup->Set(MControlFlag::CloseOnDeactivate);
    popup->Set(MControlFlag::CloseOnEscape);
    popup->Set(MControlFlag::MoveToScreenCenter, false);
    MLayoutVertical* const items = new MLayoutVertical(*popup);
    for (const char* item : {"One", "Two", "Three"})
        items->Add(*new ExampleButton(popup.get(), item, [this, item] {
            Tell(MString("chosen ") + item);
            popup->CloseWindow(MModalValue::Ok);
        }));
    popup->CreateWindow(this);
    popup->position = GetScreenPoint({8, 60});
    const MModalValue result = popup->RunModal(this);
    Tell(MFormat("popup {0}", MValueEnum<MModalValue>::ToName(result)));
}

void ExampleWindow::OpenDialog() {
    MWindow dialog("Dialog", "A modal window");
    dialog.Set(MControlFlag::CloseOnEscape);
    dialog.Set(MControlFlag::WindowMovable);
    dialog.minClientSize = {240, 80};
    MLayoutBottom* const bottom = new MLayoutBottom(dialog);
    bottom->Add(*new ExampleButton(&dialog, "OK", [&dialog] { dialog.CloseWindow(MModalValue::Ok); }));
    dialog.CreateWindow(this);
    Tell(MFormat("dialog {0}", MValueEnum<MModalValue>::ToName(dialog.RunModal(this))));
}

void ExampleWindow::Capture(const MOnKeyboardShortcutParams&) {
    MBitmap picture;
    if (!MWindows::GetInstance()->GetSystem().CaptureToBitmap(*this, picture)) return;
    ExampleSavePicture(picture, "capture.png");
    log("captured");
}

void ExampleWindow::OnHidden() {
    log("hidden");
}
