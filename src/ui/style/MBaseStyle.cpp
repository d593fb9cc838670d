#include "ui/style/MBaseStyle.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MModule.h"
#include "foundation/text/MNumberText.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/resources/MResourceLibrary.h"
#include "ui/control/MControl.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/control/windows/MWindows.h"
#include "ui/style/MStyleNumber.h"

#include <algorithm>
#include <cmath>

namespace {

double GetFraction(MXMLItem& item, const char* attribute, double defaultValue) {
    if (!item.HasAttribute(attribute)) return defaultValue;
    return MLimitStyleNumber(MParseDouble(item.GetCachedAttribute()), 0, 1);
}

/// A factor of the definition, in percent.
int32_t GetPercentAttribute(MXMLItem& item, const char* attribute, int32_t defaultValue) {
    if (!item.HasAttribute(attribute)) return defaultValue;
    const double factor = MLimitStyleNumber(MParseDouble(item.GetCachedAttribute()), 0, 100);
    return std::clamp(static_cast<int32_t>(std::floor(factor * 100 + 0.5)), MStyleScale::Least,
                      MStyleScale::Most);
}

}  // namespace

MBaseStyle::MBaseStyle(MWindows* owner, const MString& name, MResourceLibrary* builtIn, FontSource fontSource)
    : MStyle(owner, name),
      builtIn(builtIn),
      noResources(std::make_unique<MResourceLibrary>()),
      fonts(builtIn, fontSource) {
    SetResources(builtIn);
    if (owner) owner->OnDesktop().Connect(this, &MBaseStyle::OnDesktop);
}

void MBaseStyle::SetResources(const MResourceLibrary* library) {
    resources = library ? library : noResources.get();
}

MBaseStyle::~MBaseStyle() = default;

MString MBaseStyle::GetSettingsFile() {
    const MModule* const module = MModule::GetInstance();
    return module ? module->GetDataPath_File_User(MWindows::StyleSettings, MString(), false) : MString();
}

MString MBaseStyle::GetStyleDirectory() {
    const MString folder = MFile::GetSpecialPath(MSpecialFolderData);
    return folder.IsEmpty() ? folder : MFile::Join(folder, GetStyleLibrary());
}

MList<MString> MBaseStyle::ListStyles() {
    MList<MString> names;
    if (builtIn) names.Add(MStyle::GetName());
    const MString folder = GetStyleDirectory();
    if (folder.IsEmpty() || !MFile::IsDirectory(folder)) return names;
    MGuard("List styles", [&] {
        for (const MFileListEntry& entry : MFile::GetFileList(folder)) {
            const MString name = MFile::GetBaseName(entry.name);
            const bool isKnown = std::ranges::find(names, name) != names.end();
            if (!entry.isDirectory && !isKnown && MFile::GetExtension(entry.name) == "mstyle")
                names.Add(name);
        }
    });
    names.Sort([](const MString& one, const MString& other) { return one.CompareNoCase(other) < 0; });
    return names;
}

void MBaseStyle::LoadFromSettings(MXMLItem& item) {
    settings.Load(item);
    ApplySettings();
}

void MBaseStyle::SaveToSettings(MXMLItem& item) {
    settings.Save(item);
}

void MBaseStyle::SetSettings(const MStyleSettings& newSettings) {
    settings = newSettings;
    fittedPercent = 100;
    ApplySettings();
    RefreshWindows();
}

void MBaseStyle::OnDesktop(const MOnNotifyParams&) {
    fittedPercent = 100;
    ApplySettings();
    RefreshWindows();
}

void MBaseStyle::RefreshWindows() {
    if (!owner) return;
    for (int32_t i = 0; i < owner->GetRoots().GetCount(); ++i) {
        MControl& window = *owner->GetRoots()[i];
        window.TouchSizes();
        window.UpdateLayout();
    }
}

void MBaseStyle::LoadDefinition(MXMLItem& definition) {
    // Fonts come first: without them no other definition would do either.
    fonts.Load(definition);
    colors.Load(definition);
    LoadColorSchemes(definition);
    sizes.Load(definition);
    pictures.Load(definition, *resources);
    definitionScale = {GetPercentAttribute(definition, "ResizeX", 100),
                       GetPercentAttribute(definition, "ResizeY", 100)};
    mostScale = {GetPercentAttribute(definition, "MaxX", MStyleScale::Most),
                 GetPercentAttribute(definition, "MaxY", MStyleScale::Most)};
    MXMLItem none;
    MXMLItem* const alphas = definition.FindSubItem("colors");
    MXMLItem& item = alphas ? *alphas : none;
    minAlpha = GetFraction(item, "minalpha", 0);
    disabledAlpha = GetFraction(item, "disabledalpha", 1);
    focusedAlpha = GetFraction(item, "focusedalpha", 1);
    highlightedAlpha = GetFraction(item, "highlightedalpha", 1);
    clickedAlpha = GetFraction(item, "clickedalpha", 1);
    const MXMLItem* const rendering = definition.FindSubItem("contentrendering");
    for (size_t i = 0; i < shadows.size(); ++i) {
        const MXMLItem* const type = rendering ? rendering->FindSubItem(MControlTypeNames[i]) : nullptr;
        const int32_t alpha = type ? type->GetInt32Attribute("textshadowalpha", 0) : 0;
        shadows[i] = static_cast<uint8_t>(std::clamp(alpha, 0, 255));
    }
    ApplySettings();
}

void MBaseStyle::LoadColorSchemes(MXMLItem& definition) {
    colorSchemes.clear();
    MXMLItem* const schemes = definition.FindSubItem("colorschemes");
    if (!schemes) return;
    for (MXMLItem* item : schemes->GetSubItems()) {
        ColorScheme scheme{item->GetAttribute("name", MString()), colors.GetDefaultColors()};
        for (size_t i = 0; i < scheme.colors.size(); ++i) {
            const MString key = MFormat("MainColor{0}", i);
            if (item->HasAttribute(key)) scheme.colors[i] = MColor::Parse(item->GetCachedAttribute());
        }
        colorSchemes.push_back(scheme);
    }
}

MStyleColors::MainColors MBaseStyle::GetChosenColors() const {
    if (settings.setDefaultColors) return colors.GetDefaultColors();
    for (const ColorScheme& scheme : colorSchemes)
        if (scheme.name == settings.colorScheme) return scheme.colors;
    // A scheme may be that of another style.
    return settings.colorScheme.IsEmpty() ? settings.mainColors : colors.GetDefaultColors();
}

bool MBaseStyle::FitWindow(MControl& window) {
    if (!owner || window.GetControlType() != MControlType::Window) return false;
    const MRect room = owner->GetSystem().GetWorkArea(std::nullopt);
    const MPoint needed = window.minimalSize;
    constexpr int32_t Least = 50;
    if (room.IsEmpty() || fittedPercent <= Least) return false;
    if (needed.x <= room.GetWidth() && needed.y <= room.GetHeight()) return false;
    const auto getPart = [](int32_t available, int32_t wanted) {
        return static_cast<int32_t>(int64_t{available} * 100 / std::max(wanted, 1));
    };
    // A step at least, since not all gets smaller as the scale does.
    const int32_t part =
        std::min({getPart(room.GetWidth(), needed.x), getPart(room.GetHeight(), needed.y), 95});
    fittedPercent = std::max(fittedPercent * part / 100, Least);
    ApplySettings();
    for (MControl* other : owner->GetRoots()) other->TouchSizes();
    return true;
}

void MBaseStyle::Unload() {
    fonts.Clear();
    pictures.Clear();
}

int32_t MBaseStyle::GetPercent(const std::optional<int32_t>& chosen, int32_t given, int32_t most) const {
    const int32_t desktop = owner ? owner->GetSystem().GetScalePercent() : 100;
    const int32_t percent = std::min(chosen.value_or(MStyleScale::Scale(given, desktop)), most);
    return std::max(MStyleScale::Scale(percent, fittedPercent), MStyleScale::Least);
}

void MBaseStyle::ApplySettings() {
    scale = {GetPercent(settings.resizeX, definitionScale.x, mostScale.x),
             GetPercent(settings.resizeY, definitionScale.y, mostScale.y)};
    colors.SetMainColors(GetChosenColors());
    const bool isLightDesktop = owner && owner->GetSystem().PrefersDark() == std::optional(false);
    colors.SetInverted(settings.invertColors.value_or(isLightDesktop));
    fonts.SetScale(scale);
    sizes.SetScale(scale);
    pictures.Reset(scale, colors);
    sizes.SetIconSize(pictures.GetIconSize());
    ResetImages();
}

uint8_t MBaseStyle::GetStateAlpha(uint8_t drawState) const {
    double alpha = 1;
    if (!(drawState & MDrawEnabled)) alpha *= disabledAlpha;
    if (drawState & MDrawFocused) alpha *= focusedAlpha;
    if (drawState & MDrawHighlighted) alpha *= highlightedAlpha;
    if (drawState & MDrawClicked) alpha *= clickedAlpha;
    return static_cast<uint8_t>(std::floor(std::max(alpha, minAlpha) * 255 + 0.5));
}

MFont* MBaseStyle::GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted, uint8_t drawState,
                           MColor& color) {
    color = GetColor(colorIndex, isInverted);
    color.alpha = static_cast<uint8_t>(color.alpha * GetStateAlpha(drawState) / 255);
    return fonts.Get(fontIndex);
}

const MCursor& MBaseStyle::GetCursor(MStdCursor cursor, MControl&, uint8_t) {
    return pictures.GetCursor(cursor);
}

MColor MBaseStyle::GetColor(int32_t index, bool isInverted) {
    return colors.GetStdColor(index, isInverted);
}

MString MBaseStyle::TransformCaption(MControl& control, const MString& text) {
    const MControlType type = control.GetControlType();
    if (!settings.enableUpperCase || type == MControlType::Edit) return text;
    MString shown;
    shown.Reserve(text.GetLength());
    for (int32_t i = 0; i < text.GetLength(); ++i) shown.Append(text[i].ToUpper());
    return shown;
}

MColor MBaseStyle::GetCaptionColor(MControl& control) {
    return GetColor(static_cast<int32_t>(MStdColor::Text), IsInverted(control));
}

int32_t MBaseStyle::GetDrawFlags(MControl& control) {
    const auto type = static_cast<size_t>(control.GetControlType());
    return type < shadows.size() ? shadows[type] : 0;
}

uint8_t MBaseStyle::GetDisabledAlpha(MControl&) {
    return GetStateAlpha(MDrawDisabled);
}

MPoint MBaseStyle::ConvertToClient(MControl& control, MPoint size) {
    const Frame frame = GetFrame(control);
    return {size.x - frame.left - frame.right, size.y - frame.top - frame.bottom};
}

MPoint MBaseStyle::ConvertToWindow(MControl& control, MPoint size) {
    const Frame frame = GetFrame(control);
    return {MClampPlace(int64_t{size.x} + frame.left + frame.right),
            MClampPlace(int64_t{size.y} + frame.top + frame.bottom)};
}

void MBaseStyle::ComputeRectangles(MControl& control, MRect& windowRect, MRect& clientRect) {
    const MPoint size = control.GetShownSize();
    const Frame frame = GetFrame(control);
    windowRect = MRect::FromSize(0, 0, size.x, size.y);
    clientRect = {frame.left, frame.top, size.x - 1 - frame.right, size.y - 1 - frame.bottom};
}

MPoint MBaseStyle::GetDefaultSize(MControl& control) {
    return sizes.GetDefaultSize(control.GetControlType());
}

MPoint MBaseStyle::GetMinimalClassSize(MControl& control) {
    return sizes.GetMinimalSize(control.GetControlType());
}

void MBaseStyle::ResetSizes(MControl& control) {
    control.size = GetDefaultSize(control);
}

bool MBaseStyle::IsInverted(MControl& control) {
    const MControl* const parent = control.GetParent();
    return control.Is(MControlFlag::Inverted) != (parent && parent->Is(MControlFlag::Inverted));
}
