#include "ui/widgets/values/MControlValue.h"

#include "foundation/values/MValueNumber.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/windows/MWindows.h"
#include "ui/widgets/content/MHelpUsage.h"
#include "ui/widgets/content/MValueContents.h"

#include <algorithm>

namespace {

constexpr int32_t MaximumMenuItems = 64;

bool HasMenu(const MValue& value) {
    return value.GetDiscreteCount() > 1 && value.GetDiscreteCount() <= MaximumMenuItems;
}

/// What tells whether a value has become another one.
std::pair<MString, double> GetState(const MValue& value) {
    return {value.ToStorageText(), value.GetNormalized()};
}

}  // namespace

MControlValue::MControlValue(MControl* parent, const MString& name)
    : MControlContent(parent, name), ownValue(std::make_unique<MValueDouble>()), value(ownValue.get()) {
    Set(MControlFlag::HotTrack);
}

void MControlValue::SetValue(MValue* newValue) {
    if (!newValue) return SetValue(std::make_unique<MValueDouble>());
    value = newValue;
    ownValue.reset();
    TouchSizes();
    OnValueChanged();
}

void MControlValue::SetValue(std::unique_ptr<MValue> newValue) {
    value = newValue.get();
    ownValue = std::move(newValue);
    TouchSizes();
    OnValueChanged();
}

void MControlValue::Modify(const std::function<void(MValue&)>& change, Change kind) {
    MValue& active = GetActiveValue();
    const auto before = GetState(active);
    change(active);
    const auto now = GetState(active);
    if (now.second == before.second && now.first.IsExactly(before.first)) return;
    const MControlRef self(this);
    OnValueChanged();
    ExecuteOnChange();
    if (self) OnChange(kind).Fire({this});
}

MContent* MControlValue::GetContent() {
    valueText.text = GetValueText();
    return &valueText;
}

void MControlValue::GetMinimalContentSize(int32_t& x, int32_t& y) {
    constexpr int32_t Samples = 5;
    const int32_t count = HasMenu(*value) ? value->GetDiscreteCount() : Samples;
    MPoint needed = GetNeededSize(GetContent());
    for (int32_t i = 0; i < count; ++i) {
        const auto sample = MGetContentAt(*value, static_cast<double>(i) / (count - 1));
        needed.x = std::max(needed.x, GetNeededSize(sample.get()).x);
    }
    x = needed.x;
    y = needed.y;
}

bool MControlValue::ProcessEvent(const MSystemEvent& event) {
    switch (event.type) {
    case MEventType::LeftDown:
    case MEventType::LeftDoubleClick:
        editsAtRelease = event.type == MEventType::LeftDoubleClick || event.Has(MModifierShift);
        return true;
    case MEventType::LeftUp:
        if (!std::exchange(editsAtRelease, false)) return true;
        LetMouseGo([this] { EditValue(); });
        return true;
    case MEventType::RightDown: Modify([](MValue& active) { active.ResetToDefault(); }); return true;
    case MEventType::Wheel:
        Modify([&](MValue& active) { (void)active.Step(event.wheelDelta, event.Has(MModifierControl)); });
        return true;
    case MEventType::KeyDown:
        if (ProcessKey(event)) return true;
        break;
    default: break;
    }
    return MControlContent::ProcessEvent(event);
}

void MControlValue::LetMouseGo(const std::function<void()>& open) {
    const MControlRef self(this);
    Set(MControlFlag::LeftDown, false);
    ReleaseCapture();
    if (self) open();
}

bool MControlValue::ProcessKey(const MSystemEvent& event) {
    const auto step = [&](int32_t count) {
        Modify([&](MValue& active) { (void)active.Step(count, event.Has(MModifierControl)); });
    };
    switch (event.key) {
    case MKeyUp:
    case MKeyRight: step(1); return true;
    case MKeyDown:
    case MKeyLeft: step(-1); return true;
    case MKeyHome: Modify([](MValue& active) { active.SetNormalized(0); }); return true;
    case MKeyEnd: Modify([](MValue& active) { active.SetNormalized(1); }); return true;
    case MKeySpace:
        if (!event.isRepeated) EditValue();
        return true;
    default: return false;
    }
}

void MControlValue::EditValue() {
    if (!ShowMenu()) EditText();
}

void MControlValue::EditText() {
    MWindows* const windows = MWindows::GetInstance();
    if (!windows || !windows->dialogs) return;
    const MControlRef self(this);
    const MValue& active = GetActiveValue();
    const std::optional<MString> text =
        windows->dialogs->EditText(GetRoot(), GetEditCaption(), active.GetText(), active.GetCharFilter());
    if (self && text) Modify([&](MValue& edited) { (void)edited.SetText(*text); });
}

MString MControlValue::GetEditCaption() const {
    return MTranslate("Enter new value");
}

bool MControlValue::ShowMenu() {
    MValue& active = GetActiveValue();
    if (!HasMenu(active)) return false;
    if (!menu) {
        menu = std::make_unique<MMenu>();
        menu->OnItem().Connect(this, &MControlValue::OnMenuItem);
    }
    menu->Clear();
    const int32_t count = active.GetDiscreteCount();
    const int32_t present = active.GetDiscreteIndex();
    for (int32_t i = 0; i < count; ++i) {
        MMenuItem& item = menu->AddItem(active.GetTextAt(static_cast<double>(i) / (count - 1)), i);
        if (i == present) item.check = 1;
    }
    menu->minimalWidth = size.x;
    const MControlRef self(this);
    menu->Open(*this, windowRect.Shifted(GetScreenPoint({})));
    if (self) menu->FocusItem(present);
    return true;
}

void MControlValue::OnMenuItem(const MOnItemParams<MMenuItem>& params) {
    const int32_t index = params.item->id;
    Modify([index](MValue& active) { active.SetDiscreteIndex(index); });
}

void MControlValue::LoadFromXml(MXMLItem& item) {
    if (item.HasAttribute("value")) {
        value->FromStorageText(item.GetCachedAttribute());
        OnValueChanged();
    }
    MControlContent::LoadFromXml(item);
}

void MControlValue::ResetToDefault() {
    const MControlRef self(this);
    MControlContent::ResetToDefault();
    if (self) Modify([](MValue& active) { active.ResetToDefault(); });
}

void MControlValue::SaveValueState(MXMLItem& item) {
    item.SetAttribute("value", value->ToStorageText());
}

void MControlValue::LoadValueState(MXMLItem& item) {
    if (!item.HasAttribute("value")) return;
    const MString text = item.GetCachedAttribute();
    Modify([&](MValue& active) { active.FromStorageText(text); });
}

void MControlValue::WriteHelpInfo(MXMLItem& item) {
    MControlContent::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<control>Click/drag using left mouse button</control> to change the value.",
        "<control>Right mouse button</control> selects default value.",
        "<control>Mouse wheel</control>, <control>arrow keys</control> and vertical drag using "
        "<control>middle mouse button</control> or using <control>left mouse button while holding "
        "Ctrl</control> modifies the value more accurately.",
        "<control>Home key</control> configures minimal possible value, conversely <control>end "
        "key</control> setups a maximal one.",
        "<control>Esc or Backspace keys</control> restore the original value when hit during dragging.",
        "<control>Shift + left mouse button</control> or <control>double-click using left mouse "
        "button</control> lets you edit the value as text. In some cases this shows a menu with all possible "
        "values instead."};
    MWriteUsage(item, "", Entries);
}
