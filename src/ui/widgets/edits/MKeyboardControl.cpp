#include "ui/widgets/edits/MKeyboardControl.h"

#include "foundation/base/MException.h"
#include "ui/control/windows/MWindows.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/widgets/menus/MPopupPlace.h"

#include <utility>

namespace {

constexpr std::string_view Letters[] = {"QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM"};
constexpr std::string_view Symbols[] = {"+-/*=", ".,!?:", "<>()~", "@#$%&", ";'\"_\\"};

}  // namespace

MKeyboardControl::Key::Key(MControl& row, char16_t character, int32_t key, const MString& text)
    : MButton(&row), character(character), key(key) {
    SetText(text);
}

MKeyboardControl::MKeyboardControl(MControl* parent, const MString& name) : MPanel(parent, name) {
    new MLayoutVertical(*this);
    AddCharacters(AddRow(), "1234567890");
    for (const std::string_view characters : Letters) AddCharacters(AddRow(), characters);
    MControl& symbols = AddRow();
    MControl& otherSymbols = AddRow();
    for (size_t i = 0; i < std::size(Symbols); ++i) AddCharacters(i % 2 ? otherSymbols : symbols, Symbols[i]);
    MControl& editing = AddRow();
    AddKey(editing, 0, MKeyBackspace, "Backspace");
    AddKey(editing, ' ', 0, "Space", 200);
    AddKey(editing, 0, MKeyDelete, "Delete");
    AddKey(editing, 0, MKeyEnter, "Enter");
    MControl& modes = AddRow();
    AddCaps(modes, CapsAuto, " Auto Caps ");
    AddCaps(modes, CapsLocked, " Caps Lock ");
    AddCaps(modes, CapsDisabled, " Disabled ");
    ShowCase();
}

MControl& MKeyboardControl::AddRow() {
    auto* const row = new MControlContainer(this);
    new MLayoutHorizontal(*row);
    GetLayouts()[0]->Add(*row);
    return *row;
}

void MKeyboardControl::AddCharacters(MControl& row, std::string_view characters) {
    for (const char character : characters) {
        const char text[] = {character, '\0'};
        AddKey(row, static_cast<char16_t>(character), 0, text);
    }
}

void MKeyboardControl::AddKey(MControl& row, char16_t character, int32_t key, const char* text,
                              int32_t width) {
    auto* const button =
        new Key(row, character, key, key || character == ' ' ? MTranslate(text) : MString::Copy(text));
    button->layoutRatio.x = width;
    button->MControl::OnClick(Click::Left).Connect(this, &MKeyboardControl::OnKey);
    row.GetLayouts()[0]->Add(*button);
    if (MChar(character).IsLetter()) letters.push_back(button);
}

void MKeyboardControl::AddCaps(MControl& row, Caps value, const char* text) {
    auto* const button = new MButton(&row);
    button->SetText(MTranslate(text));
    button->SetSwitchable(true);
    button->BindToValue(&caps, value);
    button->OnChange().Connect(this, &MKeyboardControl::OnCaps);
    row.GetLayouts()[0]->Add(*button);
}

bool MKeyboardControl::IsUpperCase() const {
    return caps == CapsLocked || (caps == CapsAuto && isSentenceOver);
}

void MKeyboardControl::ShowCase() {
    for (Key* key : letters) {
        const MChar letter(key->character);
        MString text;
        text.Append(IsUpperCase() ? letter : letter.ToLower());
        key->SetText(text);
    }
}

void MKeyboardControl::OnCaps(const MOnNotifyParams&) {
    ShowCase();
}

void MKeyboardControl::OnKey(const MOnClickParams& params) {
    const auto& key = *static_cast<Key*>(params.control);
    if (!target) return;
    const MControlRef self(this);
    const MChar character = MChar(key.character).IsLetter() && !IsUpperCase() ? MChar(key.character).ToLower()
                                                                              : MChar(key.character);
    if (character == '.' || character == '!' || character == '?' || key.key == MKeyEnter)
        isSentenceOver = true;
    else if (character > ' ')
        isSentenceOver = false;
    ShowCase();
    if (key.character) {
        target->DispatchEvent({.type = MEventType::Character, .character = character});
        return;
    }
    const int32_t code = key.key;
    target->DispatchEvent({.type = MEventType::KeyDown, .key = code});
    if (self && target) target->DispatchEvent({.type = MEventType::KeyUp, .key = code});
}

MKeyboardWindow::MKeyboardWindow() : MWindow("KeyboardWindow", MTranslate("Keyboard")) {
    SetClientControl(&keyboard);
    Set(MControlFlag::CloseOnEscape);
    Set(MControlFlag::MoveToScreenCenter, false);
    Set(MControlFlag::WindowMovable);
    Set(MControlFlag::KeepsApplicationAlive);
}

void MKeyboardWindow::ShowFor(MControl& newTarget) {
    target.Set(&newTarget);
    keyboard.SetTarget(&newTarget);
    if (!Is(MControlFlag::HasWindow)) CreateWindow(&newTarget.GetRoot());
    ShowModeless(&newTarget.GetRoot());
    const MPoint corner = newTarget.GetScreenPoint({});
    const MPoint shown = newTarget.GetShownSize();
    SetPosition(MPlacePopup(size, MRect::FromSize(corner.x, corner.y, shown.x, shown.y), MPopupSide::Below));
}

void MKeyboardWindow::OnClosed() {
    wasActive = MWindows::GetInstance()->GetSystem().GetActiveRoot() == this;
}

void MKeyboardWindow::OnHidden() {
    if (std::exchange(wasActive, false) && target)
        MWindows::GetInstance()->GetSystem().Activate(target->GetRoot());
}
