#include "examples/gallery/GalleryWindow.h"

#include "examples/gallery/GalleryDialogs.h"
#include "examples/gallery/GalleryPages.h"
#include "examples/windows/ExampleScript.h"
#include "foundation/text/MStringFormatter.h"
#include "ui/control/MXmlLoader.h"
#include "ui/control/windows/MWindows.h"
#include "ui/layout/MLayoutOccupyBorder.h"
#include "ui/widgets/menus/MMenuBar.h"
#include "ui/widgets/values/MControlValue.h"

GalleryWindow::GalleryWindow(MXMLItem& document, Log log)
    : MWindow("Gallery", "Gallery"), log(std::move(log)) {
    for (const MControlFlag flag : {MControlFlag::InTaskbar, MControlFlag::Resizable,
                                    MControlFlag::WindowMovable, MControlFlag::MaximizeAllowed})
        Set(flag);
    minClientSize = {880, 580};
    auto* const margins = new MLayoutOccupyBorder(*this);
    margins->x1 = margins->y1 = margins->x2 = margins->y2 = 8;
    SetClientControl(&tabs);
    for (MXMLItem* item : document.GetSubItems()) {
        const MString name = item->GetAttribute("id");
        MPanel& page = tabs.AddTab(name);
        page.SetName(name);
        MXmlLoader::Get().Load(*item, page);
        GalleryCompletePage(page);
    }
    tabs.SelectTab(0);
    ListenTo(tabs);
    constexpr int32_t CaptureKey = MKeyF1 + 11;
    GetShortcuts().Connect(this, &GalleryWindow::Capture, {.key = CaptureKey});
}

void GalleryWindow::ListenTo(MControl& control) {
    control.OnClick(Click::Left).Connect(this, &GalleryWindow::OnClicked);
    control.OnChange().Connect(this, &GalleryWindow::OnChanged);
    if (auto* const bar = dynamic_cast<MMenuBar*>(&control))
        bar->OnItem().Connect(this, &GalleryWindow::OnMenuItem);
    for (MControl* child : control.GetChildren()) ListenTo(*child);
}

void GalleryWindow::OnMenuItem(const MOnItemParams<MMenuItem>& params) {
    log(MFormat("{0} chosen", params.item->text));
}

void GalleryWindow::OnClicked(const MOnClickParams& params) {
    const MString& name = params.control->GetName();
    log(MFormat("{0} clicked", name));
    for (const GalleryDialog& dialog : GalleryGetDialogs())
        if (name == dialog.name) log(MFormat("{0} gives {1}", name, dialog.run(*this)));
}

void GalleryWindow::OnChanged(const MOnNotifyParams& params) {
    if (auto* const value = dynamic_cast<MControlValue*>(params.sender))
        log(MFormat("{0} is {1}", value->GetName(), value->GetValueText()));
    else if (const auto* const control = dynamic_cast<MControl*>(params.sender))
        log(MFormat("{0} changed", control->GetName()));
}

void GalleryWindow::Capture(const MOnKeyboardShortcutParams&) {
    MBitmap picture;
    if (!MWindows::GetInstance()->GetSystem().CaptureToBitmap(*this, picture)) return;
    ExampleSavePicture(picture, "capture.png");
    log("captured");
}
