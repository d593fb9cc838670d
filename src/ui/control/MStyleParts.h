#pragma once

#include "ui/geometry/MRect.h"

#include <cstdint>
#include <optional>

// What composed controls tell a style of the parts that it paints for them. Rectangles are in the control's own
// coordinates; a state is of `MDrawState`.

/// The parts of a scroll bar. Without arrows `decrease` and `increase` are empty.
struct MScrollBarParts {
    MRect track;
    MRect thumb;
    MRect decrease;  ///< the arrow to the left or upwards
    MRect increase;
    uint8_t trackState = 0;
    uint8_t thumbState = 0;
    uint8_t decreaseState = 0;
    uint8_t increaseState = 0;
};

/// What a knob, a rotator, a tracker or a progress bar shows: positions in the range, from 0 to 1.
struct MValueLook {
    double value = 0;
    double origin = 0;               ///< from where the way to the value is marked: the middle for a panorama
    std::optional<double> maxValue;  ///< of one with two ends
    uint8_t drawState = 0;
};

/// A row of a list or a tree has a check box of its own shape.
enum class MCheckMarkShape : uint8_t { CheckBox, RadioButton, RowCheckBox };

/// Parts whose size is up to the style.
enum class MStylePart : uint8_t {
    ScrollArrow,  ///< width and height of each
    ScrollThumb,  ///< the least length, in both
    CheckMark,    ///< of a check box, with its focus mark
    RadioMark,
    CheckMarkSpace,  ///< between the mark and the text (x)
    TabBorder,       ///< between the edge of a tab's button and what is in it, on each side
    MenuItemBorder,  ///< of a row in a menu
    MenuBarItemBorder,
    ListItemBorder,
    TreeIndent,  ///< of each level (x), and the size of an expander (y)
    Knob,        ///< of the dial, without the text below it
    SwitcherButton,
    Count
};
