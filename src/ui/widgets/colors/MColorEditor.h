#pragma once

#include "ui/widgets/colors/MColorField.h"
#include "ui/widgets/content/MControlContent.h"
#include "ui/widgets/edits/MEdit.h"

/// A rectangle of one colour.
class MContentColor final : public MContent {
public:
    explicit MContentColor(MColor color) : color(color) {}

    [[nodiscard]] MPoint GetSize(MDrawer& drawer, const MContentLook& look) override;
    void Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) override;

    MColor color;
};

/// Lets the user choose a colour: by hue and saturation on a field, by lightness on a strip beside it, or by
/// its hexadecimal digits, six or, with the alpha, eight. Raises `OnChange()`, and behind it
/// `Change::Intermediate` or `Change::Committed`.
///
/// Attributes: "value", hexadecimal digits. With `SaveValue` the window's state has "value".
class MColorEditor : public MControl {
public:
    explicit MColorEditor(MControl* parent = nullptr, const MString& name = MString());

    /// Raises nothing.
    void SetColor(MColor newColor);
    [[nodiscard]] MColor GetColor() const { return color; }

    void LoadFromXml(MXMLItem& item) override;
    void SaveValueState(MXMLItem& item) override;
    void LoadValueState(MXMLItem& item) override;

    /// True if a text is a colour. Six digits leave the alpha as it is.
    [[nodiscard]] static bool Parse(const MString& text, MColor& color);

private:
    void OnField(const MOnNotifyParams& params);
    void OnStrip(const MOnNotifyParams& params);
    void OnText(const MOnStringParams& params);
    void OnIntermediate(const MOnNotifyParams&) { OnChange(Change::Intermediate).Fire({this}); }
    void OnCommitted(const MOnNotifyParams&) { OnChange(Change::Committed).Fire({this}); }
    void Take(const MHSL& newColor);
    void ShowColor();

    MColor color;
    MColorField field;
    MColorField strip;
    MControlContent sample;
    MEdit edit;
};
