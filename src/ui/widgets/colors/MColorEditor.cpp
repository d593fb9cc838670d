#include "ui/widgets/colors/MColorEditor.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"

namespace {

constexpr int32_t ShortLength = 6;
constexpr int32_t LongLength = 8;

}  // namespace

MPoint MContentColor::GetSize(MDrawer& drawer, const MContentLook&) {
    constexpr MPoint Size{32, 16};
    return {drawer.ScaleX(Size.x), drawer.ScaleY(Size.y)};
}

void MContentColor::Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) {
    MColor text;
    (void)drawer.GetFont(look.font, look.color, look.isInverted, look.drawState, text);
    drawer.FillRectangle(rect, color.WithAlpha(text.alpha), MDrawMode::Alphablend);
    drawer.Rectangle(rect, text, MDrawMode::Alphablend);
}

MColorEditor::MColorEditor(MControl* parent, const MString& name)
    : MControl(parent, name),
      field(this, "Field", MColorField::Kind::HueAndSaturation),
      strip(this, "Lightness", MColorField::Kind::Lightness),
      sample(this, "Sample"),
      edit(this, "Value") {
    SetControlType(MControlType::Empty);
    for (const MControlFlag flag : {MControlFlag::TabStop, MControlFlag::SaveSubControlState})
        Set(flag, false);
    sample.SetControlType(MControlType::Static);
    sample.Set(MControlFlag::TabStop, false);
    sample.SetContent(std::make_unique<MContentColor>(color));
    strip.layoutRatio.x = 0;
    static const MCharFilter::IntegerHexaFilter digits;
    edit.SetFilter(&digits);
    edit.SetMaximumLength(LongLength);

    auto& bottom = *new MLayoutBottom(*this);
    bottom.Add(sample);
    bottom.Add(edit);
    (new MLayoutRight(*this))->Add(strip);
    (new MLayoutVertical(*this))->Add(field);
    sample.layoutRatio.x = 0;
    SetColor(MColor());

    field.OnChange().Connect(this, &MColorEditor::OnField);
    strip.OnChange().Connect(this, &MColorEditor::OnStrip);
    edit.OnString().Connect(this, &MColorEditor::OnText);
    for (MControl* control : {static_cast<MControl*>(&field), static_cast<MControl*>(&strip)}) {
        control->OnChange(Change::Intermediate).Connect(this, &MColorEditor::OnIntermediate);
        control->OnChange(Change::Committed).Connect(this, &MColorEditor::OnCommitted);
    }
}

void MColorEditor::SetColor(MColor newColor) {
    color = newColor;
    const MHSL parts = color.GetHSL();
    field.SetColor(parts);
    strip.SetColor(parts);
    edit.SetText(color.GetText());
    ShowColor();
}

void MColorEditor::ShowColor() {
    sample.SetContent(std::make_unique<MContentColor>(color));
}

/// A grey forgets its hue and black its saturation, so these stay with the field and the strip.
void MColorEditor::Take(const MHSL& newColor) {
    color = MColor::FromHSL(newColor, color.alpha);
    edit.SetText(color.GetText());
    ShowColor();
    ExecuteOnChange();
}

void MColorEditor::OnField(const MOnNotifyParams&) {
    MHSL chosen = field.GetColor();
    chosen.lightness = strip.GetColor().lightness;
    strip.SetColor(chosen);
    Take(chosen);
}

void MColorEditor::OnStrip(const MOnNotifyParams&) {
    field.SetColor(strip.GetColor());
    Take(strip.GetColor());
}

void MColorEditor::OnText(const MOnStringParams& params) {
    if (!Parse(params.text, color)) return;
    field.SetColor(color.GetHSL());
    strip.SetColor(color.GetHSL());
    ShowColor();
    const MControlRef self(this);
    ExecuteOnChange();
    if (self) OnChange(Change::Committed).Fire({this});
}

bool MColorEditor::Parse(const MString& text, MColor& color) {
    static const MCharFilter::IntegerHexaFilter filter;
    MString digits = text.Trimmed();
    digits.KeepAccepted(filter);
    const bool isShort = digits.GetLength() == ShortLength;
    if (!digits.IsExactly(text.Trimmed()) || !(isShort || digits.GetLength() == LongLength)) return false;
    const uint8_t alpha = color.alpha;
    color = MColor::Parse(isShort ? digits + "FF" : digits);
    if (isShort) color.alpha = alpha;
    return true;
}

void MColorEditor::LoadFromXml(MXMLItem& item) {
    MColor loaded = color;
    if (item.HasAttribute("value") && Parse(item.GetCachedAttribute(), loaded)) SetColor(loaded);
    MControl::LoadFromXml(item);
}

void MColorEditor::SaveValueState(MXMLItem& item) {
    item.SetAttribute("value", color.GetText());
}

void MColorEditor::LoadValueState(MXMLItem& item) {
    MColor loaded = color;
    if (!item.HasAttribute("value") || !Parse(item.GetCachedAttribute(), loaded) || loaded == color) return;
    SetColor(loaded);
    ExecuteOnChange();
}
