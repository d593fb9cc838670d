#include "ui/widgets/buttons/MButtonWithInfo.h"

#include "foundation/text/MStringFormatter.h"

MButtonWithInfo::MButtonWithInfo(MControl* parent, const MString& name) : MButton(parent, name) {
    Set(MControlFlag::Plastic);
}

void MButtonWithInfo::SetInfo(const MString& caption, const MString& description) {
    SetCaption(caption, MCaptionType::None);
    SetContent(std::make_unique<MContentSTML>(MFormat("<b>{0}</b><p>{1}", caption, description)));
}
