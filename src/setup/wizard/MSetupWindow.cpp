#include "setup/wizard/MSetupWindow.h"

#include "foundation/base/MRaise.h"
#include "foundation/xml/MXMLSubItems.h"
#include "setup/choices/MOlderVersions.h"
#include "setup/wizard/MComponentSetupPage.h"
#include "setup/wizard/MConfigurationSetupPage.h"
#include "setup/wizard/MDirectorySetupPage.h"
#include "setup/wizard/MInfoSetupPage.h"
#include "setup/wizard/MLeftPicture.h"
#include "setup/wizard/MLicenceSetupPage.h"
#include "setup/wizard/MProcessingSetupPage.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/dialogs/MTimeLine.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutOccupyBorder.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/layout/MLayoutSwitch.h"
#include "ui/widgets/content/MColorBox.h"
#include "ui/widgets/content/MPanelGradient.h"

namespace {

/// Half of the window's height.
constexpr MPoint MostOfBand = {MScaledPicture::LongestSide, 200};

MXMLItem& RequirePage(const MXMLItem& definition, const char* name) {
    MXMLItem* const page = definition.FindSubItem(name);
    if (!page) MRaise(MExceptionGeneral, "Could not find required subitem ({0}).", name);
    return *page;
}

/// Along an edge of the window, and what is next to it touches it.
void AddEdge(MLayoutSide& edge, MControl& control) {
    edge.space = -1;
    edge.Add(control);
}

MControlContainer& AddSpace(MControl& parent, MLayout& row, int32_t width) {
    auto& space = *new MControlContainer(&parent, "Space");
    space.layoutRatio = {width == 0 ? 100 : 0, 0};
    space.minClientSize.x = width;
    row.Add(space);
    return space;
}

}  // namespace

MSetupWindow::MSetupWindow(MLargeResourceLibrary& definition, MWizardDialogs& dialogs)
    : MProductWindow("MSetupWindow"), dialogs(dialogs), session(definition), updateOffer(definition) {
    for (const char* page : {"onsuccess", "onabort", "onerror"}) (void)RequirePage(GetDefinition(), page);
    RemoveOlderVersions();
    session.CreatePathMacros();
    SetCaption(session.SoftwareName + MTranslate(" installer"), MCaptionType::Normal);
    Set(MControlFlag::Resizable);
    minClientSize = {750, 400};
    // Tab goes along the children: from the page to the buttons below it.
    AddBand();
    AddPages();
    AddButtons();
    AddLeftPicture();
    dialogs.SetOwner(this);
    walk.Begin();
}

MSetupWindow::~MSetupWindow() = default;

void MSetupWindow::RemoveOlderVersions() {
    const MOlderVersions older(GetDefinition());
    if (older.GetVersions().IsEmpty()) return;
    MString names;
    for (const MOlderVersion& version : older.GetVersions())
        names += (names.IsEmpty() ? "" : "\n") + version.name;
    if (!dialogs.AskYesNo(MTranslate("Setup needs to uninstall following software from your computer.") +
                          "\n\n" + names + "\n\n" + MTranslate("Do you want to proceed?")))
        return;
    for (const MOlderVersion& version : older.GetVersions())
        dialogs.Await([&] { (void)MOlderVersions::Remove(version, MRemovalManner::Asking); });
}

void MSetupWindow::AddBand() {
    auto& band = *new MPanelGradientBlack(this, "gradient");
    band.SetFont(static_cast<int32_t>(MStdFont::Large3));
    band.Set(MControlFlag::IgnoreWidthInLayout);
    band.SetText(GetCaption());
    const MScaledPicture picture(*session.Library, "topimage");
    if (picture.GetBitmap(100).IsEmpty())
        band.minClientSize.y = 66;
    else
        band.SetContent(std::make_unique<MContentScaledPicture>(picture, MostOfBand));
    band.layoutRatio.y = 0;
    AddEdge(*new MLayoutTop(*this), band);
}

void MSetupWindow::AddLeftPicture() {
    const MScaledPicture picture(*session.Library, "leftimage");
    if (picture.GetBitmap(100).IsEmpty()) return;
    (new MLayoutLeft(*this))->Add(*new MLeftPicture(this, picture));
}

void MSetupWindow::AddButtons() {
    auto& bar = *new MColorBox(this, "Buttons");
    bar.layoutRatio.y = 0;
    AddEdge(*new MLayoutBottom(*this), bar);
    auto& row = *new MLayoutHorizontal(bar);
    timeLine = new MTimeLine(&bar, "TimeLine");
    timeLine->layoutRatio = {0, 0};
    timeLine->layoutBorder = {8, 0};
    row.Add(*timeLine);
    AddSpace(bar, row, 0);
    PreviousButton = &AddButton(bar, row, "Prev", "< Previous");
    NextButton = &AddButton(bar, row, "Next", "Next >");
    AddSpace(bar, row, 16);
    ExitButton = &AddButton(bar, row, "Exit", "Exit");
    AddSpace(bar, row, 4);
    for (MButton* button : {PreviousButton, NextButton, ExitButton})
        button->MControl::OnClick(Click::Left).Connect(this, &MSetupWindow::OnButton);
}

template <class Page, class... Arguments>
Page& MSetupWindow::AddPage(bool isInChain, Arguments&&... arguments) {
    auto& page = *new Page(*pages, std::forward<Arguments>(arguments)...);
    pageSwitch->Add(page);
    if (isInChain) walk.Add(page);
    return page;
}

void MSetupWindow::AddPages() {
    pages = new MControlContainer(this, "Pages");
    SetClientControl(pages);
    auto& border = *new MLayoutOccupyBorder(*pages);
    border.x1 = border.y1 = border.x2 = 8;
    pageSwitch = new MLayoutSwitch(*pages);

    const MXMLItem& root = GetDefinition();
    if (MXMLItem* const start = root.FindSubItem("onstart"))
        AddPage<MInfoSetupPage>(true, "onstart", *start, nullptr);
    if (MXMLItem* const licence = root.FindSubItem("licence"))
        AddPage<MLicenceSetupPage>(true, "licence", *licence);
    if (root.FindSubItem("configuration")) AddPage<MConfigurationSetupPage>(true, "configuration");
    if (root.FindSubItem("files")) AddPage<MComponentSetupPage>(true, "components");
    if (root.FindSubItem("directory")) AddPage<MDirectorySetupPage>(true, "directories");
    processing = &AddPage<MProcessingSetupPage>(true, "processing");
    AddPage<MInfoSetupPage>(true, "onsuccess", RequirePage(root, "onsuccess"), &updateOffer);
    auto& abort = AddPage<MInfoSetupPage>(false, "onabort", RequirePage(root, "onabort"), nullptr);
    auto& error = AddPage<MInfoSetupPage>(false, "onerror", RequirePage(root, "onerror"), nullptr);
    walk.Finish(abort, error);
}

const MInstallRun& MSetupWindow::GetRun() const {
    return processing->GetRun();
}

/// Nor is there a rim above the band.
void MSetupWindow::AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) {
    newClientRect.top -= newWindowRect.right - newClientRect.right;
    MProductWindow::AdjustRectangles(newWindowRect, newClientRect);
}

MModalValue MSetupWindow::RunModal(MControl* parent) {
    if (ended != MModalValue::None) return ended;
    if (!Is(MControlFlag::HasWindow)) CreateWindow(parent);
    return MProductWindow::RunModal(parent);
}

bool MSetupWindow::CanClose() {
    if (!ExitButton->Is(MControlFlag::Visible)) return false;
    const MControlRef self(this);
    walk.Exit();
    return self && ended != MModalValue::None;
}

void MSetupWindow::OnButton(const MOnClickParams& params) {
    if (params.control == NextButton)
        walk.Next();
    else if (params.control == PreviousButton)
        walk.Previous();
    else
        walk.Exit();
}

void MSetupWindow::ShowPage(MWalkPage& page) {
    pageSwitch->SetActive(&static_cast<MSetupPage&>(page));
    if (const int32_t index = walk.GetIndex(page); index >= 0) timeLine->SetSteps(walk.GetCount(), index);
    timeLine->SetVisible(!page.IsFinal);
}

void MSetupWindow::ShowButtons(const MWalkButtons& buttons) {
    // Where there is no way out there are no ways at all.
    NextButton->SetVisible(buttons.isNextVisible && buttons.isExitVisible);
    PreviousButton->SetVisible(buttons.isPreviousVisible && buttons.isExitVisible);
    ExitButton->SetVisible(buttons.isExitVisible);
    NextButton->SetEnabled(buttons.isNextEnabled);
    PreviousButton->SetEnabled(buttons.isPreviousEnabled);
    NextButton->SetDefault(buttons.isNextVisible);
    ExitButton->SetDefault(!buttons.isNextVisible);
}

void MSetupWindow::Repaint() {
    if (!walk.GetCurrentPage()) return;  // the walk has ended before its first page
    UpdateLayout();
    FocusFirst();
    RedrawNow();
}

/// The first page has come before the window.
void MSetupWindow::OnPrepared() {
    MProductWindow::OnPrepared();
    if (!GetRootState().focusedControl) FocusFirst();
}

/// What comes next has the keyboard, unless there is something to do on the page before.
void MSetupWindow::FocusFirst() {
    MControl* const onPage = static_cast<MSetupPage*>(walk.GetCurrentPage())->GetFirstControl();
    for (MControl* control : {static_cast<MControl*>(NextButton), onPage, static_cast<MControl*>(ExitButton)})
        if (control && control->CanFocus()) return SetFocus(control);
}

bool MSetupWindow::ConfirmExit(MWalkPage&) {
    return dialogs.AskYesNo(GetDefinition().GetAttribute(
        "exitconfirm", MTranslate("Are you sure you want to exit the installation.")));
}

void MSetupWindow::EndWalk(MModalValue result) {
    ended = result;
    if (Is(MControlFlag::ModalRunning)) CloseWindow(result);
}
