#include "foundation/files/MRegistryKey.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MOutputFile.h"
#include "streams/basic/MStdFileStream.h"

#include <utility>

// A key is a directory whose name ends in ".key", a value a file whose name ends in ".value". Such a file
// holds a line with the type, "text" or "number", and then the value: the text in UTF-8, the number in
// decimal.

namespace {

/// Any name as the name of a file: what is no lower-case letter or digit becomes a percent sign and two
/// digits for each byte.
MString EscapeName(const MString& name) {
    MString escaped;
    for (const char byte : MEncodeUTF8Exact(name.ToLower())) {
        const MChar character(byte);
        if (character.IsLowerLetter() || character.IsDigit() || byte == '-' || byte == '_') {
            escaped.Append(character);
            continue;
        }
        escaped.Append(u'%');
        escaped.Append(MChar::FromHexDigit(static_cast<uint8_t>(byte) >> 4));
        escaped.Append(MChar::FromHexDigit(static_cast<uint8_t>(byte)));
    }
    return escaped;
}

MString GetRootDirectory(MRegistryRoot root) {
    static constexpr const char* names[] = {"classes", "user", "machine"};
    const auto folder = root == MRegistryRoot::CurrentUser ? MSpecialFolderUserData : MSpecialFolderData;
    return MFile::Join(MFile::Join(MFile::GetSpecialPath(folder), "registry"), names[static_cast<int>(root)]);
}

MString GetValueFile(const MString& directory, const MString& name) {
    return MFile::Join(directory, EscapeName(name) + ".value");
}

/// Deletes a key that has no subkeys; false if it has.
bool TryDelete(const MString& directory) {
    const MList<MFileListEntry> entries = MFile::GetFileList(directory);
    for (const MFileListEntry& entry : entries)
        if (entry.isDirectory) return false;
    for (const MFileListEntry& entry : entries) MFile::Delete(MFile::Join(directory, entry.name));
    MFile::RemoveDirectory(directory);
    return true;
}

void WriteValue(const MString& directory, const MString& name, const std::string& content) {
    try {
        MOutputFile file(GetValueFile(directory, name));
        file.Write(content.data(), static_cast<int32_t>(content.size()));
        file.Commit(false);
    } catch (const MException&) {
        MRaise(MExceptionGeneral, "Cannot set registry value {0}.", name);
    }
}

}  // namespace

struct MRegistryKey::Handle {
    explicit Handle(const MString& directory) : directory(directory) {}

    /// Where the key of this name stands or would stand.
    static MString GetDirectory(const Parent& parent, const MString& name) {
        MString directory = parent.key ? parent.key->GetHandle().directory : GetRootDirectory(parent.root);
        for (const MString& component : name.Split('\\'))
            directory = MFile::Join(directory, EscapeName(component) + ".key");
        return directory;
    }

    MString directory;
};

MRegistryKey::MRegistryKey() = default;
MRegistryKey::MRegistryKey(MRegistryKey&& other) noexcept = default;
MRegistryKey& MRegistryKey::operator=(MRegistryKey&& other) noexcept = default;
MRegistryKey::~MRegistryKey() = default;

MRegistryKey::Handle& MRegistryKey::GetHandle() const {
    if (!handle) MRaise(MExceptionGeneral, "The registry key has not been opened.");
    return *handle;
}

void MRegistryKey::Open(Parent parent, const MString& name) {
    const MString directory = Handle::GetDirectory(parent, name);
    if (!MFile::IsDirectory(directory)) MRaise(MExceptionGeneral, "Cannot open registry key {0}.", name);
    handle = std::make_unique<Handle>(directory);
}

void MRegistryKey::Create(Parent parent, const MString& name) {
    const MString directory = Handle::GetDirectory(parent, name);
    try {
        MFile::CreatePath(directory);
    } catch (const MException&) {
        MRaise(MExceptionGeneral, "Cannot create registry key {0}.", name);
    }
    handle = std::make_unique<Handle>(directory);
}

void MRegistryKey::Delete(Parent parent, const MString& name) {
    const MString directory = Handle::GetDirectory(parent, name);
    bool isDeleted = false;
    MGuard("MRegistryKey::Delete", [&] { isDeleted = TryDelete(directory); });
    if (!isDeleted) MRaise(MExceptionGeneral, "Cannot delete registry key {0}.", name);
}

void MRegistryKey::Close() {
    handle = nullptr;
}

MString MRegistryKey::GetValue(const MString& name) const {
    try {
        MStdFileStream file;
        file.Open(GetValueFile(GetHandle().directory, name), MOpenRead);
        (void)file.LoadRequiredLine();
        MMemoryStream value;
        file.CopyAllTo(value);
        return MDecodeUTF8Exact({value.GetBuffer().Get(), static_cast<size_t>(value.GetSize())});
    } catch (const MException&) {
        MRaise(MExceptionGeneral, "Cannot get registry value {0}", name);
    }
}

void MRegistryKey::SetValue(const MString& name, const MString& text) {
    WriteValue(GetHandle().directory, name, "text\n" + MEncodeUTF8Exact(text));
}

void MRegistryKey::SetValue(const MString& name, int32_t number) {
    WriteValue(GetHandle().directory, name, "number\n" + std::to_string(number));
}
