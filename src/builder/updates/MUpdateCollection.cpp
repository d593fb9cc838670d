#include "builder/updates/MUpdateCollection.h"

#include "builder/checks/MFileNameRules.h"
#include "builder/checks/MUpdateFileCheck.h"
#include "builder/definition/MDefinitionText.h"
#include "builder/definition/MSortedFileList.h"
#include "builder/reports/MPayloadFile.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"

#include <algorithm>
#include <string_view>

namespace {

using Entry = MUpdateCollection::Entry;

bool IsBefore(const Entry& left, const Entry& right) {
    if (left.offer.isPackage != right.offer.isPackage) return right.offer.isPackage;
    return MFileTimeFromText(left.offer.time) < MFileTimeFromText(right.offer.time);
}

/// Two that follow one another among the updates, or among the packages.
MString FindFault(const Entry& first, const Entry& second) {
    if (first.offer.time.IsExactly(second.offer.time))
        return MFormat(
            "{0} and {1} have the same time, {2}, by which an installation knows them. Give one another "
            "time.",
            first.fileName, second.fileName, first.offer.time);
    if (!second.offer.isPackage && !second.offer.baseTime.IsExactly(first.offer.time))
        return MFormat(
            "{0} is laid over the version of {1}, and is installed after {2}, which leads to that of {3}. "
            "Make it from that version, or take one of them away.",
            second.fileName, second.offer.baseTime, first.fileName, first.offer.time);
    return MString();
}

}  // namespace

void MUpdateCollection::Read(const MString& directory, MList<MString>& problems, MList<MString>& passed) {
    for (const MFileListEntry& entry : MGetSortedFileList(directory)) {
        const MString path = MFile::Join(directory, entry.name);
        if (MFile::GetExtension(entry.name) == "dat" && MFile::IsFile(path) && !MFile::IsDevice(path))
            ReadFile(path, problems);
        else
            passed.Add(entry.name);
    }
    if (!problems.IsEmpty()) return;
    if (entries.empty())
        problems.Add(MFormat(
            "\"{0}\" holds no updates. Put the .dat files of \"update\" and \"package\" there.", directory));
    std::stable_sort(entries.begin(), entries.end(), IsBefore);
    CheckNeighbours(problems);
}

void MUpdateCollection::ReadFile(const MString& path, MList<MString>& problems) {
    const MString name = MFile::GetFileName(path);
    const auto add = [&](const MString& fault) { problems.Add(name + " " + fault); };
    if (!IsRequestName(MFile::GetBaseName(name)) || !MFileNameRules::FindFault(name).IsEmpty())
        add("cannot be asked for by that name. Use letters of English, digits, \"-\", \"_\" and \".\", and no \".\" "
            "in front.");
    try {
        MPayloadFile payload(path);
        const MXMLItem& root = payload.GetLibrary();
        if (!MIsUpdate(root) || payload.GetProgramSize() >= 0)
            return add("is no update for a server. Make it by \"update\" or \"package\" without --stub.");
        const MList<MString> faults = MFindUpdateFaults(root);
        for (const MString& fault : faults) add(fault);
        if (faults.IsEmpty())
            entries.push_back({MUpdateInformation::Read(*root.GetSubItem("updateinformation")), path, name,
                               payload.GetPayloadSize()});
    } catch (const MException& exception) {
        add("cannot be used: " + exception.GetMessage());
    }
}

void MUpdateCollection::CheckNeighbours(MList<MString>& problems) const {
    for (size_t i = 1; i < entries.size(); ++i) {
        const Entry& first = entries[i - 1];
        const Entry& second = entries[i];
        if (!(first.offer.installationName == second.offer.installationName))
            problems.Add(
                MFormat("{0} is for \"{1}\", and {2} for \"{3}\". Give each product a directory of its own.",
                        first.fileName, first.offer.installationName, second.fileName,
                        second.offer.installationName));
        if (first.offer.isPackage != second.offer.isPackage) continue;
        if (const MString fault = FindFault(first, second); !fault.IsEmpty()) problems.Add(fault);
    }
}

void MUpdateCollection::MakeIndex(MXMLItem& root) const {
    root.SetName("updates");
    for (const Entry& entry : entries) {
        MXMLItem& item = *root.AddSubItem("update");
        entry.offer.WriteTo(item);
        item.SetAttribute("filename", entry.fileName);
        item.SetAttribute("size", entry.size);
    }
}

bool MUpdateCollection::IsRequestName(const MString& name) {
    constexpr int32_t MaximumLength = 100;
    if (name.IsEmpty() || name.GetLength() > MaximumLength || name[0] == MChar('.')) return false;
    for (int32_t i = 0; i < name.GetLength(); ++i)
        if (!name[i].IsAlphanumeric() &&
            std::u16string_view(u"-_.").find(name[i]) == std::u16string_view::npos)
            return false;
    return true;
}
