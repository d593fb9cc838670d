#pragma once

#include "foundation/text/MString.h"
#include "foundation/values/MValueEnum.h"
#include "ui/image/MColor.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

class MXMLItem;

/// A colour by what it is for. A definition gives them in its element "colors"; one that it leaves out comes
/// from a main colour.
enum class MStyleTone : uint8_t {
    Text,
    Shape,  ///< icons, and what stands beside text
    Soft,   ///< text that is less important
    Ground,
    Panel,
    Control,
    Hover,
    Press,
    Sunk,
    Groove,  ///< what a value moves along
    Line,
    EntryLine,  ///< around what can be filled in
    Light,      ///< on an upper edge
    Shade,      ///< on a lower edge
    Accent,
    AccentDeep,
    AccentText,
    Ring,  ///< around what has the focus
    Selection,
    Count,
};

inline constexpr const char* MStyleToneNames[] = {"text",       "shape",      "soft",  "ground",   "panel",
                                                  "control",    "hover",      "press", "sunk",     "groove",
                                                  "line",       "entryline",  "light", "shade",    "accent",
                                                  "accentdeep", "accenttext", "ring",  "selection"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MStyleTone> = MStyleToneNames;

/// How strongly a colour of the definition follows each of the main colours: it takes hue and saturation of
/// them and keeps its lightness, by so many parts of 255.
struct MColorTransfer {
    static constexpr size_t Count = 4;
    /// The names of the attributes; one without a number is that of the first main colour too.
    static constexpr const char* Keys[] = {"changecolortomain", "changecolortomain0", "changecolortomain1",
                                           "changecolortomain2", "changecolortomain3"};
    static constexpr const char* RectangleKeys[] = {"changerectcolortomain", "changerectcolortomain0",
                                                    "changerectcolortomain1", "changerectcolortomain2",
                                                    "changerectcolortomain3"};

    std::array<uint8_t, Count> strength{};
    uint8_t saturation = 255;  ///< how much of the main colour's saturation it takes
    uint8_t brightness = 0;    ///< and of its lightness

    void Load(MXMLItem& item, std::span<const char* const, Count + 1> keys = Keys);
    [[nodiscard]] bool IsNone() const { return strength == std::array<uint8_t, Count>{}; }
    [[nodiscard]] MColor Apply(MColor color, std::span<const MColor, Count> mainColors) const;
};

/// The colours of a style: those of the definition, by name, as the main colours and the inversion make them.
///
/// A colour is written as eight hexadecimal digits or as a name of the element "colors", which is either an
/// attribute with the digits or a child with "color", "inverted" and the strengths of `MColorTransfer`. In
/// the inverted look a colour has the opposite lightness, or is the one that "inverted" tells.
class MStyleColors {
public:
    using MainColors = std::array<MColor, MColorTransfer::Count>;

    /// Reads "MainColor0" to "MainColor3" and the child "colors". Raises what `MColor::Parse` raises.
    void Load(MXMLItem& definition);
    /// Both take effect at once; what was given before has to be asked for again.
    void SetMainColors(const MainColors& colors);
    void SetInverted(bool isInverted);
    [[nodiscard]] const MainColors& GetMainColors() const { return mainColors; }
    /// Those of the definition.
    [[nodiscard]] const MainColors& GetDefaultColors() const { return defaultColors; }
    [[nodiscard]] bool IsInverted() const { return isInverted; }

    [[nodiscard]] MColor Get(MStyleTone tone) const { return tones[static_cast<size_t>(tone)]; }
    /// What stands in a definition, changed by its own transfer; `keepsLightness` in the inverted look too.
    /// Raises what `MColor::Parse` raises.
    [[nodiscard]] MColor Get(const MString& text, const MColorTransfer& transfer, bool keepsLightness) const;
    /// One of `MStdColor`. The coloured ones are made light or dark enough to be read on every surface;
    /// `isSelected`: on the accent.
    [[nodiscard]] MColor GetStdColor(int32_t index, bool isSelected) const;

private:
    struct Entry {
        MString name;
        MColor color;
        MColor inverted;
        bool hasInverted = false;
        MColorTransfer transfer;
    };

    void Resolve();
    void AddEntry(MXMLItem& item);
    [[nodiscard]] const Entry* Find(const MString& name) const;
    [[nodiscard]] MColor Resolve(const Entry& entry, bool keepsLightness) const;
    [[nodiscard]] MColor GetDefault(MStyleTone tone) const;

    static constexpr size_t StdColorCount = 5;

    MainColors mainColors;
    MainColors defaultColors;
    bool isInverted = false;
    std::vector<Entry> entries;
    std::array<MColor, static_cast<size_t>(MStyleTone::Count)> tones;
    std::array<std::array<MColor, StdColorCount>, 2> stdColors;  ///< on surfaces, and on the accent
};
