#pragma once

#include "foundation/values/MValueEnum.h"

/// The style class of a control, which decides how it looks. `Empty` paints nothing, so that what is painted
/// on it lands on the control behind; `NoBackground` has no background of its own.
enum class MControlType : uint8_t {
    Empty,
    NoBackground,
    Window,
    Panel,
    Control,
    Static,
    Button,
    CaptionButton,
    CheckBox,
    Tracker,
    Rotator,
    Knob,
    HScrollBar,
    VScrollBar,
    Edit,
    Switcher,
    ProgressBar,
    ListBox,
    TreeControl,
    TabSet,
    Menu,
    MenuBar,
};

inline constexpr const char* MControlTypeNames[] = {
    "empty",       "nobackground",  "window",   "panel",    "control",     "static",
    "button",      "captionbutton", "checkbox", "tracker",  "rotator",     "knob",
    "hscrollbar",  "vscrollbar",    "edit",     "switcher", "progressbar", "listbox",
    "treecontrol", "tabset",        "menu",     "menubar"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MControlType> = MControlTypeNames;
