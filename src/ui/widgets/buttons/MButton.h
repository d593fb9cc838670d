#pragma once

#include "ui/widgets/content/MControlContent.h"

#include <cstdint>
#include <memory>

/// A button. A click, by the left button of the mouse, or by Enter or Space where it has the focus, raises
/// `OnClick(Click::Left)`, in the end of the press. The default button of a window takes Enter also where it
/// has no focus, if nobody else does.
///
/// A switchable button goes on and off by clicks, and raises `OnChange()` then, before the click. It keeps
/// that itself, or in a number that it shares with others (`BindToValue`), so that one of them is on at a
/// time. That it is on is also told to the style, by `MControlFlag::Checked`.
///
/// Attributes: "switchable", "unswitchable", "switched", "switchedvalue", "unswitchedvalue", "modalvalue",
/// "showbackground", "default". With `SaveValue` the window's state has "switched".
class MButton : public MControlContent {
public:
    explicit MButton(MControl* parent = nullptr, const MString& name = MString());

    using MControlContent::OnClick;

    // What happens to the button, at a point in its own coordinates; the keyboard presses its middle.
    /// Switches, raises the event, closes the window.
    virtual void OnClick(MPoint point);
    virtual void OnMousePressed(MPoint) {}
    /// Clicks, if the point lies in the button.
    virtual void OnMouseReleased(MPoint point);
    virtual void OnKeyPressed(MPoint) {}
    virtual void OnKeyReleased(MPoint point) { OnClick(point); }

    void SetSwitchable(bool newIsSwitchable) { isSwitchable = newIsSwitchable; }
    [[nodiscard]] bool IsSwitchable() const { return isSwitchable; }
    [[nodiscard]] bool IsSwitched() const { return variable ? *variable == switchedValue : isSwitched; }
    /// Raises nothing. Returns whether it is another state; one that is bound goes off only by another one of
    /// its ring, unless it is unswitchable.
    bool SetSwitched(bool isOn);
    void SetUnswitchable(bool newIsUnswitchable) { isUnswitchable = newIsUnswitchable; }
    /// Is switched on when a number, which outlives the button, has a value of its own. The buttons of a
    /// window that are bound to the same number are a ring. Null ends that.
    void BindToValue(int32_t* newVariable);
    void BindToValue(int32_t* newVariable, int32_t newSwitchedValue, int32_t newUnswitchedValue = 0);
    /// What is shown as long as the button is on; null for what is always shown.
    void SetSwitchedContent(std::unique_ptr<MContent> newContent);
    /// A click closes the window with this; `None` does not.
    void SetModalValue(MModalValue value) { modalValue = value; }
    void SetDefault(bool isDefault);
    /// Without a background it is its content alone, and a shade over it.
    void SetBackgroundShown(bool isShown);

    void LoadFromXml(MXMLItem& item) override;
    [[nodiscard]] MContent* GetContent() override;
    /// Of both contents.
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    [[nodiscard]] MDrawState GetDrawState() override;
    bool Paint(MDrawer& drawer) override;
    [[nodiscard]] MRect GetOpaquePart() override;
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    bool ProcessGlobalEvent(const MSystemEvent& event) override;
    void SaveValueState(MXMLItem& item) override;
    void LoadValueState(MXMLItem& item) override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    /// Whether mouse or keyboard hold it down.
    [[nodiscard]] bool IsPressed() const { return isKeyPressed || Is(MControlFlag::LeftDown); }
    /// The text of a default button is bold.
    [[nodiscard]] MContentLook GetContentLook() override;

private:
    bool ProcessClickKey(bool isDown);
    void ProcessRelease(MPoint point);
    /// Of all buttons below that show one of two values of a number.
    static void InvalidateRing(MControl& control, const int32_t* number, int32_t oneValue,
                               int32_t otherValue);

    std::unique_ptr<MContent> switchedContent;
    int32_t* variable = nullptr;
    int32_t switchedValue = 1;
    int32_t unswitchedValue = 0;
    MModalValue modalValue = MModalValue::None;
    bool isSwitchable = false;
    bool isUnswitchable = false;
    bool isSwitched = false;
    bool isMouseBeside = false;  ///< while the mouse holds the button
    bool isKeyPressed = false;
};
