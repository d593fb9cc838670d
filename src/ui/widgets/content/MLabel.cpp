#include "ui/widgets/content/MLabel.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/geometry/MLength.h"

MLabel::MLabel(MControl* parent, const MString& name) : MStatic(parent, name) {
    layoutRatio.x = 0;
    layoutPlacement = MAlignLeft;
}

void MLabel::LinkTo(MControl& control) {
    target.Set(&control);
    control.linkedControl.Set(this);
    // A label is linked while it is measured, when no handler may run.
    for (const MControlFlag flag : {MControlFlag::Visible, MControlFlag::Enabled})
        Set(flag, control.Is(flag));
    TouchSizes();
    Invalidate();
}

void MLabel::LoadFromXml(MXMLItem& item) {
    targetName = item.GetAttribute("linkedcontrol", targetName);
    MStatic::LoadFromXml(item);
}

/// The control may come later in its document than its label.
void MLabel::PrepareContent() {
    if (targetName.IsEmpty() || !GetParent()) return;
    for (MControl* sibling : GetParent()->GetChildren()) {
        if (sibling->GetName() != targetName) continue;
        targetName = {};
        return LinkTo(*sibling);
    }
}

void MLabel::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStatic::GetMinimalContentSize(x, y);
    if (MStyle* const style = GetStyle())
        x = MClampLength(int64_t{x} + style->GetMetric(static_cast<int32_t>(MStyleMetric::LabelSpace)));
}

bool MLabel::ProcessEvent(const MSystemEvent& event) {
    if (event.type != MEventType::LeftDown || !target) return MStatic::ProcessEvent(event);
    target->SetFocus();
    return true;
}
