#include "ui/control/MLayout.h"

#include "foundation/base/MRaise.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControl.h"
#include "ui/control/MRemoveFromList.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/geometry/MLength.h"

MLayout::MLayout(MControl& owner) : owner(&owner) {
    owner.AddLayout(this);
}

MLayout::~MLayout() {
    while (!controls.IsEmpty()) MLayout::Detach(*controls[controls.GetCount() - 1]);
    MRemoveFromList(owner->layouts, this);
    owner->TouchSizes();
}

void MLayout::LoadFromXml(MXMLItem& item) {
    space = item.GetInt32Attribute("layoutspace", space);
    defBorderX = item.GetInt32Attribute("deflayoutborderx", defBorderX);
    defBorderY = item.GetInt32Attribute("deflayoutbordery", defBorderY);
}

void MLayout::LoadControlParameters(MControl&, MXMLItem&) {}

void MLayout::Attach(MControl& control) {
    if (&control == owner || !owner->Holds(&control))
        MRaise(MExceptionInvalidArgument, "A layout can place only what lies in its owner.");
    if (control.parentLayout) control.parentLayout->Detach(control);
    if (owner->GetClientControl() == &control) owner->SetClientControl(nullptr);
    control.Set(MControlFlag::OwnerLayoutSet);
    control.parentLayout = this;
    if (defBorderX >= 0) control.layoutBorder.x = defBorderX;
    if (defBorderY >= 0) control.layoutBorder.y = defBorderY;
    controls.Add(&control);
    control.TouchSizes();
}

void MLayout::Detach(MControl& control) {
    if (control.parentLayout != this) return;
    MRemoveFromList(controls, &control);
    control.Set(MControlFlag::OwnerLayoutSet, false);
    control.parentLayout = nullptr;
    control.TouchSizes();
}

void MLayout::Add(MControl& control) {
    Attach(control);
    control.layoutSpaceAfter = 0;
}

void MLayout::Remove(MControl& control) {
    Detach(control);
}

void MLayout::SetSpanX(MControl&, int32_t, bool) {}

MRect MLayout::Arrange(MControl&, const MRect& rect) {
    return rect;
}

void MLayout::Measure(MControl&, MLayoutNeeds&, const SizeComputer&) {}

void MLayout::MeasureMinimal(MControl& measured, MLayoutNeeds& needs) {
    Measure(measured, needs, MinimalSizeComputer());
}

void MLayout::MeasureCurrent(MControl& measured, MLayoutNeeds& needs) {
    Measure(measured, needs, CurrentSizeComputer());
}

MFlexibility MLayout::GetFlexibility() {
    return MFlexibleNone;
}

int32_t MLayout::GetSpace() const {
    return MClampLength(int64_t{GetMetric(MStyleMetric::DefLayoutSpace)} + GetOwnSpace());
}

int32_t MLayout::GetGridSpace() const {
    return MClampLength(int64_t{GetMetric(MStyleMetric::DefGridLayoutSpace)} + GetOwnSpace());
}

int32_t MLayout::GetStyleSpace() const {
    return MClampLength(GetMetric(MStyleMetric::DefLayoutSpace));
}

int32_t MLayout::GetOwnSpace() const {
    MStyle* const style = owner->GetStyle();
    return style ? style->ScaleX(space) : space;
}

int32_t MLayout::GetMetric(MStyleMetric metric) const {
    MStyle* const style = owner->GetStyle();
    return style ? style->GetMetric(static_cast<int32_t>(metric)) : 0;
}
