#pragma once

#include "foundation/values/MValueEnum.h"

/// A size of a style, in pixels.
enum class MStyleMetric : int32_t {
    XSpaceInMContent,
    YSpaceInMContent,
    XBorderInMContent,
    YBorderInMContent,
    DefLayoutSpace,
    DefGridLayoutSpace,
    ScrollerLayoutSpace,
    LabelSpace,
    DefaultListBoxItemHeight,
    ListBoxItemCheckBoxSize,
    DefaultTreeItemHeight,
    TreeItemCheckBoxSize,
    TabSetLeftSize,
    TabSetRightSize,
    TabSetOverlapSize,
    MenuBarLeftSize,
    MenuBarRightSize,
    MenuBarOverlapSize,
    MaxStdIconSizeX,
    MaxStdIconSizeY,
    MaxStdBitmapSizeX,
    MaxStdBitmapSizeY,
    HSplitterSize,
    VSplitterSize,
    WindowBorderSizeX,
    WindowBorderSizeY,
};

inline constexpr const char* MStyleMetricNames[] = {
    "xspaceinmcontent",         "yspaceinmcontent",        "xborderinmcontent",     "yborderinmcontent",
    "deflayoutspace",           "defgridlayoutspace",      "scrollerlayoutspace",   "labelspace",
    "defaultlistboxitemheight", "listboxitemcheckboxsize", "defaulttreeitemheight", "treeitemcheckboxsize",
    "tabsetleftsize",           "tabsetrightsize",         "tabsetoverlapsize",     "menubarleftsize",
    "menubarrightsize",         "menubaroverlapsize",      "maxstdiconsizex",       "maxstdiconsizey",
    "maxstdbitmapsizex",        "maxstdbitmapsizey",       "hsplittersize",         "vsplittersize",
    "windowbordersizex",        "windowbordersizey"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MStyleMetric> = MStyleMetricNames;
