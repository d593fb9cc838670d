#include "setup/wizard/MSetupPage.h"

#include "setup/wizard/MSetupWindow.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/scrolling/MScroller.h"

MSetupPage::MSetupPage(MControl& parent, const MString& name) : MPanel(&parent, name) {
    SetControlType(MControlType::Empty);
    SetVisible(false);
    minClientSize.x = LeastWidth;
    layoutBorder = {8, 8};
}

MSetupWindow& MSetupPage::GetWindow() const {
    return static_cast<MSetupWindow&>(GetRoot());
}

MXMLItem& MSetupPage::GetDefinition() const {
    return GetWindow().GetDefinition();
}

MString MSetupPage::ExpandMacros(const MString& text) const {
    return GetWindow().ExpandMacros(text);
}

void MSetupPage::UpdateButtons() {
    MPageWalk& walk = GetWindow().GetWalk();
    if (walk.GetCurrentPage() == this) walk.UpdateButtons();
}

void MSetupPage::LetWrap(MControl& text) {
    text.Set(MControlFlag::Plastic);
    text.minClientSize.x = text.maximalSize.x = LeastWidth;
    text.layoutRatio.y = 0;
}

MCheckBox& MSetupPage::AddBox(MControl& parent, const MString& name, const MString& markup) {
    auto& box = *new MCheckBox(&parent, name);
    box.SetContent(std::make_unique<MContentSTML>(markup));
    LetWrap(box);
    return box;
}

MStaticHeader& MSetupPage::AddHeader(const MString& text) {
    auto& header = *new MStaticHeader(this, "header");
    header.SetFont(static_cast<int32_t>(MStdFont::Normal));
    header.SetText(text);
    LetWrap(header);
    auto& top = *new MLayoutTop(*this);
    top.Add(header);
    header.layoutBorder = {0, 4};
    return header;
}

MScroller& MSetupPage::AddView() {
    auto& view = *new MScroller(this, "view");
    view.SetControlType(MControlType::Empty);
    SetClientControl(&view);
    return view;
}
