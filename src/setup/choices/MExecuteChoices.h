#pragma once

#include "foundation/views/MUserDialogs.h"
#include "install/definition/MPathMacros.h"

class MXMLItem;

/// Which programs of a page are started. One whose `enabled` is 0 never is.
enum class MExecuteScope {
    Everything,       ///< whatever is ticked, addresses too: somebody is there to see it
    Programs,         ///< all but addresses
    UnaskedPrograms,  ///< those that have no text, and so no tick box
    None,
};

/// The script that a page of the definition is ("onstart", "onsuccess", "onerror", "onabort"): its `info`
/// children are screens, its `execute` children are programs that start between them, in the order of all.
class MExecuteChoices {
public:
    /// The page is not owned.
    explicit MExecuteChoices(const MXMLItem& page, MExecuteScope scope = MExecuteScope::Everything)
        : page(page), scope(scope) {}

    /// Raises "Could not find required attribute (destination)." (0) for an `execute` without it.
    void Validate() const;

    /// Goes on to the next screen, and starts what comes before it. Null at the end of the page. A file that
    /// is not there is passed over in silence, one that cannot be started is shown as an error, and the walk
    /// goes on; `wait` blocks until the program's end. Raises as `Validate`.
    [[nodiscard]] const MXMLItem* NextItem(const MPathMacros& macros, MUserDialogs& dialogs);
    /// Starts what is left of the page, and passes over its screens.
    void Finish(const MPathMacros& macros, MUserDialogs& dialogs) {
        while (NextItem(macros, dialogs)) {}
    }

private:
    [[nodiscard]] bool IsChosen(const MXMLItem& execute, const MString& destination) const;

    const MXMLItem& page;
    const MExecuteScope scope;
    int32_t cursor = 0;
};
