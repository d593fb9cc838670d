#include "update/MDownloadDefinition.h"

#include "foundation/xml/MXMLSubItems.h"

MDownloadDefinition::MDownloadDefinition(MStream& stream) {
    MXMLItem root;
    root.LoadCompressed(stream);
    id = root.GetAttribute("ID");
    for (const MXMLItem& mirror : MXMLSubItems(root, "Mirror")) {
        MString address = mirror.GetValue();
        if (!address.EndsWith("/")) address.Append("/");
        mirrors.Add(address + id + "/");
    }
}
