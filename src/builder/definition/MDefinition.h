#pragma once

#include "builder/output/MProblemList.h"
#include "foundation/xml/MXMLItem.h"
#include "foundation/xml/MXMLLoadObserver.h"

#include <unordered_map>

/// An install definition as its maker wrote it, with the line of each element and the place of its sources.
class MDefinition {
public:
    /// Reads the file at `path`, which becomes canonical. XML that cannot be read is a problem with its line,
    /// and gives false. Raises what opening and reading raise.
    bool Load(const MString& path, MProblemList& problems);

    [[nodiscard]] MXMLItem& GetRoot() { return root; }
    [[nodiscard]] const MXMLItem& GetRoot() const { return root; }
    /// Where an element stands; for one that was added later, where the element around it stands.
    [[nodiscard]] int32_t GetLine(const MXMLItem& item) const;
    /// Canonical path of a source: as it stands if it is absolute, else below the definition's directory.
    [[nodiscard]] MString GetSourcePath(const MString& name) const;

private:
    struct LineTable final : MXMLLoadObserver {
        void OnItemOpened(const MXMLItem& item, int32_t line) override { lines[&item] = line; }

        std::unordered_map<const MXMLItem*, int32_t> lines;
    };

    MXMLItem root;
    MString directory;
    LineTable table;
};
