#pragma once

#include "foundation/base/MDateTime.h"
#include "foundation/xml/MXMLItem.h"

class MUpdateServer;

/// What an update server offers to an installation. The reply is a tree of any root:
///
///     <update name= size= time="YYYY-MM-DD hh:mm:ss" package="0|1" filename=
///             [showinfo=] [restart=] [execute=]>
///         description
///     </update> ...
///
/// `size` is in bytes. An update is newer than the installation; a package is an addition that is not
/// installed yet, known by its time.
class MUpdateOffers {
public:
    using List = MList<const MXMLItem*>;

    /// Asks the server and chooses. `state` is the root of "setup.state". Raises "Could not connect the
    /// server. Please try again later." (0) if the list cannot be fetched, and what `MUpdateTrust` and `Read` raise.
    void Fetch(const MUpdateServer& server, const MXMLItem& state);
    /// Chooses from a reply. Raises what parsing XML raises, "Invalid datetime format." (0), and "The name
    /// \"{0}\" in the list of updates leads out of its directory. ..." (0) for the first offer whose file
    /// does.
    void Read(MStream& reply, const MXMLItem& state);

    /// In the server's order; the items live as long as this object does not read again.
    [[nodiscard]] const List& GetUpdates() const { return updates; }
    [[nodiscard]] const List& GetPackages() const { return packages; }
    [[nodiscard]] bool IsEmpty() const { return updates.IsEmpty() && packages.IsEmpty(); }

private:
    void Choose(const MXMLItem& offer, const MXMLItem& state, const MDateTime& stateTime);

    MXMLItem index;
    List updates;
    List packages;
};
