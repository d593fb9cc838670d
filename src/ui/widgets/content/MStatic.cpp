#include "ui/widgets/content/MStatic.h"

MStatic::MStatic(MControl* parent, const MString& name) : MControlContent(parent, name) {
    SetControlType(MControlType::Static);
    SetContentAlignment(MAlignLeft);
    Set(MControlFlag::TabStop, false);
    Set(MControlFlag::AcceptsFocus, false);
}
