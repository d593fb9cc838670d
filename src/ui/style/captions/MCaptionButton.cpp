#include "ui/style/captions/MCaptionButton.h"

#include "ui/control/MControl.h"
#include "ui/control/windows/MWindows.h"

namespace {

MWindowSystem* GetSystem(const MControl& owner) {
    MWindows* const windows = MWindows::GetInstance();
    return windows && owner.Is(MControlFlag::HasWindow) ? &windows->GetSystem() : nullptr;
}

class CloseButton final : public MCaptionButton {
public:
    CloseButton() : MCaptionButton("Close", MStdIcon::Close) {}
    bool IsShown(MControl& owner) override { return owner.IsRoot(); }
    void Perform(MControl& owner) override { owner.RequestClose(); }
};

class MaximizeButton final : public MCaptionButton {
public:
    MaximizeButton() : MCaptionButton("Maximize", MStdIcon::Maximize) {}
    bool IsShown(MControl& owner) override {
        return owner.IsRoot() && owner.Is(MControlFlag::MaximizeAllowed);
    }
    MStdIcon GetIcon(MControl& owner) override {
        MWindowSystem* const system = GetSystem(owner);
        return system && system->IsMaximized(owner) ? MStdIcon::Unmaximize : MStdIcon::Maximize;
    }
    void Perform(MControl& owner) override {
        MWindowSystem* const system = GetSystem(owner);
        if (!system) return;
        system->IsMaximized(owner) ? system->Restore(owner) : system->Maximize(owner);
    }
};

class MinimizeButton final : public MCaptionButton {
public:
    MinimizeButton() : MCaptionButton("Minimize", MStdIcon::Minimize) {}
    bool IsShown(MControl& owner) override { return owner.IsRoot() && owner.Is(MControlFlag::InTaskbar); }
    void Perform(MControl& owner) override {
        if (MWindowSystem* const system = GetSystem(owner)) system->Minimize(owner);
    }
};

class CollapseButton final : public MCaptionButton {
public:
    CollapseButton() : MCaptionButton("Collapse", MStdIcon::Collapse) {}
    bool IsShown(MControl& owner) override { return owner.Is(MControlFlag::Collapsable); }
    MStdIcon GetIcon(MControl& owner) override {
        return owner.Is(MControlFlag::Collapsed) ? MStdIcon::DownThin : MStdIcon::UpThin;
    }
    void Perform(MControl& owner) override { owner.SetCollapsed(!owner.Is(MControlFlag::Collapsed)); }
};

class HelpButton final : public MCaptionButton {
public:
    HelpButton() : MCaptionButton("Help", MStdIcon::Help) {}
    bool IsShown(MControl& owner) override {
        return owner.Is(MControlFlag::ShowHelp) && !(owner.help.IsEmpty() && owner.infoText.IsEmpty());
    }
    void Perform(MControl& owner) override { owner.ShowHelp(owner); }
};

}  // namespace

void MCaptionButtonEnable::Perform(MControl& owner) {
    const bool isOn = !TestFlags(Switched);
    AssignFlags(Switched, isOn);
    const MControlRef self(&owner);
    for (int32_t i = 0; self && i < owner.GetChildren().GetCount(); ++i) {
        MControl& child = *owner.GetChildren()[i];
        if (!child.Is(MControlFlag::OverlayControl)) child.SetEnabled(isOn);
    }
    if (self) MCaptionButton::Perform(owner);
}

std::vector<std::unique_ptr<MCaptionButton>> MMakeStockCaptionButtons() {
    std::vector<std::unique_ptr<MCaptionButton>> buttons;
    buttons.push_back(std::make_unique<CloseButton>());
    buttons.push_back(std::make_unique<MaximizeButton>());
    buttons.push_back(std::make_unique<MinimizeButton>());
    buttons.push_back(std::make_unique<CollapseButton>());
    buttons.push_back(std::make_unique<HelpButton>());
    return buttons;
}
