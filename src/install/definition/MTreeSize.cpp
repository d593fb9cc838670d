#include "install/definition/MTreeSize.h"

#include "foundation/base/MAddSize.h"

namespace {

void AddTree(const MXMLItem& parent, MTreeSize& size) {
    for (const MXMLItem* item : parent.GetSubItems()) {
        AddTree(*item, size);
        if (!(item->GetName() == "file")) continue;
        const MString op = item->GetAttribute("op", "");
        if (op == "leave") continue;
        ++size.count;
        if (op == "create" || op == "update") MAddSize(size.bytes, item->GetInt64Attribute("filesize", 0));
    }
}

}  // namespace

MTreeSize MMeasureTree(const MXMLItem& files) {
    MTreeSize size;
    AddTree(files, size);
    return size;
}
