#include "builder/updates/MUpdateTree.h"

#include "builder/updates/MUpdateFiles.h"
#include "builder/updates/MUpdatePaths.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLSubItems.h"

#include <algorithm>

namespace {

using Elements = std::vector<const MXMLItem*>;

Elements GetElements(const MXMLItem& parent, const char* name) {
    Elements elements;
    for (const MXMLItem& item : MXMLSubItems(parent, name)) elements.push_back(&item);
    return elements;
}

MString DescribeElement(size_t index, const MXMLItem& files) {
    return MFormat("files {0} (\"{1}\")", static_cast<int64_t>(index + 1), files.GetAttribute("name", ""));
}

bool HasContent(const MXMLItem& files) {
    return std::ranges::any_of(files.GetSubItems(), [](const MXMLItem* child) {
        return child->GetName() == "dir" || child->GetName() == "file";
    });
}

/// The passes over the files of an element: itself, and its copies.
Elements GetPasses(const MXMLItem& files) {
    Elements passes = GetElements(files, "copy");
    passes.insert(passes.begin(), &files);
    return passes;
}

/// What decides where the files of a pass go, and what happens to them; the first is the destination.
MList<MString> DescribePass(const MXMLItem& files, const MXMLItem& pass) {
    MList<MString> described;
    described.Add(MUpdatePaths::GetDirectory(files, pass));
    for (const char* attribute : {"rewritable", "uninstall", "createpath", "windows"})
        described.Add(MNumberToText(pass.GetInt32Attribute(attribute, 1)));
    for (const char* attribute : {"linux", "ignoresubdirs"})
        described.Add(pass.GetAttribute(attribute, attribute == MString("linux") ? "" : "0"));
    const MItemExtensions extensions = MGetItemExtensions(pass);
    for (const MString& extension : extensions.sourceExtensions) described.Add(extension);
    for (const MString& extension : extensions.destinationExtensions) described.Add(extension);
    return described;
}

bool IsEqual(const MList<MString>& first, const MList<MString>& second) {
    return std::ranges::equal(
        first, second, [](const MString& left, const MString& right) { return left.IsExactly(right); });
}

}  // namespace

void MUpdateTree::Build(MList<MString>& problems) {
    if (!IsComparable(problems)) return;
    offer.WriteInformation(*root.AddSubItem("updateinformation"));
    const Elements oldElements = GetElements(older.GetRoot(), "files");
    const Elements newElements = GetElements(newer.GetRoot(), "files");
    const MUpdateTargets targets(newer.GetRoot());
    MUpdateFiles files(older, newer, targets);
    bool isAnyChanged = false;
    for (size_t i = 0; i < newElements.size(); ++i) {
        const MXMLItem& old = *oldElements[i];
        MXMLItem& target = *root.AddSubItem("files");
        for (const char* attribute : {"name", "destination"})
            if (const MString value = newElements[i]->GetAttribute(attribute, ""); !value.IsEmpty())
                target.SetAttribute(attribute, value);
        // What a package is not about need not be there to make it.
        const bool isLeftOut = offer.isPackage && !HasContent(*newElements[i]);
        if (!isLeftOut && files.Write(old, *newElements[i], target)) {
            isAnyChanged = true;
            if (MUpdatePaths::IsSingleFile(old)) target.SetAttribute("removelastfilefrompath", 1);
            if (offer.isPackage && HasContent(old))
                problems.Add(MFormat(
                    "{0}: A package fills only what the product leaves empty, and here the product has files. "
                    "Give back its files, or make an update.",
                    DescribeElement(i, old)));
        } else {
            target.RemoveAllSubItems();
            target.SetAttribute("unchanged", 1);
        }
    }
    contents = files.GetContents();
    if (!isAnyChanged)
        problems.Add(MFormat("\"{0}\" and \"{1}\" install the same files. Name the older version first.",
                             older.GetPath(), newer.GetPath()));
}

bool MUpdateTree::IsComparable(MList<MString>& problems) const {
    const int32_t count = problems.GetCount();
    const Elements oldElements = GetElements(older.GetRoot(), "files");
    const Elements newElements = GetElements(newer.GetRoot(), "files");
    for (size_t i = 0; i < std::min(oldElements.size(), newElements.size()); ++i) {
        const MString place = DescribeElement(i, *oldElements[i]);
        CompareElements(place, *oldElements[i], *newElements[i], problems);
        if (MUpdatePaths::IsSingleFile(*oldElements[i])) CheckSingleFile(place, *oldElements[i], problems);
    }
    if (oldElements.size() != newElements.size())
        problems.Add(MFormat(
            "The older version has {0} \"files\" elements, and the newer one {1}. An installation keeps those "
            "it was installed with: put the new files into one that is there, and empty one that is no longer "
            "used instead of taking it away.",
            static_cast<int64_t>(oldElements.size()), static_cast<int64_t>(newElements.size())));
    return problems.GetCount() == count;
}

void MUpdateTree::CompareElements(const MString& place, const MXMLItem& old, const MXMLItem& now,
                                  MList<MString>& problems) const {
    const Elements oldPasses = GetPasses(old);
    const Elements newPasses = GetPasses(now);
    if (oldPasses.size() != newPasses.size())
        problems.Add(MFormat(
            "{0}: It has {1} \"copy\" elements, and had {2}. An installation keeps those it was installed with: "
            "give back what was there.",
            place, static_cast<int64_t>(newPasses.size() - 1), static_cast<int64_t>(oldPasses.size() - 1)));
    for (size_t i = 0; i < std::min(oldPasses.size(), newPasses.size()); ++i) {
        const MString part = i == 0 ? place : MFormat("{0}, copy {1}", place, static_cast<int64_t>(i));
        const MList<MString> before = DescribePass(old, *oldPasses[i]);
        const MList<MString> after = DescribePass(now, *newPasses[i]);
        if (!before[0].IsExactly(after[0]))
            problems.Add(MFormat(
                "{0}: It goes to \"{1}\", and went to \"{2}\". An installation keeps its destinations, and "
                "\"files\" elements are matched by their order: give back the order, or the destination.",
                part, after[0], before[0]));
        else if (!IsEqual(before, after))
            problems.Add(MFormat(
                "{0}: One of rewritable, uninstall, createpath, ignoresubdirs, windows, linux and the "
                "extensions differs. An installation keeps those it was installed with: give back what "
                "was there.",
                part));
    }
}

void MUpdateTree::CheckSingleFile(const MString& place, const MXMLItem& old, MList<MString>& problems) const {
    MXMLItem file("file");
    file.SetAttribute("name", MUpdatePaths::GetName(old, *old.FindSubItem("file")));
    for (const MXMLItem* pass : GetPasses(old)) {
        MString destination = pass->GetAttribute("destination", "");
        destination.ReplaceChar(MChar('\\'), "/");
        const MString name = MFile::GetFileName(destination);
        // The installation takes a last name with a dot away, and this each time.
        const bool isCut = name.Contains(".");
        const bool isCutTwice = MFile::GetFileName(MUpdatePaths::GetDirectory(old, *pass)).Contains(".");
        const bool isNamed = name == MGetItemName(old, file, MGetItemExtensions(*pass));
        if (isCut && !isCutTwice && isNamed) continue;
        problems.Add(MFormat(
            "{0}: Its destination \"{1}\" names a file, and no update can go there: the file must have an "
            "extension, its directory none, and all copies its name. Only a new installation can change that.",
            place, destination));
    }
}
