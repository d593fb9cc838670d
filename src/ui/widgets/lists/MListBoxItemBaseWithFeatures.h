#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"
#include "ui/control/MContent.h"
#include "ui/control/kinds/MStdIcon.h"

#include <cstdint>
#include <optional>

class MXMLItem;

/// What a row of a list, a tree or a menu is: its text, an icon and a check box beside it, and its state.
///
/// Who changes an item of a list that is shown calls `MListBoxBase::UpdateRow` afterwards, or `UpdateRows` when
/// its height may have changed.
class MListBoxItemBaseWithFeatures : public MObject {
public:
    explicit MListBoxItemBaseWithFeatures(const MString& text = MString()) : text(text) {}
    MListBoxItemBaseWithFeatures(const MListBoxItemBaseWithFeatures&) = delete;
    MListBoxItemBaseWithFeatures& operator=(const MListBoxItemBaseWithFeatures&) = delete;

    /// The text of an item that is a line between others.
    static constexpr const char* Separator = "<hline>";

    /// "text", "icon", "check", "hascheckbox", "enabled", "selected", "id". Raises what an unknown icon does.
    virtual void LoadFromXml(MXMLItem& item);
    /// What the text needs, in pixels: its height at the width, of which it may need less.
    [[nodiscard]] virtual MPoint GetTextSize(MDrawer& drawer, const MContentLook& look, int32_t width);
    /// What does not fit into the rectangle is not there.
    virtual void PaintText(MDrawer& drawer, const MRect& rect, const MContentLook& look);
    /// What is searched for letters that are typed.
    [[nodiscard]] virtual MString GetPlainText() const { return text; }

    [[nodiscard]] bool IsSeparator() const { return text.IsExactly(Separator); }
    /// Whether the user can choose it.
    [[nodiscard]] bool IsSelectable() const { return isEnabled && !IsSeparator(); }
    [[nodiscard]] bool IsChecked() const { return check == 1; }

    MString text;
    int32_t id = 0;
    std::optional<MStdIcon> icon;
    bool hasCheckBox = false;
    uint8_t check = 0;  ///< 0 for off, 1 for on, 2 for neither
    bool isEnabled = true;
    bool isSelected = false;  ///< changed by `MListBoxBase` alone while a list has the item
};
