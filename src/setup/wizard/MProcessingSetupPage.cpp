#include "setup/wizard/MProcessingSetupPage.h"

#include "setup/wizard/MProgressLine.h"
#include "setup/wizard/MSetupWindow.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/content/MStaticMultiLine.h"

MProcessingSetupPage::MProcessingSetupPage(MControl& parent, const MString& name) : MSetupPage(parent, name) {
    MSetupWindow& window = GetWindow();
    MWindowPulse& pulse = window.GetDialogs().GetPulse();
    AddHeader(MTranslate("Setup is now installing the software, please wait."));
    auto& grid = *new MLayoutGrid(*this, 1);
    const auto add = [&](MControl& control) {
        control.layoutRatio.y = 0;
        grid.Attach(control);
    };
    infoText = new MProgressLine(this, "Info", &pulse);
    infoText->SetText(MTranslate("Actually performing"));
    add(*infoText);
    fileText = new MProgressLine(this, "FileInfo", &pulse);
    add(*fileText);
    auto& space = *new MControlContainer(this, "space");
    space.minClientSize.y = 24;
    add(space);
    const auto addBar = [&](const char* id, const char* label) -> MProgressBar* {
        auto& text = *new MStatic(this, id + MString("Label"));
        text.SetText(MTranslate(label));
        add(text);
        auto& bar = *new MLiveProgressBar(this, id, pulse);
        add(bar);
        return &bar;
    };
    totalBar = addBar("TotalProgess", "Total progress");
    fileBar = addBar("OpProgress", "File progress");

    MInstallViews views;
    views.infoText = infoText;
    views.fileText = fileText;
    views.totalBar = totalBar;
    views.fileBar = fileBar;
    views.dialogs = &window.GetDialogs();
    run = std::make_unique<MInstallRun>(window.GetSession(), views);
}

bool MProcessingSetupPage::ShouldSkip(bool) {
    run->Enter();
    return false;
}

/// Where this is the first page, there is no window yet.
void MProcessingSetupPage::OnShown() {
    if (GetRoot().Is(MControlFlag::ModalRunning))
        Perform();
    else
        StartTimer(1);
}

void MProcessingSetupPage::OnTimer() {
    StopTimer();
    GetRoot().RedrawNow();
    Perform();
}

void MProcessingSetupPage::Perform() {
    MSetupWindow& window = GetWindow();
    try {
        run->Perform();
    } catch (const MException& exception) {
        window.GetDialogs().ShowError(exception.GetMessage());
        return window.GetWalk().Activate(window.GetWalk().GetErrorPage(), false);
    }
    window.GetWalk().Activate(*NextPage, false);
}
