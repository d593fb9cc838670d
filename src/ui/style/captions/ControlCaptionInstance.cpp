#include "ui/style/captions/ControlCaptionInstance.h"

#include "foundation/text/MStringFormatter.h"
#include "ui/control/MStyle.h"
#include "ui/style/captions/MCaptionPanel.h"

#include <algorithm>

namespace {

MCaptionButtonControl* FindControl(const MCaptionPanel& panel, const MCaptionButton& button) {
    for (MControl* child : panel.GetChildren())
        if (auto* const control = static_cast<MCaptionButtonControl*>(child);
            &control->GetButton() == &button)
            return control;
    return nullptr;
}

}  // namespace

ControlCaptionInstance::ControlCaptionInstance(MControl& owner)
    : owner(owner), panel(new MCaptionPanel(owner)), buttons(MMakeStockCaptionButtons()) {}

ControlCaptionInstance::~ControlCaptionInstance() {
    delete panel.Get();
}

ControlCaptionInstance* ControlCaptionInstance::Find(const MControl& owner) {
    return owner.GetProperty<ControlCaptionInstance>(Tag);
}

MCaptionPanel* ControlCaptionInstance::GetPanel() const {
    return static_cast<MCaptionPanel*>(panel.Get());
}

MCaptionButton& ControlCaptionInstance::AddButton(MStdIcon icon) {
    buttons.push_back(std::make_unique<MCaptionButton>(MFormat("Button{0}", ++addedCount), icon));
    owner.TouchSizes();
    return *buttons.back();
}

MCaptionButton& ControlCaptionInstance::AddEnableButton() {
    buttons.push_back(std::make_unique<MCaptionButtonEnable>());
    owner.TouchSizes();
    return *buttons.back();
}

void ControlCaptionInstance::Update(MStyle& style) {
    MCaptionPanel* const shown = GetPanel();
    if (!shown) return;
    MPoint size;
    std::vector<MCaptionButtonControl*> controls;
    for (const auto& button : buttons) {
        MCaptionButtonControl* control = FindControl(*shown, *button);
        if (!button->IsShown(owner)) {
            delete control;
            continue;
        }
        if (!control) control = new MCaptionButtonControl(*shown, owner, *button);
        MPoint content;
        control->GetMinimalContentSize(content.x, content.y);
        control->size = style.ConvertToWindow(*control, content);
        size = {size.x + control->size.x, std::max(size.y, control->size.y)};
        controls.push_back(control);
    }
    int32_t x = size.x;
    for (MCaptionButtonControl* control : controls) {
        x -= control->size.x;
        control->position = {x, (size.y - control->size.y) / 2};
    }
    shown->position = MPoint();
    shown->size = shown->minimalSize = size;
}

void ControlCaptionInstance::Arrange(const MRect& caption) const {
    MCaptionPanel* const shown = GetPanel();
    if (!shown) return;
    shown->position = {caption.right - shown->size.x + 1,
                       caption.top + (caption.GetHeight() - shown->size.y) / 2};
}

int32_t ControlCaptionInstance::GetWidth() const {
    const MCaptionPanel* const shown = GetPanel();
    return shown ? shown->size.x : 0;
}
