#pragma once

#include "foundation/events/MThread.h"
#include "setup/wizard/MProductWindow.h"
#include "setup/wizard/MWizardDialogs.h"
#include "setup/wizard/MWorkerViews.h"
#include "ui/widgets/lists/MSTMLListBoxItem.h"
#include "update/MUpdateSession.h"

#include <atomic>
#include <optional>

class MLayoutSwitch;
class MStaticMultiLine;

/// The update manager of an installation: shows what its server offers, lets the user choose among the packages, and
/// then fetches and installs on a thread of its own. With an offer that is at hand it asks no server and installs
/// that one.
class MUpdateInstallerWindow : public MProductWindow {
public:
    /// Rows of rich text, one for each offer.
    class ListBoxType : public MListBoxT<MSTMLListBoxItem> {
    public:
        using MListBoxT::MListBoxT;

        /// Raises "Could not find required attribute ({0})." (0) for an offer without name, and "Invalid datetime
        /// format." (0).
        void AddOffer(const MXMLItem& offer);
    };

    /// Asks the server of the installation in `directory`; `RunModal` then only returns `Ok` if there is nothing
    /// new, which is told. The dialogs are not owned. Raises what `MUpdateSession::Query` raises. A state that
    /// cannot be read is told at once, and `RunModal` likewise.
    MUpdateInstallerWindow(const MString& directory, MWizardDialogs& dialogs);
    /// Shows one offer, whose content is at hand. Neither of them is owned.
    MUpdateInstallerWindow(const MString& directory, MWizardDialogs& dialogs, const MXMLItem& localItem,
                           MStream& localStream);
    /// Lets the offer in hand be installed to its end.
    ~MUpdateInstallerWindow() override;

    /// Whether there is anything to do.
    [[nodiscard]] bool IsUsable() const { return session.has_value(); }
    /// `Ok` if the installing has ended, well or not, or there was nothing to do; `Cancel` if the user has left.
    MModalValue RunModal(MControl* parent) override;
    [[nodiscard]] bool CanClose() override;
    void OnPrepared() override;

    /// Whether an offer may be installed: an update that the installation has already only after a question. Null
    /// is one that comes from the server.
    [[nodiscard]] bool IsUpdateUsable(const MXMLItem* item);

private:
    class MProcessingThread final : public MThread {
    public:
        explicit MProcessingThread(MUpdateInstallerWindow& window) : window(window) {}

    protected:
        int32_t Execute() override;

    private:
        MUpdateInstallerWindow& window;
    };

    MUpdateInstallerWindow(const MString& directory, MWizardDialogs& dialogs, const MXMLItem* localItem,
                           MStream* localStream);

    // Either leaves no session if there is nothing to do.
    void Load(const MString& directory);
    void Query();
    void AddStages();
    void AddFooter();
    void AddLocalOffer();
    void AddLists();
    ListBoxType& AddList(MLayout& column, const char* name, const char* heading,
                         const MUpdateOffers::List& offers);
    void AddProcessing();
    void UpdateSummary();

    void OnProcess(const MOnClickParams& params);
    void OnExit(const MOnClickParams& params);
    void OnPackageChecked(const MOnItemParams<MSTMLListBoxItem>& params);
    void OnFinished(const MOnThreadNotifyParams& params);
    /// The work of the thread.
    void InstallAll();

    MWizardDialogs& dialogs;
    std::optional<MUpdateSession> session;  ///< none if there is nothing to do
    const MXMLItem* const localItem;        ///< null for those of the server
    MStream* const localStream;
    bool isFinished = false;

    // Children.
    MLayoutSwitch* stages = nullptr;
    MControlContainer* settings = nullptr;
    MControlContainer* processing = nullptr;
    ListBoxType* packagesList = nullptr;
    MStaticMultiLine* summary = nullptr;
    MButton* processButton = nullptr;
    MButton* exitButton = nullptr;

    // Of the thread.
    std::atomic<bool> isStopWanted = false;
    MString errorText;  ///< written before it ends, and read afterwards
    std::unique_ptr<MWorkerViews> worker;
    std::unique_ptr<MProcessingThread> thread;
};
