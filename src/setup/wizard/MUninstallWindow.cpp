#include "setup/wizard/MUninstallWindow.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRefusal.h"
#include "foundation/xml/MEntities.h"
#include "setup/wizard/MProgressLine.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/content/MColorBox.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/files/MBackgroundTask.h"
#include "update/MSubmitNote.h"

namespace {

/// As the maker reads them, whatever language the user has.
constexpr std::array<const char*, MUninstallWindow::ReasonCount> Reasons = {
    "I like it, I will install it again.",
    "It is too complicated for me.",
    "It is too slow.",
    "I just don't like it.",
    "It does not work... <i>(please specify what it does)</i>",
    "I use another software... <i>(please specify)</i>",
    "Something else... <i>(please specify)</i>",
};

/// `space`: what is free below the control, beside what the style says.
void AddBelow(MControl& control, int32_t space = 0) {
    auto& strip = *new MLayoutTop(*control.GetParent());
    strip.space = space;
    control.layoutRatio.y = 0;
    strip.Add(control);
}

/// A text that is as wide as the window wants it, and so as high as it has to be there.
template <class Base>
class TextOfWidth final : public Base {
public:
    TextOfWidth(MControl* parent, const MString& name, const MString& text) : Base(parent, name) {
        this->Set(MControlFlag::Plastic, false);
        this->SetText(text);
    }

    void GetMinimalContentSize(int32_t& x, int32_t& y) override {
        constexpr int32_t Width = 500;
        MStyle* const style = this->GetStyle();
        x = style ? style->ScaleX(Width) : Width;
        y = this->ComputePlasticSize(1, x);
    }
};

/// A heading and some of the paths, as mark-up.
MString ListPaths(const char* heading, const MList<MString>& paths) {
    constexpr int32_t MostLines = 6;
    if (paths.IsEmpty()) return MString();
    const int32_t shown = paths.GetCount() > MostLines ? MostLines - 1 : paths.GetCount();
    MString text = "<p><p>" + MTranslate(heading);
    for (int32_t i = 0; i < shown; ++i) text += "<p>" + MEntities::Escape(paths[i]);
    if (shown < paths.GetCount())
        text += "<p>" + MFormat(MTranslate("and {0} more"), paths.GetCount() - shown);
    return text;
}

}  // namespace

MUninstallWindow::MUninstallWindow(const MString& directory, MWizardDialogs& dialogs,
                                   std::function<void()> runUpdates)
    : MProductWindow("uninstaller", "Uninstaller"),
      noteAddress(MGetNoteAddress()),
      dialogs(dialogs),
      runUpdates(std::move(runUpdates)) {
    Set(MControlFlag::CloseOnEscape);
    minClientSize.x = 400;
    dialogs.SetOwner(this);
    auto& bar = *new MColorBox(this, "Buttons");
    bar.layoutRatio.y = 0;
    (new MLayoutBottom(*this))->Add(bar);
    footer = new MControlContainer(&bar, "Footer");
    footer->layoutBorder = {16, 8};
    bar.SetClientControl(footer);
    info = new MProgressLine(footer, "info", &dialogs.GetPulse());
    auto* const liveBar = new MLiveProgressBar(footer, "progress", dialogs.GetPulse());
    progress = liveBar;
    MInstallViews views;
    views.infoText = info;
    views.totalBar = liveBar;
    views.dialogs = &dialogs;
    Load(directory, views);
    if (!run) return;
    const MXMLItem& state = run->GetState();
    productName = state.GetAttribute("name");
    SetCaption(productName + MTranslate(" uninstaller"), MCaptionType::Normal);
    survey = new MControlContainer(this, "Survey");
    survey->layoutBorder = {16, 16};
    SetClientControl(survey);
    AddQuestion();
    AddOptions();
    AddFooter(state.GetInt32Attribute("update", 0) != 0);
}

void MUninstallWindow::Load(const MString& directory, const MInstallViews& views) {
    try {
        run = std::make_unique<MUninstallRun>(directory, views);
    } catch (const MRefusal& refusal) {
        // It says what to do.
        dialogs.ShowError(refusal.GetMessage());
    } catch (const MException&) {
        dialogs.ShowError(MTranslate("Sorry. The software definition file has not been found."));
    }
}

void MUninstallWindow::AddQuestion() {
    const MString question = MTranslate("Are you sure you want to uninstall {0}?");
    AddBelow(
        *new TextOfWidth<MStaticHeader>(survey, "top", MFormat(question, MEntities::Escape(productName))), 4);
    AddBelow(
        *new TextOfWidth<MStaticMultiLine>(
            survey, "top2",
            MTranslate("If you are certain you want to remove the software from your computer, please help "
                       "us improve it by selecting the reasons you are doing so. We would appreciate any "
                       "information that would help us make our software better. Thank you!")),
        8);
}

void MUninstallWindow::AddOptions() {
    for (size_t i = 0; i < ReasonCount; ++i) {
        options[i] = new MCheckBox(survey, MFormat("option{0}", i));
        options[i]->SetContent(std::make_unique<MContentSTML>(MTranslate(Reasons[i])));
        AddBelow(*options[i], i + 1 < ReasonCount ? 0 : 4);
    }
    details = new MMultiLineEdit(survey, "details");
    details->infoText = MTranslate("Comments");
    details->minClientSize.y = 64;
    AddBelow(*details);
}

void MUninstallWindow::AddFooter(bool hasUpdates) {
    auto& buttons = *new MControlContainer(footer, "ButtonRow");
    auto& row = *new MLayoutHorizontal(buttons);
    auto& space = *new MControlContainer(&buttons, "Space");
    space.layoutRatio.y = 0;
    row.Add(space);
    uninstallButton = &AddButton(buttons, row, "Uninstall", &MUninstallWindow::OnUninstall);
    if (hasUpdates) updateButton = &AddButton(buttons, row, "Update", &MUninstallWindow::OnUpdate);
    cancelButton = &AddButton(buttons, row, "Cancel", nullptr);
    cancelButton->SetModalValue(MModalValue::Cancel);
    cancelButton->SetDefault(true);
    AddBelow(buttons, 4);
    info->SetText(MTranslate("Preparing..."));
    for (MControl* control : {static_cast<MControl*>(info), static_cast<MControl*>(progress)}) {
        // What they show begins with the removal.
        control->SetEnabled(false);
        AddBelow(*control);
    }
}

MButton& MUninstallWindow::AddButton(MControl& buttons, MLayout& row, const char* text, Handler handler) {
    auto& button = *new MButton(&buttons, MString(text).ToLower());
    button.SetText(MTranslate(text));
    if (handler) button.MControl::OnClick(Click::Left).Connect(this, handler);
    button.minClientSize.x = 72;
    button.layoutRatio = {0, 0};
    row.Add(button);
    return button;
}

void MUninstallWindow::OnPrepared() {
    MProductWindow::OnPrepared();
    if (!isWorking) cancelButton->SetFocus();
}

MModalValue MUninstallWindow::RunModal(MControl* parent) {
    if (!run) return MModalValue::Ok;
    if (!Is(MControlFlag::HasWindow)) CreateWindow(parent);
    const MModalValue result = MProductWindow::RunModal(parent);
    if (isUpdateWanted) MGuard("OnUpdate", runUpdates);
    return result;
}

/// While the window works it is alive, so nothing may be left to do in it.
void MUninstallWindow::OnUninstall(const MOnClickParams&) {
    isWorking = true;
    for (MControl* control :
         std::initializer_list<MControl*>{survey, uninstallButton, updateButton, cancelButton})
        if (control) control->SetEnabled(false);
    info->SetEnabled(true);
    progress->SetEnabled(true);
    RedrawNow();
    MGuard("SubmitSurvey", [this] { SubmitSurvey(); });
    MGuard("PerformUninstallation", [this] { run->PerformUninstallation(); });
    progress->SetPercent(100);
    RedrawNow();
    ShowResult();
    CloseWindow(MModalValue::Ok);
}

void MUninstallWindow::OnUpdate(const MOnClickParams&) {
    isUpdateWanted = true;
    CloseWindow(MModalValue::Ok);
}

void MUninstallWindow::SubmitSurvey() {
    // Longer than a server is waited for, shorter than some resolver of names may need.
    constexpr int32_t Patience = 5000;
    MString reasons;
    for (size_t i = 0; i < ReasonCount; ++i)
        if (options[i]->IsOn()) reasons += MString(Reasons[i]) + "\n";
    const MString comment = details->GetText().Trimmed();
    if (reasons.IsEmpty() && comment.IsEmpty()) return;
    const MBackgroundTask note(
        [url = noteAddress, subject = "UNINSTALLATION - " + productName, text = reasons + "\n\n" + comment] {
            SubmitNote(url, subject, MMakeNoteToken(), text);
        });
    dialogs.Await([&note] { (void)note.WaitFor(Patience); });
}

void MUninstallWindow::ShowResult() {
    if (run->GetFailureCount() == 0)
        return dialogs.ShowInformation(MTranslate("Uninstallation has been completed."));
    dialogs.ShowInformation(
        MTranslate(
            "<b>Uninstallation has been completed.</b><p><p>Some of the files could not be deleted. You may "
            "delete them manually, but they are completely harmless.") +
        ListPaths("These could not be removed:", run->GetLeftovers()) +
        ListPaths("These folders stay, since they hold something else:", run->GetKeptDirectories()));
}
