#pragma once

#include "foundation/values/MValue.h"
#include "ui/widgets/content/MControlContent.h"
#include "ui/widgets/menus/MMenu.h"

#include <functional>
#include <memory>

/// A control that shows a value and lets the user change it, by mouse and keyboard as its help tells.
/// Whenever the user does, `OnChange()` is raised, and behind it `Change::Intermediate` while the mouse
/// drags, or `Change::Committed`; that comes again at the end of a drag. When the program changes the value
/// it calls `OnValueChanged`.
///
/// Attributes: "value", a text of the value. With `SaveValue` the window's state has "value".
class MControlValue : public MControlContent {
public:
    explicit MControlValue(MControl* parent = nullptr, const MString& name = MString());

    /// Null for a number of the control's own, from 0 to 1. The value outlives the control, or is taken over.
    void SetValue(MValue* newValue);
    void SetValue(std::unique_ptr<MValue> newValue);
    [[nodiscard]] MValue& GetValue() const { return *value; }
    /// Shows what the value is now.
    virtual void OnValueChanged() { Invalidate(); }
    [[nodiscard]] virtual MString GetValueText() { return value->GetText(); }

    void LoadFromXml(MXMLItem& item) override;
    [[nodiscard]] MContent* GetContent() override;
    /// Of the widest text that the value is likely to have.
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    void ResetToDefault() override;
    void SaveValueState(MXMLItem& item) override;
    void LoadValueState(MXMLItem& item) override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    /// What the user works on, of a control with several values.
    [[nodiscard]] virtual MValue& GetActiveValue() const { return *value; }
    /// The question for its text.
    [[nodiscard]] virtual MString GetEditCaption() const;

    /// Changes the active value and raises the events if it is another one then. The control may have ended
    /// after that.
    void Modify(const std::function<void(MValue&)>& change, Change kind = Change::Committed);
    /// For a press that opens a window, which has to get the mouse.
    void LetMouseGo(const std::function<void()>& open);
    /// As text in a window, or by a menu of all values where these are few.
    void EditValue();
    /// False if the value is continuous, or has too many values for a menu.
    bool ShowMenu();

private:
    bool ProcessKey(const MSystemEvent& event);
    void EditText();
    void OnMenuItem(const MOnItemParams<MMenuItem>& params);

    std::unique_ptr<MValue> ownValue;
    MValue* value;
    MContentText valueText;
    std::unique_ptr<MMenu> menu;
    bool editsAtRelease = false;  ///< of the left button, since windows that open before would not get it
};
