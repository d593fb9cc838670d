#include "setup/wizard/MInfoSetupPage.h"

#include "foundation/MProductConstants.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MEntities.h"
#include "foundation/xml/MXMLSubItems.h"
#include "setup/wizard/MInstallReport.h"
#include "setup/wizard/MSetupWindow.h"
#include "ui/dialogs/MViewerWindow.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/scrolling/MScroller.h"

namespace {

/// What a screen shows: title and text with mark-up, `{0}` and `{1}` for the product and `{2}` for the
/// maker's web host, and a sign.
struct Screen {
    const char* type;
    const char* title;
    const char* text;
    std::optional<MStdBitmap> sign;
};

constexpr Screen Screens[] = {
    {"introduction", "Welcome to {0} installation wizard.",
     "<p>You are going to install {0}.</p> It is strongly recommended that you uninstall any previous "
     "version of {1} "
     "and exit all programs before proceeding to installation. "
     "<p/><p><alpha value=178>This program is protected by copyright law and international treaties.</p>"
     "<p>Unauthorised reproduction or distribution of it, or of any portion of it, may result in civil and "
     "criminal penalties.</p>",
     std::nullopt},
    {"success", "Installation successfully finished.",
     "<p>Thank you for choosing {0}. For more information about Corvanth products see <cgreen>{2}</cgreen>.",
     MStdBitmap::Yes},
    {"error", "Installation has not been completed.",
     "An error occured during installation. It is usually caused by corrupt installation files or "
     "insufficient rights.",
     MStdBitmap::Exclamation},
    {"abort", "Installation has been aborted.",
     "You have aborted the installation. Launch the installation wizard again to install the software.",
     MStdBitmap::No},
};

MString GetWebHost() {
    const MString address = MProductWebAddress;
    const int32_t scheme = address.Find("://");
    return scheme < 0 ? address : address.Substring(scheme + 3);
}

}  // namespace

MInfoSetupPage::MInfoSetupPage(MControl& parent, const MString& name, MXMLItem& element,
                               MUpdateOffer* updateOffer)
    : MSetupPage(parent, name), Element(element), offer(updateOffer) {
    MExecuteChoices(element).Validate();
    sign = new MStatic(this, "sign");
    sign->SetVisible(false);
    sign->SetContentAlignment(MAlignTop);
    sign->layoutRatio = {0, 0};
    sign->layoutBorder = {0, 2};
    (new MLayoutLeft(*this))->Add(*sign);
    view = &AddView();
    Header = new MStaticHeader(&view->GetContainer(), "title");
    Body = new MStaticMultiLine(&view->GetContainer(), "info");
    for (MControl* text : {static_cast<MControl*>(Header), static_cast<MControl*>(Body)}) {
        LetWrap(*text);
        (new MLayoutTop(view->GetContainer()))->Add(*text);
    }
    AddDetails();
    AddBoxes(updateOffer);
}

void MInfoSetupPage::AddDetails() {
    details = new MPlasticContainer(this, "installed");
    LetWrap(*details);
    details->SetVisible(false);
    (new MLayoutBottom(*this))->Add(*details);
    auto& left = *new MLayoutLeft(*details);
    left.space = 4;
    auto& button = *new MButton(details, "details");
    button.SetText(MTranslate("Details"));
    button.layoutRatio = {0, 0};
    button.MControl::OnClick(Click::Left).Connect(this, &MInfoSetupPage::OnDetails);
    left.Add(button);
    summary = new MStaticMultiLine(details, "summary");
    LetWrap(*summary);
    summary->SetContentAlignment(MAlignLeft);
    details->SetClientControl(summary);
}

void MInfoSetupPage::ShowDetails() {
    const MInstallRun& run = GetWindow().GetRun();
    if (MReportInstallation(run).IsEmpty()) return;
    details->SetVisible(true);
    summary->SetText(MSummarizeInstallation(run));
}

void MInfoSetupPage::OnDetails(const MOnClickParams&) {
    MViewerWindow window(MTranslate("What was installed, and where"),
                         MReportInstallation(GetWindow().GetRun()));
    window.Set(MControlFlag::AutoSaveState, false);
    (void)window.RunModal(&GetRoot());
}

void MInfoSetupPage::AddBoxes(MUpdateOffer* updateOffer) {
    const bool offersUpdate = updateOffer && updateOffer->IsMade();
    for (MXMLItem& execute : MXMLSubItems(Element, "execute"))
        if (!execute.GetValue().IsEmpty()) boxElements.Add(&execute);
    if (boxElements.IsEmpty() && !offersUpdate) return;

    auto& panel = *new MPlasticContainer(this, "boxes");
    panel.SetControlType(MControlType::Panel);
    LetWrap(panel);
    (new MLayoutBottom(*this))->Add(panel);
    auto& column = *new MLayoutVertical(panel);
    for (const MXMLItem* execute : boxElements)
        AddBox(column, execute->GetValue(), true).OnChange().Connect(this, &MInfoSetupPage::OnExecuteBox);
    if (!offersUpdate) return;
    AddBox(column,
           MTranslate("<b>Search for updates</b><p>The sofware supports automatic update management. It is "
                      "highly recommended to update it now."),
           false)
        .OnChange()
        .Connect(this, &MInfoSetupPage::OnUpdateBox);
}

MCheckBox& MInfoSetupPage::AddBox(MLayout& column, const MString& markup, bool isOn) {
    MCheckBox& box = MSetupPage::AddBox(column.GetOwner(), MFormat("CheckBox{0}", boxes.GetCount()), markup);
    column.Add(box);
    box.Set(isOn ? MCheckBoxState::On : MCheckBoxState::Off);
    boxes.Add(&box);
    return box;
}

void MInfoSetupPage::OnExecuteBox(const MOnNotifyParams& params) {
    for (int32_t i = 0; i < boxElements.GetCount(); ++i)
        if (boxes[i] == params.sender) boxElements[i]->SetAttribute("enabled", boxes[i]->IsOn() ? "1" : "0");
}

void MInfoSetupPage::OnUpdateBox(const MOnNotifyParams&) {
    offer->Accept(boxes[boxes.GetCount() - 1]->IsOn());
}

bool MInfoSetupPage::ShouldSkip(bool) {
    script.emplace(Element);
    return OnNext();
}

bool MInfoSetupPage::OnNext() {
    MSetupWindow& window = GetWindow();
    const MXMLItem* const info = script->NextItem(window.GetSession().Macros, window.GetDialogs());
    if (info) ShowInfo(*info);
    return !info;
}

void MInfoSetupPage::OnExit() {
    MSetupWindow& window = GetWindow();
    script->Finish(window.GetSession().Macros, window.GetDialogs());
}

void MInfoSetupPage::ShowInfo(const MXMLItem& info) {
    const MString type = info.GetAttribute("type", "");
    MString title = info.GetAttribute("title", "");
    MString text = info.GetValue();
    std::optional<MStdBitmap> bitmap;
    for (const Screen& screen : Screens) {
        if (!(type == screen.type)) continue;
        const MString product = MEntities::Escape(GetWindow().GetSession().SoftwareName);
        title = MFormat(MTranslate(screen.title), product);
        text = MFormat(MTranslate(screen.text), product, product, MEntities::Escape(GetWebHost()));
        bitmap = screen.sign;
    }
    Header->SetText(title);
    Header->SetVisible(!title.IsEmpty());
    Body->SetText(text);
    sign->SetVisible(bitmap.has_value());
    if (bitmap) sign->SetContent(std::make_unique<MContentStdBitmap>(*bitmap));
    if (IsFinal) ShowDetails();
    GetRoot().UpdateLayout();
    view->ScrollTo({});
}
