#pragma once

#include "foundation/events/MOnNotifyParams.h"
#include "ui/control/MStyle.h"
#include "ui/style/MStyleScale.h"
#include "ui/style/colors/MStyleColors.h"
#include "ui/style/tables/MFontTable.h"
#include "ui/style/tables/MPictureTable.h"
#include "ui/style/tables/MSizeTable.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

class MResourceLibrary;

/// What the user has chosen, the element "StyleSettings" of the settings file. What he has not set comes from
/// the definition and from the desktop.
struct MStyleSettings {
    MString style = "Default";
    std::optional<int32_t> resizeX;  ///< in percent
    std::optional<int32_t> resizeY;
    std::optional<bool> invertColors;
    bool enableUpperCase = false;
    bool setDefaultColors = true;  ///< the colours of the definition, not those below
    MString colorScheme;
    MStyleColors::MainColors mainColors;

    void Load(MXMLItem& item);
    void Save(MXMLItem& item) const;
};

/// What all looks have in common: the tables of a definition, the user's settings, and what follows from
/// both.
class MBaseStyle : public MStyle {
public:
    using FontSource = MFontTable::Source;

    /// `builtIn` is the library that travels inside of the program and outlives the style; null for none. `name` is
    /// that of the look in it.
    MBaseStyle(MWindows* owner, const MString& name, MResourceLibrary* builtIn, FontSource fontSource);
    ~MBaseStyle() override;

    [[nodiscard]] MString GetSettingsFile() override;
    [[nodiscard]] MString GetStyleLibrary() override { return "MStyles"; }
    [[nodiscard]] MString GetStyleDirectory() override;
    /// The names of the style files, sorted; "Default" among them if the program brings a style.
    [[nodiscard]] MList<MString> ListStyles() override;
    /// Takes settings over; the definition stays. `Load` in the derived class opens the style they name.
    void LoadFromSettings(MXMLItem& settings) override;
    void SaveToSettings(MXMLItem& settings) override;
    /// Fills the tables. Raises "No fonts are available on the system." (0), and what colours raise that
    /// cannot be read.
    void LoadDefinition(MXMLItem& definition) override;
    void Unload() override;

    /// Main colours that go together.
    struct ColorScheme {
        MString name;
        MStyleColors::MainColors colors;
    };
    /// Those of the definition.
    [[nodiscard]] const std::vector<ColorScheme>& GetColorSchemes() const { return colorSchemes; }

    [[nodiscard]] const MStyleSettings& GetSettings() const { return settings; }
    /// Takes effect at once: all windows are laid out and painted again.
    void SetSettings(const MStyleSettings& newSettings);
    [[nodiscard]] MStyleScale GetScale() const { return scale; }
    [[nodiscard]] const MStyleColors& GetColors() const { return colors; }

    [[nodiscard]] MBitmap* GetStdIcon(int32_t index) override { return pictures.GetIcon(index); }
    [[nodiscard]] MBitmap* GetStdBitmap(int32_t index) override { return pictures.GetBitmap(index); }
    [[nodiscard]] MFontTable* GetFontTable() override { return &fonts; }
    [[nodiscard]] MFont* GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted, uint8_t drawState,
                                 MColor& color) override;
    [[nodiscard]] const MCursor& GetCursor(MStdCursor cursor, MControl& control, uint8_t drawState) override;
    [[nodiscard]] MColor GetColor(int32_t index, bool isInverted) override;
    [[nodiscard]] MColor GetCaptionColor(MControl& control) override;
    [[nodiscard]] MString TransformCaption(MControl& control, const MString& text) override;
    [[nodiscard]] int32_t GetMetric(int32_t index) override { return sizes.GetMetric(index); }
    /// The alpha of the shadow of text on a control.
    [[nodiscard]] int32_t GetDrawFlags(MControl& control) override;
    [[nodiscard]] uint8_t GetDisabledAlpha(MControl& control) override;

    [[nodiscard]] MPoint ConvertToClient(MControl& control, MPoint size) override;
    [[nodiscard]] MPoint ConvertToWindow(MControl& control, MPoint size) override;
    void ComputeRectangles(MControl& control, MRect& windowRect, MRect& clientRect) override;
    [[nodiscard]] MPoint GetDefaultSize(MControl& control) override;
    [[nodiscard]] MPoint GetMinimalClassSize(MControl& control) override;
    void ResetSizes(MControl& control) override;
    [[nodiscard]] int32_t ScaleX(int32_t value) override { return scale.GetX(value); }
    [[nodiscard]] int32_t ScaleY(int32_t value) override { return scale.GetY(value); }
    void AdjustSize(MControl&, int32_t&, int32_t&) override {}
    [[nodiscard]] bool FitWindow(MControl& window) override;
    /// The control's flag or its parent's, not both.
    [[nodiscard]] bool IsInverted(MControl& control) override;

protected:
    /// What caption and frame of a control take at each side, in pixels.
    struct Frame {
        int32_t left = 0;
        int32_t top = 0;
        int32_t right = 0;
        int32_t bottom = 0;
    };
    [[nodiscard]] virtual Frame GetFrame(MControl& control) = 0;
    /// Colours or scale have changed: whatever was made of them has to be made again.
    virtual void ResetImages() = 0;
    /// Lays all windows out again, and paints them.
    void RefreshWindows();
    /// Brings scale and colours up to what settings, definition and desktop say.
    void ApplySettings();
    [[nodiscard]] MResourceLibrary* GetBuiltIn() const { return builtIn; }
    /// The library that pictures come from; it stays until the next definition. Null for none.
    void SetResources(const MResourceLibrary* library);
    [[nodiscard]] const MResourceLibrary& GetResources() const { return *resources; }

    MStyleSettings settings;

private:
    void OnDesktop(const MOnNotifyParams& params);
    void LoadColorSchemes(MXMLItem& definition);
    [[nodiscard]] MStyleColors::MainColors GetChosenColors() const;
    [[nodiscard]] int32_t GetPercent(const std::optional<int32_t>& chosen, int32_t given, int32_t most) const;
    [[nodiscard]] uint8_t GetStateAlpha(uint8_t drawState) const;

    MResourceLibrary* const builtIn;
    const std::unique_ptr<MResourceLibrary> noResources;
    const MResourceLibrary* resources = nullptr;
    MStyleColors colors;
    std::vector<ColorScheme> colorSchemes;
    MStyleScale scale;
    MFontTable fonts;
    MPictureTable pictures;
    MSizeTable sizes;

    MStyleScale definitionScale;
    MStyleScale mostScale;
    int32_t fittedPercent = 100;  ///< what windows that are too large for the screen leave of the scale
    double minAlpha = 0;
    double disabledAlpha = 1;
    double focusedAlpha = 1;
    double highlightedAlpha = 1;
    double clickedAlpha = 1;
    std::array<uint8_t, std::size(MControlTypeNames)> shadows{};
};
