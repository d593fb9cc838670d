#pragma once

#include "foundation/base/MDateTime.h"
#include "install/engine/MInstallProcessor.h"

#include <string>

/// Lays updates and packages over an installation, one after another, in the calling thread.
///
/// What is laid over it is a library like the payload of an installer. Its `files` elements belong to those of
/// "setup.state" by their place: the first to the first, and so on, whatever they are called. The `dir` and `file`
/// children of each take the place of the installation's, so that a removal knows the new files, and are worked on
/// wherever the user has installed the old ones: in the folder of the element and in those of its copies. An element
/// with `unchanged` 1 leaves that of its place as it is, as elements without counterpart stay. What follows from
/// `removelastfilefrompath` is told in docs/update.md.
///
/// The state is saved last: a run that fails or is killed leaves the old one, and can be repeated.
class MUpdateRun {
public:
    /// `directory` holds the state; the current directory need not be it. Raises what `MLoadInstallState` raises,
    /// "Invalid datetime format." (0), and `MRefusal` to a user who may not change the installation.
    explicit MUpdateRun(const MString& directory);

    /// The root of "setup.state", as it was last read or written.
    [[nodiscard]] const MXMLItem& GetState() const { return state; }
    [[nodiscard]] MString GetMainPath() const { return state.GetAttribute("mainpath"); }
    /// Whether an offer is an update that the installation has already: one that is not later than it. An offer
    /// whose time cannot be told is none.
    [[nodiscard]] bool IsInstalled(const MXMLItem& offer) const;
    /// Reads the state again, for what other setups have changed, and tells whether an offer is in it: an update that is
    /// installed, or a package of that time. Raises what `MLoadInstallState` raises.
    [[nodiscard]] bool Finds(const MXMLItem& offer);

    /// Installs what is offered, from a stream. Neither it nor the views are owned. Other setups are kept
    /// away meanwhile, and what they have changed until now is not lost. Raises "The update has not been
    /// downloaded correctly. Please try again." (0) for a stream that is no library; "Installation log is
    /// not complete. ..." (0) for a state that does not say where its files are; "The server has sent
    /// another update than {0}. ..." (0), "{0} is for {1}, and {2} is installed here. ..." (0) and "{0}
    /// changes a newer version than the one that is installed. ..." (0), as far as the library says what it
    /// is, which it must where the state has an `updatekey`; what `MFolderLock`, `MLoadInstallState`,
    /// `MInstallProcessor::Perform` and writing a file raise.
    void Install(const MXMLItem& offer, MStream& content, const MInstallViews& views);

    /// To be told when no more is installed: until then what users had in their preset files before the first of several
    /// updates is what the backups keep.
    void Complete() { processor.Complete(); }

    /// Starts what an offer says in `execute`, if anything, and waits for its end unless the offer has `restart`
    /// set. Raises what `MFile::Execute` raises.
    void Execute(const MXMLItem& offer) const;

    /// Of all installing so far.
    [[nodiscard]] const MInstallProcessor& GetProcessor() const { return processor; }

private:
    void Load(const MString& directory);
    void SaveState() const;

    MXMLItem state;
    std::string stateText;  ///< the file that `state` was read from, as long as it has not been changed
    MInstallProcessor processor;
};

/// Offers are known by these attributes.
[[nodiscard]] inline bool MIsPackage(const MXMLItem& offer) {
    return offer.GetInt32Attribute("package", 0) != 0;
}
[[nodiscard]] inline bool MNeedsRestart(const MXMLItem& offer) {
    return offer.GetInt32Attribute("restart", 0) != 0;
}
