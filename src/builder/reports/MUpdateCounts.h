#pragma once

#include "foundation/xml/MXMLItem.h"

/// How many files an update, or an element in it, brings, leaves and deletes.
class MUpdateCounts {
public:
    explicit MUpdateCounts(const MXMLItem& item) { Count(item); }

    /// "1 created, 2 updated, 3 deleted, 4 left".
    [[nodiscard]] MString Describe() const;

private:
    void Count(const MXMLItem& item);

    int32_t created = 0;
    int32_t updated = 0;
    int32_t deleted = 0;
    int32_t left = 0;
};
