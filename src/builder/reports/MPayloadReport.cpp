#include "builder/reports/MPayloadReport.h"

#include "builder/checks/MUpdateFileCheck.h"
#include "builder/definition/MUpdateInformation.h"
#include "builder/reports/MPayloadItem.h"
#include "builder/reports/MUpdateCounts.h"
#include "foundation/base/MAddSize.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MXMLSubItems.h"
#include "payload/MPayloadFormat.h"

#include <algorithm>

using namespace MPayloadFormat;

namespace {

MString DescribeFlags(uint32_t flags) {
    const char* method = flags & UseBzip2 ? "bzip2" : "zlib";
    return MFormat("{0} (items {1}, index {2})", flags, flags & ItemsCompressed ? method : "plain",
                   flags & IndexCompressed ? method : "plain");
}

const char* DescribeForm(const MPayloadFile& file) {
    if (file.GetFileSet()) return "file set";
    return file.GetProgramSize() >= 0 ? "executable with payload" : "data file";
}

MString PadLeft(const MString& text, int32_t width) {
    MString padded;
    padded.Append(MChar(' '), std::max(0, width - text.GetLength()));
    return padded + text;
}

/// Counts the `file` elements below an item that bring data, and their bytes.
void CountFiles(const MXMLItem& item, int32_t& count, int64_t& bytes) {
    for (const MXMLItem* child : item.GetSubItems()) {
        if (child->GetName() == "file" && !child->GetAttribute("filestart", "").IsEmpty()) {
            ++count;
            MAddSize(bytes, child->GetInt64Attribute("filesize", 0));
        }
        if (child->GetName() == "dir") CountFiles(*child, count, bytes);
    }
}

}  // namespace

void MPayloadReport::Print() {
    PrintFields();
    PrintOffer();
    PrintParts();
    PrintConfigurations();
    if (MIsUpdate(file.GetLibrary()))
        PrintChanges();
    else
        PrintComponents();
    PrintDirectories();
    PrintItems();
}

void MPayloadReport::PrintXML() {
    MString shown = MDecodeUTF8Exact(file.ReadIndexText());
    // XML reads both kinds of line ends as one, and a console has its own.
    shown.Replace("\r\n", "\n");
    while (shown.EndsWith("\n")) shown.Cut(shown.GetLength() - 1);
    output.Tell(shown);
}

void MPayloadReport::PrintFields() {
    const bool isExecutable = file.GetProgramSize() >= 0;
    if (!MIsUpdate(file.GetLibrary()))
        output.Tell(MFormat("product     {0}", file.GetLibrary().GetAttribute("name", "")));
    output.Tell(MFormat("form        {0}", DescribeForm(file)));
    if (isExecutable) output.Tell(MFormat("program     {0} bytes", file.GetProgramSize()));
    output.Tell(
        MFormat("payload     {0} bytes, {1} of them items", file.GetPayloadSize(), file.GetItemsSize()));
    output.Tell(MFormat("index       {0} bytes stored, {1} bytes of XML", file.GetIndexSize(),
                        static_cast<int64_t>(file.ReadIndexText().size())));
    output.Tell(MFormat("flags       {0}", DescribeFlags(file.GetFlags())));
    output.Tell(MFormat("digest      {0}", file.GetDigestText()));
}

void MPayloadReport::PrintOffer() {
    const MXMLItem* information = file.GetLibrary().FindSubItem("updateinformation");
    if (!information) return;
    const MUpdateInformation offer = MUpdateInformation::Read(*information);
    output.Tell(offer.isPackage ? "\nPackage" : "\nUpdate");
    const auto tell = [&](const char* what, const MString& value) {
        if (!value.IsEmpty()) output.Tell(MFormat("  {0}{1}", what, value));
    };
    tell("name        ", offer.name);
    tell("text        ", offer.text);
    tell("time        ", offer.time);
    tell("laid over   ", offer.baseTime);
    tell("product     ", offer.installationName);
    tell("shows       ", offer.showInfo);
    tell("executes    ", offer.execute);
    if (offer.restarts) output.Tell("  restarts");
}

void MPayloadReport::PrintParts() {
    const MMultiFileStream* set = file.GetFileSet();
    if (!set) return;
    output.Tell("\nParts");
    for (int32_t i = 0; i < set->GetPartCount(); ++i)
        output.Tell(MFormat("  {0}: {1} bytes", set->GetPartFileName(i), set->GetPartSize(i)));
}

void MPayloadReport::PrintConfigurations() {
    if (!file.GetLibrary().FindSubItem("configuration")) return;
    output.Tell("\nConfigurations");
    for (const MXMLItem* item : file.GetLibrary().GetSubItems())
        if (item->GetName() == "configuration")
            output.Tell(MFormat("  {0}: {1}", item->GetAttribute("id", ""), item->GetAttribute("name", "")));
}

void MPayloadReport::PrintComponents() {
    output.Tell("\nComponents");
    int32_t number = 0;
    for (const MXMLItem* files : file.GetLibrary().GetSubItems()) {
        if (!(files->GetName() == "files")) continue;
        int32_t count = 0;
        int64_t bytes = 0;
        CountFiles(*files, count, bytes);
        output.Tell(MFormat("  {0}: {1} files, {2} bytes, to {3}", MGetGroupFolder(*files, ++number), count,
                            bytes, files->GetAttribute("destination", "")));
        for (const MXMLItem* copy : files->GetSubItems())
            if (copy->GetName() == "copy")
                output.Tell(MFormat("    copied to {0}", copy->GetAttribute("destination", "")));
    }
}

void MPayloadReport::PrintChanges() {
    output.Tell("\nChanges");
    int32_t number = 0;
    for (const MXMLItem& files : MXMLSubItems(file.GetLibrary(), "files")) {
        const MString folder = MGetGroupFolder(files, ++number);
        const bool isUnchanged = files.GetInt32Attribute("unchanged", 0) != 0;
        output.Tell(
            MFormat("  {0}: {1}", folder, isUnchanged ? "unchanged" : MUpdateCounts(files).Describe()));
        PrintOps(files, folder);
    }
}

void MPayloadReport::PrintOps(const MXMLItem& parent, const MString& folder) {
    for (const MXMLItem* item : parent.GetSubItems()) {
        const MString path = folder + "/" + item->GetAttribute("name", "");
        const MString op = item->GetAttribute("op", "");
        if (!(op == "leave")) output.Tell(MFormat("    {0}  {1}", op, path));
        PrintOps(*item, path);
    }
}

void MPayloadReport::PrintDirectories() {
    if (!file.GetLibrary().FindSubItem("directory")) return;
    output.Tell("\nDirectories");
    for (const MXMLItem* item : file.GetLibrary().GetSubItems())
        if (item->GetName() == "directory")
            output.Tell(
                MFormat("  {{{0}}}: {1}", item->GetAttribute("id", ""), item->GetAttribute("default", "")));
}

void MPayloadReport::PrintItems() {
    constexpr int32_t NumberWidth = 14;
    output.Tell("\nItems");
    output.Tell("       start           size  path");
    for (const MPayloadItem& item : MCollectPayloadItems(file.GetLibrary()))
        output.Tell(PadLeft(item.element->GetAttribute("filestart", ""), NumberWidth - 2) + " " +
                    PadLeft(item.element->GetAttribute("filesize", ""), NumberWidth) + "  " + item.path);
}
