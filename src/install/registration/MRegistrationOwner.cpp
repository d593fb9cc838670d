#include "install/registration/MRegistrationOwner.h"

#include "foundation/files/MFile.h"

namespace {

struct Note {
    const char* attribute;
    MSpecialFolder folder;
};

constexpr Note LinkNote{"linkowner", MSpecialFolderStartMenuPrograms};
constexpr Note EntryNote{"entryowner", MSpecialFolderData};

const char* GetText(MFolderOwner owner) {
    return owner == MFolderOwner::Everybody ? "everybody" : "user";
}

MString GetPathOf(MFolderOwner owner, MSpecialFolder folder) {
    const MFolderOwnerScope scope(owner, MString());
    return MFile::GetSpecialPath(folder);
}

MFolderOwner FindOwner(MSpecialFolder folder) {
    const bool isShared = MFile::GetSpecialPath(folder).IsExactly(GetPathOf(MFolderOwner::Everybody, folder));
    return isShared ? MFolderOwner::Everybody : MFolderOwner::User;
}

MList<MFolderOwner> Read(const MXMLItem& state, const Note& note) {
    const MString text = state.GetAttribute(note.attribute, "");
    const MString shared = GetPathOf(MFolderOwner::Everybody, note.folder);
    const bool hasOne = shared.IsExactly(GetPathOf(MFolderOwner::User, note.folder));
    MList<MFolderOwner> owners;
    if (hasOne || !(text == GetText(MFolderOwner::User))) owners.Add(MFolderOwner::Everybody);
    if (!hasOne && !(text == GetText(MFolderOwner::Everybody))) owners.Add(MFolderOwner::User);
    return owners;
}

}  // namespace

void MRegistrationOwner::Note(MXMLItem& state) {
    for (const auto& note : {LinkNote, EntryNote})
        state.SetAttribute(note.attribute, GetText(FindOwner(note.folder)));
}

MList<MFolderOwner> MRegistrationOwner::OfLinks(const MXMLItem& state) {
    return Read(state, LinkNote);
}

MList<MFolderOwner> MRegistrationOwner::OfEntry(const MXMLItem& state) {
    return Read(state, EntryNote);
}
