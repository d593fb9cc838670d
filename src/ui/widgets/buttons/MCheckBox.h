#pragma once

#include "foundation/values/MValueEnum.h"
#include "ui/widgets/content/MControlContent.h"

#include <cstdint>

enum class MCheckBoxState : int32_t { Off, On, Grayed };

inline constexpr const char* MCheckBoxStateNames[] = {"off", "on", "grayed"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MCheckBoxState> = MCheckBoxStateNames;

class MRadioGroup;

/// A mark and a text beside it. It toggles when the left button of the mouse or Enter or Space goes down, and
/// raises `OnChange()` then.
///
/// Attributes: "threestate", "default" and "check" (names of `MCheckBoxState`), "radiobutton". With
/// `SaveValue` the window's state has "check".
class MCheckBox : public MControlContent {
public:
    explicit MCheckBox(MControl* parent = nullptr, const MString& name = MString());
    ~MCheckBox() override;

    [[nodiscard]] MCheckBoxState Get() const { return state; }
    [[nodiscard]] bool IsOn() const { return state == MCheckBoxState::On; }
    /// Raises nothing but, for a state that is none, "Invalid checkbox state to get image to." (2). The
    /// others of a group go off.
    void Set(MCheckBoxState newState);
    using MControlContent::Set;
    /// As the user does: to the next state, of two or of three. Raises `OnChange()` if it is another one.
    void Toggle();
    void SetThreeState(bool newHasThreeStates) { hasThreeStates = newHasThreeStates; }
    /// What `ResetToDefault` brings back.
    void SetDefaultState(MCheckBoxState newState) { defaultState = newState; }
    /// Looks like one of several, and goes on by clicks only.
    void SetRadioButton(bool newIsRadioButton);
    [[nodiscard]] bool IsRadioButton() const { return isRadioButton; }

    void LoadFromXml(MXMLItem& item) override;
    [[nodiscard]] MAlignment GetContentAlignment() override { return MAlignLeft; }
    [[nodiscard]] MRect GetContentRectangle() override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    [[nodiscard]] int32_t ComputePlasticSize(int32_t dimension, int32_t otherDimensionSize) override;
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    /// Of a group one button is.
    [[nodiscard]] bool IsReachedByTab() override;
    void ResetToDefault() override;
    [[nodiscard]] bool IsModifiedByUser() override { return state != defaultState; }
    void SaveValueState(MXMLItem& item) override;
    void LoadValueState(MXMLItem& item) override;
    void WriteHelpInfo(MXMLItem& item) override;

private:
    friend class MRadioGroup;

    void Change(MCheckBoxState newState);
    /// Moves the focus within the group, and chooses what gets it.
    bool GoTo(MCheckBox& box);
    /// Of the mark, and of it with its distance to the text.
    [[nodiscard]] MPoint GetMarkSize();
    [[nodiscard]] MPoint GetMarkRoom();

    MCheckBoxState state = MCheckBoxState::Off;
    MCheckBoxState defaultState = MCheckBoxState::Off;
    bool hasThreeStates = false;
    bool isRadioButton = false;
    MRadioGroup* group = nullptr;
};
