#include "ui/dialogs/configuration/MBaseStyleConfiguration.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/content/MHelpUsage.h"
#include "ui/widgets/content/MLabel.h"

#include <algorithm>

namespace {

/// The texts of `MBaseStyleConfiguration::Sizes`.
constexpr const char* SizeTexts[] = {"As the desktop", "75 %",  "100 %", "125 %", "150 %",
                                     "175 %",          "200 %", "250 %", "300 %", "400 %"};

constexpr const char* InvertHelp =
    "<name>Invert button</name> toggles between the normal and inverted state, where "
    "bright colors become dark and vice versa.";
constexpr const char* UpperCaseHelp =
    "<name>Upper-case button</name> enables the upper-case transformation, which "
    "makes most labels displayed in upper-case.";

constexpr const char* ConfigurationItem = "StyleConfiguration";
constexpr const char* EditorModeKey = "EditorMode";

}  // namespace

MBaseStyleConfiguration::MBaseStyleConfiguration(MBaseStyle& style, MControl* parent, const MString& name)
    : MControl(parent, name),
      style(style),
      grid(*new MLayoutGrid(*this, 2)),
      sizeX("ResizeX", SizeTexts, static_cast<int32_t>(std::size(SizeTexts))),
      sizeY("ResizeY", SizeTexts, static_cast<int32_t>(std::size(SizeTexts))) {
    static_assert(std::size(Sizes) == std::size(SizeTexts));
    using Configuration = MBaseStyleConfiguration;
    SetControlType(MControlType::Panel);
    SetCaption(MTranslate("Style configuration"), MCaptionType::Normal);
    Set(MControlFlag::TabStop, false);
    sizeXSwitcher = &AddSwitcher("ResizeX", MTranslate("Width"), sizeX, &Configuration::OnSizeX);
    sizeYSwitcher = &AddSwitcher("ResizeY", MTranslate("Height"), sizeY, &Configuration::OnSizeY);
    schemeSwitcher = &AddSwitcher("ColorScheme", MTranslate("Colors"), scheme, &Configuration::OnScheme);
    editorButton = &AddSwitch("EditorMode", MTranslate("Custom colors"), &Configuration::OnEditorMode);
    AddColors();
    invertButton = &AddSwitch("InvertColors", MTranslate("Invert"), &Configuration::OnInvert);
    upperCaseButton = &AddSwitch("EnableUpperCase", MTranslate("Upper-case"), &Configuration::OnUpperCase);
    invertButton->infoText = MTranslate(InvertHelp);
    upperCaseButton->infoText = MTranslate(UpperCaseHelp);

    MGuard("Load style configuration", [&] {
        const MString file = style.GetSettingsFile();
        if (file.IsEmpty() || !MFile::IsFile(file)) return;
        MXMLItem item;
        item.LoadFile(file);
        if (const MXMLItem* const own = item.FindSubItem(ConfigurationItem))
            isEditorMode = own->GetInt32Attribute(EditorModeKey, 0) != 0;
    });
    MBaseStyleConfiguration::ShowSettings();
}

void MBaseStyleConfiguration::AddRow(const MString& text, MControl& control) {
    MLabel* const label = new MLabel(this);
    label->SetText(text);
    label->LinkTo(control);
    grid.Attach(*label);
    grid.Attach(control);
}

MSwitcher& MBaseStyleConfiguration::AddSwitcher(
    const char* id, const MString& text, MValueChoice& value,
    void (MBaseStyleConfiguration::*handler)(const MOnNotifyParams&)) {
    MSwitcher* const switcher = new MSwitcher(this, id);
    switcher->SetValue(&value);
    switcher->OnChange().Connect(this, handler);
    AddRow(text, *switcher);
    return *switcher;
}

MButton& MBaseStyleConfiguration::AddSwitch(
    const char* id, const MString& text, void (MBaseStyleConfiguration::*handler)(const MOnNotifyParams&)) {
    MButton* const button = new MButton(this, id);
    button->SetText(text);
    button->SetSwitchable(true);
    button->OnChange().Connect(this, handler);
    AddRow(MString(), *button);
    return *button;
}

void MBaseStyleConfiguration::AddColors() {
    for (size_t i = 0; i < colorButtons.size(); ++i) {
        colorButtons[i] = new MColorSelectButton(this, MFormat("MainColor{0}", i));
        colorButtons[i]->OnChange().Connect(this, &MBaseStyleConfiguration::OnColor);
        AddRow(MFormat(MTranslate("Main color {0}"), i + 1), *colorButtons[i]);
    }
}

void MBaseStyleConfiguration::ShowSettings() {
    const MStyleSettings& settings = style.GetSettings();
    const auto showSize = [](MValueNameList& value, const std::optional<int32_t>& percent) {
        const auto found = std::ranges::min_element(Sizes, {}, [&](int32_t size) {
            return percent && size != AsDesktop ? std::abs(size - *percent) : percent ? 1000 : size;
        });
        value.SetDiscreteIndex(static_cast<int32_t>(found - std::begin(Sizes)));
    };
    showSize(sizeX, settings.resizeX);
    showSize(sizeY, settings.resizeY);
    // Another style has others.
    schemeNames.assign(1, MTranslate("Default"));
    for (const MBaseStyle::ColorScheme& each : style.GetColorSchemes()) schemeNames.push_back(each.name);
    scheme.SetList(schemeNames.data(), static_cast<int32_t>(schemeNames.size()));
    schemeSwitcher->TouchSizes();
    const auto chosen = settings.setDefaultColors ? schemeNames.begin()
                                                  : std::ranges::find(schemeNames, settings.colorScheme);
    const bool isKnown = chosen != schemeNames.end();
    scheme.SetDiscreteIndex(isKnown ? static_cast<int32_t>(chosen - schemeNames.begin()) : 0);
    for (MSwitcher* const switcher : {sizeXSwitcher, sizeYSwitcher, schemeSwitcher})
        switcher->OnValueChanged();
    const MStyleColors& colors = style.GetColors();
    for (size_t i = 0; i < colorButtons.size(); ++i) {
        colorButtons[i]->SetColor(colors.GetMainColors()[i]);
        colorButtons[i]->SetEnabled(isEditorMode);
    }
    editorButton->SetSwitched(isEditorMode);
    invertButton->SetSwitched(colors.IsInverted());
    upperCaseButton->SetSwitched(settings.enableUpperCase);
}

void MBaseStyleConfiguration::Apply(const MStyleSettings& settings) {
    const MControlRef self(this);
    style.SetSettings(settings);
    if (!self) return;
    ShowSettings();
    SaveSettings();
}

void MBaseStyleConfiguration::SaveSettings() {
    MGuard("Save style configuration", [this] {
        const MString file = style.GetSettingsFile();
        if (file.IsEmpty()) return;
        MXMLItem item("StyleSettings");
        style.SaveToSettings(item);
        item.AddSubItem(ConfigurationItem)->SetAttribute(EditorModeKey, isEditorMode ? 1 : 0);
        item.SaveFile(file, false, "utf-8");
    });
}

void MBaseStyleConfiguration::OnSize(const MValueNameList& size,
                                     std::optional<int32_t> MStyleSettings::*setting) {
    MStyleSettings settings = style.GetSettings();
    const int32_t percent = Sizes[static_cast<size_t>(size.Get())];
    settings.*setting = percent == AsDesktop ? std::nullopt : std::optional(percent);
    Apply(settings);
}

void MBaseStyleConfiguration::OnScheme(const MOnNotifyParams&) {
    MStyleSettings settings = style.GetSettings();
    settings.setDefaultColors = scheme.Get() == 0;
    settings.colorScheme =
        settings.setDefaultColors ? MString() : schemeNames[static_cast<size_t>(scheme.Get())];
    Apply(settings);
}

void MBaseStyleConfiguration::OnColor(const MOnNotifyParams&) {
    MStyleSettings settings = style.GetSettings();
    settings.setDefaultColors = false;
    settings.colorScheme = MString();
    for (size_t i = 0; i < colorButtons.size(); ++i) settings.mainColors[i] = colorButtons[i]->GetColor();
    Apply(settings);
}

void MBaseStyleConfiguration::OnEditorMode(const MOnNotifyParams&) {
    isEditorMode = editorButton->IsSwitched();
    ShowSettings();
    SaveSettings();
}

void MBaseStyleConfiguration::OnInvert(const MOnNotifyParams&) {
    MStyleSettings settings = style.GetSettings();
    settings.invertColors = invertButton->IsSwitched();
    Apply(settings);
}

void MBaseStyleConfiguration::OnUpperCase(const MOnNotifyParams&) {
    MStyleSettings settings = style.GetSettings();
    settings.enableUpperCase = upperCaseButton->IsSwitched();
    Apply(settings);
}

void MBaseStyleConfiguration::WriteHelpInfo(MXMLItem& item) {
    MControl::WriteHelpInfo(item);
    static constexpr const char* Entries[] = {InvertHelp, UpperCaseHelp};
    MWriteUsage(item, "", Entries);
}
