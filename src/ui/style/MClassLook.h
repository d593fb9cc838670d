#pragma once

#include "foundation/values/MValueEnum.h"
#include "ui/style/images/ControlStyle.h"

#include <array>
#include <memory>

/// The classes of controls that a definition has an element for.
enum class MStyleClass : uint8_t {
    Window,
    Panel,
    Control,
    Static,
    Edit,
    Menu,
    Button,
    CaptionButton,
    RadioButton,
    CheckBox,
    Tracker,
    ProgressBar,
    Rotator,
    Knob,
    HScrollBar,
    VScrollBar,
    TabSet,
    MenuBar,
    ControlCheckBox,
    ListControl,
    TreeControl,
    Splitter,
};

inline constexpr const char* MStyleClassNames[] = {
    "window",          "panel",         "control",     "static",     "edit",    "menu",
    "button",          "captionbutton", "radiobutton", "checkbox",   "tracker", "progressbar",
    "rotator",         "knob",          "hscrollbar",  "vscrollbar", "tabset",  "menubar",
    "controlcheckbox", "listcontrol",   "treecontrol", "splitter"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MStyleClass> = MStyleClassNames;

/// The parts of a class that have pictures of their own.
enum class MStylePiece : uint8_t {
    Image,
    Default,  ///< what comes next
    Checked,  ///< what is switched on
    Item,
    SelectedItem,
    Selector,
    Locator,
    Highlight,
    On,
    Off,
    Grayed,
    Decrease,
    Increase,
    VImage,
    HImage,
    SelectorOverlay,  ///< over the selector
    Pointer,          ///< where a tracker's value is, behind the selector
    ValueButton,      ///< in the middle of what shows a value
    ImageDark,        ///< in the place of the image and the locator, in the dark look
    LocatorDark,
};

inline constexpr const char* MStylePieceNames[] = {
    "image",           "default",  "checked",     "item",      "selecteditem",
    "selector",        "locator",  "highlight",   "on",        "off",
    "grayed",          "decrease", "increase",    "vimage",    "himage",
    "selectoroverlay", "pointer",  "valuebutton", "imagedark", "locatordark"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MStylePiece> = MStylePieceNames;

class MXMLItem;

/// The strip with a caption, of one size.
struct MCaptionLook {
    ControlStyle image;
    int32_t font = 0;
    int32_t height = 0;  ///< 0 if the class has no captions of this size
    int32_t topBorder = 0;
    int32_t contentTopBorder = 0;
    int32_t contentBottomBorder = 0;
    int32_t contentLeftBorder = 0;
    int32_t contentRightBorder = 0;
    int32_t textOffset = 0;
    int32_t imageHeight = 0;  ///< of its picture, from the top; 0 for all of it
    bool isCentered = false;
    bool isOnBackground = true;   ///< whether the class's own picture lies behind the caption as well
    bool isBlackOrWhite = false;  ///< whether the title is, whichever can be read on a panel
    bool isHighlighted = false;   ///< whether the strip shows that the mouse is over the control
};

/// All that a definition says of one class. Lengths are those of 100 percent.
class MClassLook {
public:
    /// `item` is null for a class that the definition does not have. Raises what `ControlStyle::Load` raises.
    void Load(MXMLItem* item, MXMLItem& root);
    void Reset();
    /// Raises what is wrong with a colour of any part.
    void Check(const MStyleColors& colors) const;

    /// Null if the class has no such part, but for the image.
    [[nodiscard]] ControlStyle* Find(MStylePiece piece);
    [[nodiscard]] ControlStyle& GetImage() { return image; }
    [[nodiscard]] MCaptionLook& GetCaption(size_t size) { return captions[size]; }
    /// An attribute of the element.
    [[nodiscard]] int32_t GetNumber(const char* attribute, int32_t defaultValue) const;
    [[nodiscard]] MString GetText(const char* attribute) const;

private:
    static constexpr size_t CaptionSizes = 3;

    ControlStyle image;
    std::array<std::unique_ptr<ControlStyle>, std::size(MStylePieceNames)> pieces;
    std::array<MCaptionLook, CaptionSizes> captions;
    const MXMLItem* element = nullptr;
};
