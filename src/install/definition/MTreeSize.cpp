#include "install/definition/MTreeSize.h"

#include "foundation/base/MAddSize.h"

MTreeSize MMeasureTree(const MXMLItem& files) {
    MList<MXMLItem, MListPointers> items;
    files.CollectSubItems("file", items);
    MTreeSize size;
    for (const MXMLItem* item : items) {
        const MString op = item->GetAttribute("op", "");
        if (op == "leave") continue;
        ++size.count;
        if (op == "create" || op == "update") MAddSize(size.bytes, item->GetInt64Attribute("filesize", 0));
    }
    return size;
}
