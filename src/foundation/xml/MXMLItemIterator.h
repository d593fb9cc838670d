#pragma once

#include "foundation/xml/MXMLItem.h"

/// Walks the direct sub-items of an item that have a name, or whose name begins with a prefix, and may
/// remove them on the way.
class MXMLItemIterator {
public:
    enum class Match { Name, Prefix };

    MXMLItemIterator() = default;
    MXMLItemIterator(MXMLItem& parent, const MString& filter, Match match = Match::Name) {
        Initialize(parent, filter, match);
    }

    void Initialize(MXMLItem& newParent, const MString& newFilter, Match newMatch = Match::Name);
    /// The next sub-item that fits, or null at the end.
    MXMLItem* Next();
    /// Raises "XML item iterator has not been initialized." (0) before the first `Next` and after the last.
    [[nodiscard]] MXMLItem* GetCurrent() const;
    /// Deletes the current item; `Next` then gives the one behind it. Raises as `GetCurrent` does.
    void RemoveCurrent();

private:
    [[nodiscard]] bool Fits(const MXMLItem& item) const;

    MXMLItem* parent = nullptr;
    MXMLItem* current = nullptr;
    MString filter;
    int32_t index = -1;
    bool staysAtIndex = false;
    Match match = Match::Name;
};
