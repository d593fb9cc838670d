#include "foundation/xml/MXMLItemIterator.h"

#include "foundation/base/MException.h"

void MXMLItemIterator::Initialize(MXMLItem& newParent, const MString& newFilter, Match newMatch) {
    parent = &newParent;
    current = nullptr;
    filter = newFilter;
    index = -1;
    staysAtIndex = false;
    match = newMatch;
}

MXMLItem* MXMLItemIterator::Next() {
    current = nullptr;
    if (!parent) return nullptr;
    if (!staysAtIndex) ++index;
    staysAtIndex = false;
    for (; index < parent->GetSubItemCount(); ++index) {
        MXMLItem* item = parent->GetSubItem(index);
        if (Fits(*item)) return current = item;
    }
    return nullptr;
}

bool MXMLItemIterator::Fits(const MXMLItem& item) const {
    if (match == Match::Name) return item.GetName() == filter;
    return item.GetName().CompareNoCase(filter, filter.GetLength()) == 0;
}

MXMLItem* MXMLItemIterator::GetCurrent() const {
    if (!current) MRaise(MExceptionGeneral, "XML item iterator has not been initialized.");
    return current;
}

void MXMLItemIterator::RemoveCurrent() {
    static_cast<void>(GetCurrent());
    parent->RemoveSubItem(index);
    current = nullptr;
    staysAtIndex = true;
}
