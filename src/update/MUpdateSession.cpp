#include "update/MUpdateSession.h"

#include "foundation/base/MAddSize.h"
#include "foundation/base/MGuard.h"
#include "foundation/files/MFolderLock.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/xml/MEntities.h"
#include "update/MUpdateServer.h"
#include "update/MUpdateTrust.h"

#include <algorithm>

namespace {

/// The part of a bar that belongs to one of several works of equal length, which may have a bar of its own.
class ProgressSlice final : public MProgressView {
public:
    ProgressSlice(MProgressView* bar, int32_t index, int32_t count, MProgressView* ownBar = nullptr)
        : bar(bar), index(index), count(count), ownBar(ownBar) {}

    void SetProgress(double maximum, double value) override {
        if (bar) bar->SetProgress(count, index + (maximum > 0 ? value / maximum : 0));
        if (ownBar) ownBar->SetProgress(maximum, value);
    }

private:
    MProgressView* bar;
    int32_t index;
    int32_t count;
    MProgressView* ownBar;
};

/// What was fetched, in the main directory: there is the right to write, and room for what it brings. It is one update
/// manager's alone, while installers need not wait for a download. It is gone with the object; what a killed run leaves
/// is replaced by the next.
class FetchedFile final : public MStdFileStream {
public:
    FetchedFile(const MString& directory, const MString& product)
        : lock(directory, product, MFolderLock::PatienceMilliseconds, MUpdateLockName) {
        Open(MGetFetchedUpdatePath(directory), MOpenRead | MOpenWrite | MOpenCreate);
    }
    ~FetchedFile() override {
        MGuard("MUpdateSession", [this] {
            Close();
            MFile::Delete(GetFileName());
        });
    }

private:
    MFolderLock lock;
};

int64_t GetSize(const MXMLItem& offer) {
    return std::max<int64_t>(offer.GetInt64Attribute("size", 0), 0);
}

}  // namespace

void MUpdateSession::Query() {
    selected.Clear();
    offers.Fetch(MUpdateServer(run.GetState()), run.GetState());
}

void MUpdateSession::SelectPackages(const MList<int32_t>& indices) {
    selected.Clear();
    for (const int32_t index : indices) selected.Add(offers.GetPackages()[index]);
}

MUpdateSummary MUpdateSession::GetSummary() const {
    MUpdateSummary summary;
    summary.updateCount = offers.GetUpdates().GetCount();
    summary.packageCount = offers.GetPackages().GetCount();
    summary.selectedCount = selected.GetCount();
    for (const MXMLItem* offer : offers.GetUpdates()) MAddSize(summary.updateBytes, GetSize(*offer));
    for (const MXMLItem* offer : selected) MAddSize(summary.selectedBytes, GetSize(*offer));
    return summary;
}

int32_t MUpdateSession::Perform(const MInstallViews& views, const StopQuery& stop) {
    MUpdateOffers::List all = offers.GetUpdates();
    for (const MXMLItem* package : selected) all.Add(package);
    int32_t installed = 0;
    for (int32_t i = 0; i < all.GetCount(); ++i) {
        if (stop()) break;
        const MXMLItem& offer = *all[i];
        // An offer is half done when it has been fetched.
        ProgressSlice fetching(views.totalBar, 2 * i, 2 * all.GetCount(), views.fileBar);
        ProgressSlice installing(views.totalBar, 2 * i + 1, 2 * all.GetCount());
        MInstallViews own = views;
        own.fileBar = &fetching;
        FetchedFile content(run.GetMainPath(), run.GetState().GetAttribute("name"));
        // Another update manager may have had the same offers.
        if (run.Finds(offer)) continue;
        Fetch(offer, content, own);
        own.fileBar = views.fileBar;
        own.totalBar = &installing;
        if (run.Finds(offer)) continue;
        Lay(offer, content, own, Source::Server);
        ++installed;
        if (MNeedsRestart(offer)) break;
    }
    run.Complete();
    return installed;
}

void MUpdateSession::Fetch(const MXMLItem& offer, MStream& content, const MInstallViews& views) const {
    const MString name = offer.GetAttribute("name");
    views.ShowInfo(MFormat(MTranslate("<b>Installing {0}..."), MEntities::Escape(name)));
    views.ShowFile(MFormat(MTranslate("Downloading {0}..."), name));
    const MUpdateServer server(run.GetState());
    const MString file = offer.GetAttribute("filename");
    server.FetchUpdate(file, content, views.fileBar);
    MUpdateTrust(run.GetState()).Require(name, content, server, MUpdateServer::GetSignatureQuery(file));
}

void MUpdateSession::InstallLocal(const MXMLItem& offer, MStream& content, const MInstallViews& views) {
    Lay(offer, content, views, Source::Local);
    run.Complete();
}

void MUpdateSession::Lay(const MXMLItem& offer, MStream& content, const MInstallViews& views, Source source) {
    views.ShowInfo(
        MFormat(MTranslate("<b>Installing <i>{0}</i>..."), MEntities::Escape(offer.GetAttribute("name"))));
    MInstallViews own = views;
    own.infoText = nullptr;
    const MList<MUnmergedPresets>& unmerged = run.GetProcessor().GetUnmerged();
    const int32_t alreadyTold = unmerged.GetCount();
    run.Install(offer, content, own);
    if (unmerged.GetCount() > alreadyTold)
        views.dialogs->ShowError(MDescribeUnmerged(std::span(unmerged).subspan(alreadyTold)));
    views.ShowTotalProgress(1, 1);
    const MString told = offer.GetAttribute("showinfo", "");
    if (!told.IsEmpty()) views.dialogs->ShowInformation(told);
    if (MNeedsRestart(offer) && source == Source::Server)
        views.dialogs->ShowInformation(MTranslate(
            "The update requires the installer to exit. Please run the update installer again later."));
    run.Execute(offer);
}
