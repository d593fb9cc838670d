#pragma once

#include "foundation/values/MValueList.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/style/MBaseStyle.h"
#include "ui/widgets/buttons/MButton.h"
#include "ui/widgets/colors/MColorSelectButton.h"
#include "ui/widgets/values/MSwitcher.h"

#include <array>
#include <vector>

/// Lets the user set what all styles have: sizes, colours, the inversion and upper case. What is set is seen at
/// once, and written to the style's settings file. Failures to write are caught.
///
/// "Custom colors" shows the main colours by themselves. Whether it is on is kept in the settings file as
/// "EditorMode" of its item "StyleConfiguration".
class MBaseStyleConfiguration : public MControl {
public:
    /// The style outlives the control.
    explicit MBaseStyleConfiguration(MBaseStyle& style, MControl* parent = nullptr,
                                     const MString& name = MString());

    void WriteHelpInfo(MXMLItem& item) override;

    /// Shows what the settings of the style are now.
    virtual void ShowSettings();

protected:
    [[nodiscard]] MBaseStyle& GetConfiguredStyle() const { return style; }
    /// A row of the page: its name, and the control, which becomes a child of this one.
    void AddRow(const MString& text, MControl& control);
    /// Writes the settings file.
    void SaveSettings();

private:
    static constexpr int32_t AsDesktop = 0;
    /// In percent, behind the choice that leaves the size to the desktop.
    static constexpr int32_t Sizes[] = {AsDesktop, 75, 100, 125, 150, 175, 200, 250, 300, 400};

    MSwitcher& AddSwitcher(const char* name, const MString& text, MValueChoice& value,
                           void (MBaseStyleConfiguration::*handler)(const MOnNotifyParams&));
    MButton& AddSwitch(const char* name, const MString& text,
                       void (MBaseStyleConfiguration::*handler)(const MOnNotifyParams&));
    void AddColors();
    void Apply(const MStyleSettings& settings);
    void OnSizeX(const MOnNotifyParams&) { OnSize(sizeX, &MStyleSettings::resizeX); }
    void OnSizeY(const MOnNotifyParams&) { OnSize(sizeY, &MStyleSettings::resizeY); }
    void OnSize(const MValueNameList& size, std::optional<int32_t> MStyleSettings::*setting);
    void OnScheme(const MOnNotifyParams&);
    void OnColor(const MOnNotifyParams&);
    void OnEditorMode(const MOnNotifyParams&);
    void OnInvert(const MOnNotifyParams&);
    void OnUpperCase(const MOnNotifyParams&);

    using TextList = MValueList<MString, const MString*, int32_t>;

    MBaseStyle& style;
    MLayoutGrid& grid;
    MValueNameList sizeX;
    MValueNameList sizeY;
    std::vector<MString> schemeNames;
    TextList scheme;
    MSwitcher* schemeSwitcher = nullptr;
    MSwitcher* sizeXSwitcher = nullptr;
    MSwitcher* sizeYSwitcher = nullptr;
    std::array<MColorSelectButton*, MColorTransfer::Count> colorButtons{};
    MButton* editorButton = nullptr;
    MButton* invertButton = nullptr;
    MButton* upperCaseButton = nullptr;
    bool isEditorMode = false;
};
