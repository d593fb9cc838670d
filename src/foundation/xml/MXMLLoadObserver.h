#pragma once

#include <cstdint>

class MXMLItem;

/// Hears where the items of a document stand, for messages to the document's author.
class MXMLLoadObserver {
public:
    virtual ~MXMLLoadObserver() = default;
    /// An item was opened; its name and attributes are there. Lines count from 1.
    virtual void OnItemOpened(const MXMLItem& item, int32_t line) = 0;
};
