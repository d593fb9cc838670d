#pragma once

#include "update/MUpdateOffers.h"
#include "update/MUpdateRun.h"

#include <functional>

/// How much there is to download, in offers and in bytes.
struct MUpdateSummary {
    int32_t updateCount = 0;
    int64_t updateBytes = 0;
    int32_t selectedCount = 0;  ///< of the packages
    int32_t packageCount = 0;
    int64_t selectedBytes = 0;

    [[nodiscard]] int32_t GetDownloadCount() const { return updateCount + selectedCount; }
    [[nodiscard]] int64_t GetDownloadBytes() const { return updateBytes + selectedBytes; }
};

/// What an update manager does, whatever shows it: asks the server of an installation what is new, keeps which of
/// the packages the user wants, and then fetches and installs one offer after another.
class MUpdateSession {
public:
    /// True to stop before the next offer.
    using StopQuery = std::function<bool()>;

    /// Raises what `MUpdateRun` raises.
    explicit MUpdateSession(const MString& directory) : run(directory) {}

    [[nodiscard]] MUpdateRun& GetRun() { return run; }
    /// Asks the server. No package is selected then. Raises what `MUpdateServer` and `MUpdateOffers::Fetch` raise.
    void Query();
    [[nodiscard]] const MUpdateOffers& GetOffers() const { return offers; }

    /// By their place among the packages; raises "Index out of range." (0).
    void SelectPackages(const MList<int32_t>& indices);
    [[nodiscard]] MUpdateSummary GetSummary() const;

    /// Fetches and installs all updates and then the selected packages, and tells what they say and which preset
    /// files were left without their new presets: an update that is installed is not offered again. `infoText` is
    /// the heading, as mark-up, `fileText` and `fileBar` are of the offer in hand, `totalBar` counts offers; there
    /// must be dialogs. Passes over what another update manager has installed meanwhile. Ends early if `stop` says so
    /// or an offer needs the program to end; gives how many were installed. Raises what `MFolderLock` raises while
    /// another one is at work, and what fetching and installing raise; what is installed until then stays.
    int32_t Perform(const MInstallViews& views, const StopQuery& stop);
    /// Installs an offer that need not be fetched, and tells likewise.
    void InstallLocal(const MXMLItem& offer, MStream& content, const MInstallViews& views);

private:
    enum class Source { Server, Local };

    void Fetch(const MXMLItem& offer, MStream& content, const MInstallViews& views) const;
    /// Installs, and tells and starts what the offer says.
    void Lay(const MXMLItem& offer, MStream& content, const MInstallViews& views, Source source);

    MUpdateRun run;
    MUpdateOffers offers;
    MUpdateOffers::List selected;
};
