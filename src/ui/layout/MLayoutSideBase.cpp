#include "ui/layout/MLayoutSideBase.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControl.h"

void MLayoutSideBase::LoadControlParameters(MControl& control, MXMLItem& item) {
    control.layoutSpaceAfter = item.GetInt32Attribute("space", control.layoutSpaceAfter);
}
