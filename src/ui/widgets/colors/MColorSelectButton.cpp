#include "ui/widgets/colors/MColorSelectButton.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/MContainers.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/colors/MColorEditor.h"

#include <optional>

namespace {

/// The colour that the user has chosen, or none.
std::optional<MColor> SelectColor(MControl& owner, const MString& caption, MColor color) {
    MWindow window("ColorEditor", caption);
    window.Set(MControlFlag::CloseOnEscape);
    auto& buttons = *new MLayoutBottom(window);
    MColorEditor editor(&window, "Editor");
    editor.SetColor(color);
    window.SetClientControl(&editor);
    MButton ok(&window, "okbutton");
    ok.SetText(MTranslate("OK"));
    ok.SetModalValue(MModalValue::Ok);
    ok.SetDefault(true);
    MButton cancel(&window, "cancelbutton");
    cancel.SetText(MTranslate("Cancel"));
    cancel.SetModalValue(MModalValue::Cancel);
    buttons.Add(ok);
    buttons.Add(cancel);
    window.CreateWindow(&owner.GetRoot());
    if (window.RunModal(&owner) != MModalValue::Ok) return std::nullopt;
    return editor.GetColor();
}

}  // namespace

MColorSelectButton::MColorSelectButton(MControl* parent, const MString& name) : MButton(parent, name) {
    SetColor(color);
}

void MColorSelectButton::SetColor(MColor newColor) {
    color = newColor;
    SetContent(std::make_unique<MContentColor>(color));
}

void MColorSelectButton::OnClick(MPoint point) {
    const MControlRef self(this);
    MButton::OnClick(point);
    if (!self) return;
    const MString caption = GetCaption().IsEmpty() ? MTranslate("Select color") : GetCaption();
    const std::optional<MColor> chosen = SelectColor(*this, caption, color);
    if (!self || !chosen || *chosen == color) return;
    SetColor(*chosen);
    ExecuteOnChange();
}

void MColorSelectButton::LoadFromXml(MXMLItem& item) {
    MButton::LoadFromXml(item);
    (void)(item.HasAttribute("value") && MColorEditor::Parse(item.GetCachedAttribute(), color));
    SetColor(color);
}

void MColorSelectButton::SaveValueState(MXMLItem& item) {
    item.SetAttribute("value", color.GetText());
}

void MColorSelectButton::LoadValueState(MXMLItem& item) {
    MColor loaded = color;
    if (!item.HasAttribute("value") || !MColorEditor::Parse(item.GetCachedAttribute(), loaded) ||
        loaded == color)
        return;
    SetColor(loaded);
    ExecuteOnChange();
}
