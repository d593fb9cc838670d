#include "setup/wizard/MUpdateInstallerWindow.h"

#include "foundation/base/MRefusal.h"
#include "foundation/text/MByteSizeText.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MEntities.h"
#include "setup/wizard/MProgressLine.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/dialogs/MMessageDialogWindow.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/layout/MLayoutSwitch.h"
#include "ui/widgets/content/MColorBox.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/scrolling/MScroller.h"

namespace {

/// What is being installed, as rich text.
class HeadingText final : public MStaticMultiLine, public MTextView {
public:
    using MStaticMultiLine::MStaticMultiLine;

    void SetText(const MString& text) override {
        if (!GetCaption().IsExactly(text)) MStaticMultiLine::SetText(text);
    }
};

bool AskOver(MControl& window, const MString& markup) {
    return MMessageDialogWindow::MessageBox(markup, MMessageButtons::YesNo, MStdBitmap::Question, &window,
                                            MModalValue::No) == MModalValue::Yes;
}

MString GetDateText(const MXMLItem& offer) {
    return MDateTime::Parse(offer.GetAttribute("time")).date.GetText();
}

}  // namespace

void MUpdateInstallerWindow::ListBoxType::AddOffer(const MXMLItem& offer) {
    AddItem(std::make_unique<MSTMLListBoxItem>(MFormat(
        "<tr><td valign=center width=140><center>{0}<center><i>{1}</i></td><td><justify><b>{2}</b></justify>"
        "{3}</td></tr>",
        MByteSizeText(offer.GetInt64Attribute("size", 0)), GetDateText(offer),
        MEntities::Escape(offer.GetAttribute("name")), offer.GetValue())));
}

int32_t MUpdateInstallerWindow::MProcessingThread::Execute() {
    try {
        window.InstallAll();
    } catch (const MException& exception) {
        window.errorText = exception.GetMessage();
    } catch (const std::exception& exception) {
        window.errorText = exception.what();
    }
    return 0;
}

MUpdateInstallerWindow::MUpdateInstallerWindow(const MString& directory, MWizardDialogs& dialogs)
    : MUpdateInstallerWindow(directory, dialogs, nullptr, nullptr) {}

MUpdateInstallerWindow::MUpdateInstallerWindow(const MString& directory, MWizardDialogs& dialogs,
                                               const MXMLItem& localItem, MStream& localStream)
    : MUpdateInstallerWindow(directory, dialogs, &localItem, &localStream) {}

MUpdateInstallerWindow::MUpdateInstallerWindow(const MString& directory, MWizardDialogs& dialogs,
                                               const MXMLItem* localItem, MStream* localStream)
    : MProductWindow("updateinstaller", MTranslate("Update installer")),
      dialogs(dialogs),
      localItem(localItem),
      localStream(localStream) {
    Load(directory);
    if (!localItem && session) Query();
    if (!session) return;
    SetCaption(session->GetRun().GetState().GetAttribute("name") + MTranslate(" update manager"),
               MCaptionType::Normal);
    Set(MControlFlag::Resizable);
    minClientSize = {600, localItem ? 160 : 360};
    AddStages();
    AddFooter();
    if (!localItem) UpdateSummary();
    dialogs.SetOwner(this);
}

MUpdateInstallerWindow::~MUpdateInstallerWindow() {
    if (worker) worker->End();
    if (thread) {
        isStopWanted = true;
        thread->RequestStop();
        thread->Wait();
    }
}

void MUpdateInstallerWindow::Load(const MString& directory) {
    try {
        session.emplace(directory);
    } catch (const MRefusal& refusal) {
        // It says what to do.
        dialogs.ShowError(refusal.GetMessage());
    } catch (const MException&) {
        dialogs.ShowError(
            MTranslate("Software definition file has not been found. Please reinstall the application."));
    }
}

void MUpdateInstallerWindow::Query() {
    {
        const auto bar = dialogs.OpenProgress(MTranslate("Looking for updates..."));
        dialogs.Await([this] { session->Query(); });
    }
    if (!session->GetOffers().IsEmpty()) return;
    session.reset();
    dialogs.ShowInformation(MTranslate("No updates or packages are available at the moment."));
}

void MUpdateInstallerWindow::AddStages() {
    auto& pages = *new MControlContainer(this, "Stages");
    SetClientControl(&pages);
    stages = new MLayoutSwitch(pages);
    stages->measureHidden = true;
    const auto add = [&](const char* name) {
        auto& stage = *new MControlContainer(&pages, name);
        stage.layoutBorder = {16, 16};
        stages->Add(stage);
        return &stage;
    };
    settings = add("settings");
    processing = add("processing");
    if (localItem)
        AddLocalOffer();
    else
        AddLists();
    AddProcessing();
    stages->SetActive(settings);
}

void MUpdateInstallerWindow::AddLocalOffer() {
    auto& view = *new MScroller(settings, "view");
    view.SetControlType(MControlType::Empty);
    settings->SetClientControl(&view);
    auto& text = *new MStaticMultiLine(&view.GetContainer(), "info");
    text.SetText(
        (MIsPackage(*localItem)
             ? MTranslate("<justify>You are going to install a package with following information:<p><p>")
             : MTranslate("<justify>You are going to install an update with following information:<p><p>")) +
        MFormat("<b>{0}</b><p><p>{1}", MEntities::Escape(localItem->GetAttribute("name")),
                localItem->GetValue()));
    (new MLayoutVertical(view.GetContainer()))->Add(text);
}

void MUpdateInstallerWindow::AddLists() {
    const MUpdateOffers& offers = session->GetOffers();
    auto& column = *new MLayoutVertical(*settings);
    column.space = 8;
    AddList(column, "UpdatesListBox", "Available updates", offers.GetUpdates());
    packagesList = &AddList(column, "PackagesListBox", "Available packages", offers.GetPackages());
    packagesList->SetCheckBoxes(true);
    packagesList->OnItemChecked().Connect(this, &MUpdateInstallerWindow::OnPackageChecked);
    summary = new MStaticMultiLine(settings, "info");
    summary->layoutRatio.y = 0;
    column.Add(*summary);
}

MUpdateInstallerWindow::ListBoxType& MUpdateInstallerWindow::AddList(MLayout& column, const char* name,
                                                                     const char* heading,
                                                                     const MUpdateOffers::List& offers) {
    auto& label = *new MStaticHeader(settings, MString(name) + "Label");
    label.SetText(MTranslate(heading));
    label.layoutRatio.y = 0;
    auto& list = *new ListBoxType(settings, name);
    list.minClientSize.y = 128;
    for (const MXMLItem* offer : offers) list.AddOffer(*offer);
    for (MControl* control : {static_cast<MControl*>(&label), static_cast<MControl*>(&list)}) {
        control->SetVisible(!offers.IsEmpty());
        column.Add(*control);
    }
    return list;
}

void MUpdateInstallerWindow::AddProcessing() {
    auto& grid = *new MLayoutGrid(*processing, 1);
    const auto add = [&](MControl& control) {
        control.layoutRatio.y = 0;
        grid.Attach(control);
    };
    auto& heading = *new HeadingText(processing, "heading");
    add(heading);
    auto& fileInfo = *new MProgressLine(processing, "fileinfo");
    fileInfo.SetText(MTranslate("Processing files..."));
    add(fileInfo);
    auto& space = *new MControlContainer(processing, "space");
    space.minClientSize.y = 24;
    add(space);
    MInstallViews views;
    const auto addBar = [&](const char* name, const char* text) {
        auto& label = *new MStatic(processing, MString(name) + "Label");
        label.SetText(MTranslate(text));
        add(label);
        auto& bar = *new MProgressBar(processing, name);
        add(bar);
        return &bar;
    };
    views.totalBar = addBar("totalprogress", "Total progress");
    views.fileBar = addBar("opprogress", "File progress");
    views.infoText = &heading;
    views.fileText = &fileInfo;
    views.dialogs = &dialogs;
    worker = std::make_unique<MWorkerViews>(views);
}

void MUpdateInstallerWindow::AddFooter() {
    auto& bar = *new MColorBox(this, "Buttons");
    bar.layoutRatio.y = 0;
    (new MLayoutBottom(*this))->Add(bar);
    auto& row = *new MLayoutHorizontal(bar);
    auto& space = *new MControlContainer(&bar, "Space");
    space.layoutRatio.y = 0;
    row.Add(space);
    processButton = &AddButton(bar, row, "Process", localItem ? "Install" : "Download and install");
    processButton->SetDefault(true);
    processButton->MControl::OnClick(Click::Left).Connect(this, &MUpdateInstallerWindow::OnProcess);
    exitButton = &AddButton(bar, row, "Exit", "Exit");
    exitButton->MControl::OnClick(Click::Left).Connect(this, &MUpdateInstallerWindow::OnExit);
}

void MUpdateInstallerWindow::UpdateSummary() {
    const MUpdateSummary sums = session->GetSummary();
    processButton->SetEnabled(sums.GetDownloadCount() > 0);
    summary->SetText(MFormat(
        MTranslate(
            "<tr><td><p>Number of updates: {0}<p>Size: {1}</td><td><p>Number of packages: {2} of {3}<p>Size: "
            "{4}</td><td valign=center><p><b>To download: <cgreen>{5}</cgreen></b>"),
        sums.updateCount, MByteSizeText(sums.updateBytes), sums.selectedCount, sums.packageCount,
        MByteSizeText(sums.selectedBytes), MByteSizeText(sums.GetDownloadBytes())));
}

void MUpdateInstallerWindow::OnPackageChecked(const MOnItemParams<MSTMLListBoxItem>&) {
    MList<int32_t> chosen;
    for (int32_t i = 0; i < packagesList->GetItemCount(); ++i)
        if (packagesList->GetItem(i)->IsChecked()) chosen.Add(i);
    session->SelectPackages(chosen);
    UpdateSummary();
}

void MUpdateInstallerWindow::OnPrepared() {
    MProductWindow::OnPrepared();
    if (GetRootState().focusedControl) return;
    for (MControl* control : {static_cast<MControl*>(processButton), static_cast<MControl*>(packagesList),
                              static_cast<MControl*>(exitButton)})
        if (control && control->CanFocus()) return control->SetFocus();
}

MModalValue MUpdateInstallerWindow::RunModal(MControl* parent) {
    if (!session) return MModalValue::Ok;
    if (!Is(MControlFlag::HasWindow)) CreateWindow(parent);
    return MProductWindow::RunModal(parent);
}

bool MUpdateInstallerWindow::IsUpdateUsable(const MXMLItem* item) {
    if (!item || !session->GetRun().IsInstalled(*item)) return true;
    return AskOver(
        *this,
        MTranslate(
            "<b>The update has already been installed. Do you want to reinstall it anyway?</b><p><p>Reinstalling "
            "existing update may help if you experience problems or if you accidentally destroyed the software "
            "files. However note that this may be dangerous, so it is always adviced to use the newest installer "
            "instead."));
}

void MUpdateInstallerWindow::OnProcess(const MOnClickParams&) {
    const MControlRef self(this);
    stages->SetActive(processing);
    processButton->SetEnabled(false);
    if (localItem) exitButton->SetEnabled(false);
    RedrawNow();
    const bool isUsable = IsUpdateUsable(localItem);
    if (!self) return;
    if (!isUsable) return CloseWindow(MModalValue::Cancel);
    thread = std::make_unique<MProcessingThread>(*this);
    thread->SetTarget(MWindows::GetInstance());
    thread->OnFinish.Connect(this, &MUpdateInstallerWindow::OnFinished);
    worker->Begin();
    thread->Start();
}

void MUpdateInstallerWindow::InstallAll() {
    const MInstallViews views = worker->GetViews();
    if (localItem)
        session->InstallLocal(*localItem, *localStream, views);
    else
        session->Perform(views, [this] { return isStopWanted.load(); });
}

void MUpdateInstallerWindow::OnFinished(const MOnThreadNotifyParams&) {
    worker->End();
    isFinished = true;
    const MControlRef self(this);
    if (errorText.IsEmpty())
        dialogs.ShowInformation(MTranslate("Updates has been successfully installed."));
    else
        dialogs.ShowError(errorText);
    if (self) CloseWindow(MModalValue::Ok);
}

void MUpdateInstallerWindow::OnExit(const MOnClickParams&) {
    const MControlRef self(this);
    if (CanClose() && self) CloseWindow(MModalValue::Cancel);
}

bool MUpdateInstallerWindow::CanClose() {
    if (isFinished) return true;
    if (!thread) return AskOver(*this, MTranslate("Are you sure you want to close the application?"));
    const MControlRef self(this);
    if (!AskOver(*this, MTranslate("Are you sure you want to terminate the installation?")) || !self)
        return false;
    // A thread that is asked before it has begun would end without a word.
    isStopWanted = true;
    if (!isFinished)
        dialogs.ShowInformation(MTranslate("Program will terminate as soon as current update is installed."));
    return false;
}
