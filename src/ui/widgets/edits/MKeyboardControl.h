#pragma once

#include "ui/control/MContainers.h"
#include "ui/widgets/buttons/MButton.h"

#include <memory>
#include <string_view>
#include <vector>

/// A keyboard on the screen, for who has no other one: what is clicked reaches a control as if it had been typed
/// there.
class MKeyboardControl : public MPanel {
public:
    explicit MKeyboardControl(MControl* parent = nullptr, const MString& name = MString());

    /// Who gets what is typed, or null.
    void SetTarget(MControl* newTarget) { target.Set(newTarget); }

private:
    /// When letters are capital ones.
    enum Caps : int32_t { CapsDisabled, CapsLocked, CapsAuto };

    /// A key with the character that it gives, or 0 for one that does something else.
    class Key final : public MButton {
    public:
        Key(MControl& row, char16_t character, int32_t key, const MString& text);

        const char16_t character;
        const int32_t key;
    };

    [[nodiscard]] MControl& AddRow();
    void AddCharacters(MControl& row, std::string_view characters);
    void AddKey(MControl& row, char16_t character, int32_t key, const char* text, int32_t width = 100);
    void AddCaps(MControl& row, Caps value, const char* text);
    [[nodiscard]] bool IsUpperCase() const;
    void ShowCase();
    void OnKey(const MOnClickParams& params);
    void OnCaps(const MOnNotifyParams& params);

    MControlRef target;
    std::vector<Key*> letters;
    int32_t caps = CapsAuto;
    bool isSentenceOver = true;
};

/// The keyboard in a window of its own, which Esc closes.
class MKeyboardWindow final : public MWindow {
public:
    MKeyboardWindow();

    /// Shows it below a control, which gets what is typed.
    void ShowFor(MControl& newTarget);
    void OnClosed() override;
    void OnHidden() override;

private:
    MControlRef target;
    bool wasActive = false;  ///< until it was closed, so that the user goes back to the target
    MKeyboardControl keyboard{this, "keyboard"};
};
