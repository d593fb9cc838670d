#include "ui/dialogs/MWizardWindow.h"

#include "ui/control/MControlRoot.h"
#include "ui/dialogs/MTimeLine.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/layout/MLayoutSwitch.h"

#include <algorithm>

MWizardWindow::MWizardWindow(const MString& name, const MString& caption)
    : MWindow(name, caption), pages(*new MContainer(this, "Pages")), pageSwitch(*new MLayoutSwitch(pages)) {
    pages.SetControlType(MControlType::Empty);
    pages.layoutBorder = {16, 16};
    // The strip comes below the buttons, so it takes its place first.
    timeLine = new MTimeLine(this, "TimeLine");
    timeLine->layoutRatio.y = 0;
    (new MLayoutBottom(*this))->Add(*timeLine);
    auto& row = *new MLayoutBottom(*this);
    auto& space = *new MControlContainer(this, "Space");
    space.layoutRatio.y = 0;
    row.Add(space);
    previousButton = &AddButton(row, "Previous");
    previousButton->OnClick(Click::Left).Connect(this, &MWizardWindow::OnPrevious);
    nextButton = &AddButton(row, "Next");
    nextButton->OnClick(Click::Left).Connect(this, &MWizardWindow::OnNext);
    nextButton->SetDefault(true);
    SetClientControl(&pages);
}

MButton& MWizardWindow::AddButton(MLayout& row, const char* name) {
    constexpr int32_t ButtonFont = 5;
    auto& button = *new MButton(this, name);
    button.SetText(MTranslate(name));
    button.SetFont(ButtonFont);
    button.layoutRatio = {0, 0};
    row.Add(button);
    return button;
}

MContainer& MWizardWindow::AddPage(const MString& name) {
    auto& page = *new MContainer(&pages, name);
    page.SetControlType(MControlType::Empty);
    pageSwitch.Add(page);
    pageList.Add(&page);
    RefreshButtons();
    return page;
}

/// What comes next has the focus, unless there is something to do on the page.
void MWizardWindow::OnPrepared() {
    MWindow::OnPrepared();
    if (GetRootState().focusedControl) return;
    FocusNext();
    if (previousButton->HasFocus()) nextButton->SetFocus();
}

void MWizardWindow::SetPage(int32_t index) {
    if (pageList.IsEmpty()) return;
    currentPage = std::clamp(index, 0, pageList.GetCount() - 1);
    const MControlRef self(this);
    pageSwitch.SetActive(pageList[currentPage]);
    if (self) RefreshButtons();
}

void MWizardWindow::RefreshButtons() {
    const bool isLast = currentPage + 1 >= pageList.GetCount();
    const MString nextText = MTranslate(isLast ? "Finish" : "Next");
    if (!nextButton->GetCaption().IsExactly(nextText)) nextButton->SetText(nextText);
    timeLine->SetSteps(pageList.GetCount(), currentPage);
    const MControlRef self(this);
    const bool canGoBack = currentPage > 0 && CanGoBack();
    const bool canGoNext = CanGoNext();
    // Where the focus is, the other button may still take it.
    if (canGoNext) nextButton->SetEnabled(true);
    if (self) previousButton->SetEnabled(canGoBack);
    if (self) nextButton->SetEnabled(canGoNext);
}

void MWizardWindow::OnNext(const MOnClickParams&) {
    if (currentPage + 1 < pageList.GetCount())
        SetPage(currentPage + 1);
    else
        CloseWindow(MModalValue::Ok);
}
