#pragma once

#include "foundation/base/MList.h"
#include "install/definition/MSetupSession.h"

class MDefaultPaths;

/// One directory that the user can choose: its `directory` element and the path that stands in its field.
struct MDirectoryRow {
    MXMLItem* element;
    MString path;
};

/// Where a product's parts go: a row for each `directory` element that matters on this system, a
/// proposal for each, and the `path` and `Available` attributes that come of them.
class MDirectoryChoices {
public:
    /// Makes the rows and writes `Available`. A directory only for 64-bit runs has a row only if the
    /// session's configuration is one already.
    /// Raises "Could not find required attribute ({0})." (0) for a row without `id` or `name`.
    explicit MDirectoryChoices(MSetupSession& session);

    [[nodiscard]] int32_t GetCount() const { return rows.GetCount(); }
    [[nodiscard]] MDirectoryRow& GetRow(int32_t index) { return rows[index]; }
    /// The row of that id, or null.
    [[nodiscard]] MDirectoryRow* Find(const MString& id);

    /// Rebuilds the macros and proposes a path for every row: an earlier installation, the directory
    /// remembered from another product, or the default that finds most on this machine. Raises what
    /// `MSetupSession::CreatePathMacros` raises.
    void LoadDefaults();
    /// Writes on each element whether an enabled part uses it. True if none is used.
    bool UpdateAvailability();
    /// Writes the paths on the elements.
    void Store();
    /// Remembers the paths for the next installation; a failure is silent.
    void Remember() const;

private:
    [[nodiscard]] MString Propose(const MXMLItem& element, const MDefaultPaths& remembered) const;
    [[nodiscard]] MString ProposeDefault(const MXMLItem& element) const;
    [[nodiscard]] MString GetKey(const MXMLItem& element) const;
    [[nodiscard]] bool IsUsed(const MXMLItem& element) const;
    [[nodiscard]] bool HoldsMacro(const MString& path) const;

    MSetupSession& session;
    MList<MDirectoryRow> rows;
};
