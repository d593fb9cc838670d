#include "setup/choices/MDirectoryChoices.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/definition/MPlatformElement.h"
#include "streams/basic/MOutputFile.h"

/// "DefaultPaths.xml" in the user's data directory of the maker: the directories that were chosen last,
/// shared by all the maker's installers. Each changes only its own keys.
class MDefaultPaths {
public:
    /// Reads the file; a failure of any kind gives an empty table.
    MDefaultPaths();

    /// The directory remembered under a key, or empty.
    [[nodiscard]] MString Get(const MString& key) const;
    void Set(const MString& key, const MString& path);
    /// Raises what saving raises.
    void Save();

private:
    MString file;
    MXMLItem paths;
};

MDefaultPaths::MDefaultPaths()
    : file(MFile::Join(MFile::GetSpecialPath(MSpecialFolderUserData), "DefaultPaths.xml")) {
    const bool isRead = MGuard("DefaultPaths load", [this] { paths.LoadFile(file); });
    if (!isRead) paths.CopyFrom(MXMLItem());
    paths.SetName("DefaultPaths");
}

MString MDefaultPaths::Get(const MString& key) const {
    const MXMLItem* path = paths.FindSubItem("Path", "id", key);
    return path ? path->GetValue() : MString();
}

void MDefaultPaths::Set(const MString& key, const MString& path) {
    paths.GetOrAddSubItem("Path", "id", key)->SetValue(path);
}

void MDefaultPaths::Save() {
    MFile::CreatePath(MFile::GetDirectory(file));
    MOutputFile output(file);
    paths.Save(output, false, "utf-8");
    output.Commit();
}

namespace {

bool UsesMacro(const MXMLItem& pass, const MString& macro) {
    return pass.GetInt32Attribute("enabled", 0) != 0 && pass.GetAttribute("destination", "").Contains(macro);
}

/// The directory of an earlier installation, or empty.
MString FindInstallation(const MString& installationName) {
    MString directory;
    MGuard("Installation path", [&] { directory = MFile::GetSoftwareInstallationPath(installationName); });
    return directory;
}

}  // namespace

MDirectoryChoices::MDirectoryChoices(MSetupSession& session) : session(session) {
    for (MXMLItem& element : MXMLSubItems(session.GetDefinition(), "directory")) {
        element.SetAttribute("Available", "0");
        if (!MIsForThisPlatform(element)) continue;
        const bool needs64Bit = element.GetInt32Attribute("x64", 0) != 0;
        if (needs64Bit && !(session.UseX64 && MPlatform::Is64BitSystem())) continue;
        element.SetAttribute("Available", "1");
        (void)element.GetAttribute("id");
        (void)element.GetAttribute("name");
        rows.Add({&element, MString()});
    }
}

MDirectoryRow* MDirectoryChoices::Find(const MString& id) {
    for (MDirectoryRow& row : rows)
        if (row.element->GetAttribute("id") == id) return &row;
    return nullptr;
}

void MDirectoryChoices::LoadDefaults() {
    session.CreatePathMacros();
    const MDefaultPaths remembered;
    for (MDirectoryRow& row : rows) row.path = Propose(*row.element, remembered);
}

MString MDirectoryChoices::Propose(const MXMLItem& element, const MDefaultPaths& remembered) const {
    if (element.GetAttribute("id") == "destination") {
        const MString installation = FindInstallation(session.GetInstallationName());
        if (!installation.IsEmpty() && !HoldsMacro(installation)) return installation;
    } else if (element.GetInt32Attribute("StoreSystemDefaults", 0) != 0) {
        const MString path = remembered.Get(GetKey(element));
        if (!path.IsEmpty() && MFile::IsDirectory(path) && !HoldsMacro(path)) return path;
    }
    return ProposeDefault(element);
}

MString MDirectoryChoices::ProposeDefault(const MXMLItem& element) const {
    MList<MString> proposals;
    const auto add = [&](const MString& text) {
        proposals.Add(MFile::Normalize(session.Macros.ExpandMacros(text)));
    };
    add(element.GetAttribute("default"));
    for (const MXMLItem& fallback : MXMLSubItems(element, "default")) add(fallback.GetValue());

    for (const MString& proposal : proposals)
        if (MFile::Exists(proposal)) return proposal;
    for (const MString& proposal : proposals)
        if (MFile::Exists(MFile::GetDirectory(proposal))) return proposal;
    return proposals[0];
}

MString MDirectoryChoices::GetKey(const MXMLItem& element) const {
    const MString id = element.GetAttribute("id");
    return session.UseX64 ? id + "64" : id;
}

bool MDirectoryChoices::UpdateAvailability() {
    bool isNoneUsed = true;
    for (const MDirectoryRow& row : rows) {
        const bool isUsed = IsUsed(*row.element);
        row.element->SetAttribute("Available", isUsed ? "1" : "0");
        if (isUsed) isNoneUsed = false;
    }
    return isNoneUsed;
}

bool MDirectoryChoices::IsUsed(const MXMLItem& element) const {
    const MString macro = MPathMacros::GetKey(element.GetAttribute("id"));
    for (const MXMLItem& files : MXMLSubItems(session.GetDefinition(), "files")) {
        if (UsesMacro(files, macro)) return true;
        for (const MXMLItem& copy : MXMLSubItems(files, "copy"))
            if (UsesMacro(copy, macro)) return true;
    }
    return false;
}

/// Whether the key of a macro stands in a path: of a folder, or of one of the directories themselves.
bool MDirectoryChoices::HoldsMacro(const MString& path) const {
    for (const MDirectoryRow& row : rows)
        if (path.Contains(MPathMacros::GetKey(row.element->GetAttribute("id")))) return true;
    return !session.Macros.FindKey(path).IsEmpty();
}

void MDirectoryChoices::Store() {
    for (const MDirectoryRow& row : rows) row.element->SetAttribute("path", MFile::Normalize(row.path));
}

void MDirectoryChoices::Remember() const {
    MGuard("DefaultPaths save", [this] {
        MDefaultPaths remembered;
        for (const MDirectoryRow& row : rows)
            if (row.element->GetInt32Attribute("StoreSystemDefaults", 0) != 0)
                remembered.Set(GetKey(*row.element), MFile::Normalize(row.path));
        remembered.Save();
    });
}
