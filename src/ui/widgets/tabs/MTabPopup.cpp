#include "ui/widgets/tabs/MTabPopup.h"

#include "ui/control/windows/MWindows.h"

#include <utility>

MTabPopup::MTabPopup(const MString& name, const MString& caption, MControl& page)
    : MWindow(name, caption), page(page), container(new MContainer(this, "PopupContainer")) {
    SetClientControl(container);
    Set(MControlFlag::Resizable);
    Set(MControlFlag::WindowMovable);
    Set(MControlFlag::CloseOnEscape);
    Set(MControlFlag::KeepsApplicationAlive);
}

MTabPopup::~MTabPopup() {
    if (isOpen) GiveBack();
}

void MTabPopup::ShowPage(MPoint firstSize) {
    MWindows* const windows = MWindows::GetInstance();
    if (!windows) return;
    if (isOpen) return windows->GetSystem().Activate(*this);
    isOpen = true;
    if (!Is(MControlFlag::HasWindow)) size = firstSize;
    page.Reparent(*container);
    if (!Is(MControlFlag::HasWindow)) CreateWindow(&page);
    ShowModeless(&page);
}

void MTabPopup::GiveBack() {
    isOpen = false;
    container->Reparent(page);
}

void MTabPopup::OnHidden() {
    if (isOpen) GiveBack();
}
