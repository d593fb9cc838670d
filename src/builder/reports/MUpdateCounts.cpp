#include "builder/reports/MUpdateCounts.h"

#include "foundation/text/MStringFormatter.h"

MString MUpdateCounts::Describe() const {
    return MFormat("{0} created, {1} updated, {2} deleted, {3} left", created, updated, deleted, left);
}

void MUpdateCounts::Count(const MXMLItem& item) {
    for (const MXMLItem* child : item.GetSubItems()) {
        Count(*child);
        if (!(child->GetName() == "file")) continue;
        const MString op = child->GetAttribute("op", "");
        if (op == "create") ++created;
        if (op == "update") ++updated;
        if (op == "delete") ++deleted;
        if (op == "leave") ++left;
    }
}
