#pragma once

#include "foundation/base/MList.h"
#include "foundation/xml/MXMLItem.h"

/// One switch of the component page: all `files` and `copy` elements of one name.
struct MComponentRow {
    MString name;
    MString description;
    MList<MXMLItem, MListPointers> elements;
    bool checked = true;
};

/// What of a product can be chosen: the rows that its `files` and `copy` elements make, and the
/// `enabled` attributes that come of them. Rows stand in the order of the definition.
class MComponentRows {
public:
    /// Makes the rows and writes `enabled` on every element: 0 where the platform lacks it, else 1.
    /// Raises "Could not find required attribute ({0})." (0) for a row without `name`.
    explicit MComponentRows(MXMLItem& definition);

    [[nodiscard]] int32_t GetCount() const { return rows.GetCount(); }
    [[nodiscard]] MComponentRow& GetRow(int32_t index) const { return *rows[index]; }
    /// The row of that name, or null.
    [[nodiscard]] MComponentRow* Find(const MString& name) const;

    /// Sets every row to what the `configurations` of its first element say about a configuration.
    void ApplyConfiguration(const MString& configurationId);
    /// Writes the state of each row as `enabled` on its elements.
    void Store();

private:
    void AddComponent(MXMLItem& element);

    MList<MComponentRow, MListOwning> rows;
};
