#include "ui/widgets/content/MStaticMultiLine.h"

#include "ui/control/kinds/MStdFont.h"

MStaticMultiLine::MStaticMultiLine(MControl* parent, const MString& name) : MStatic(parent, name) {
    SetContentAlignment(MAlignLeft | MAlignTop);
    Set(MControlFlag::Plastic);
}

void MStaticMultiLine::SetText(const MString& newText) {
    SetCaption(newText, MCaptionType::None);
    text.GetDocument().Parse(newText);
    OnContentChanged();
}

MStaticHeader::MStaticHeader(MControl* parent, const MString& name) : MStaticMultiLine(parent, name) {
    SetFont(static_cast<int32_t>(MStdFont::Large3));
}

MStaticInfoPanel::MStaticInfoPanel(MControl* parent, const MString& name) : MStaticMultiLine(parent, name) {
    SetControlType(MControlType::Panel);
}
