#include "foundation/files/MRegistryHandle.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MOutputFile.h"
#include "streams/basic/MStdFileStream.h"
#include "streams/hashes/MMD5Text.h"

#include <string>

// A key is a directory whose name ends in ".key", a value a file whose name ends in ".value". Such a file
// holds a line with the type, "text" or "number", and then the value: the text in UTF-8, the number in
// decimal.

namespace {

/// Any name as the name of a file: what is no lower-case letter or digit becomes a percent sign and two
/// digits for each byte. Of a name that is too long for a file a digest stands for the end.
MString EscapeName(const MString& name) {
    constexpr int32_t LongestName = 200;
    constexpr int32_t KeptLength = 160;
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
    if (escaped.GetLength() <= LongestName) return escaped;
    const std::string whole = MEncodeUTF8Exact(escaped);
    const MString digest = MMD5OfBlock(whole.data(), static_cast<int32_t>(whole.size()));
    return escaped.Substring(0, KeptLength) + "+" + digest.ToLower();
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

class DirectoryHandle final : public MRegistryHandle {
public:
    explicit DirectoryHandle(const MString& directory) : directory(directory) {}

    std::shared_ptr<MRegistryHandle> Open(const MString& name) const override {
        const MString path = GetKeyDirectory(name);
        return MFile::IsDirectory(path) ? std::make_shared<DirectoryHandle>(path) : nullptr;
    }
    std::shared_ptr<MRegistryHandle> Create(const MString& name) const override {
        MGuard("MRegistryKey::Create", [&] { MFile::CreatePath(GetKeyDirectory(name)); });
        return Open(name);
    }
    bool Delete(const MString& name) const override {
        bool isDeleted = false;
        MGuard("MRegistryKey::Delete", [&] { isDeleted = TryDelete(GetKeyDirectory(name)); });
        return isDeleted;
    }
    bool Read(const MString& name, MString& value) const override {
        return MGuard("MRegistryKey::GetValue", [&] {
            MStdFileStream file;
            file.Open(GetValueFile(name), MOpenRead);
            (void)file.LoadRequiredLine();
            MMemoryStream bytes;
            file.CopyAllTo(bytes);
            value = MDecodeUTF8Exact({bytes.GetBuffer().Get(), static_cast<size_t>(bytes.GetSize())});
        });
    }
    bool WriteText(const MString& name, const MString& text) override {
        return Write(name, "text\n" + MEncodeUTF8Exact(text));
    }
    bool WriteNumber(const MString& name, int32_t number) override {
        return Write(name, "number\n" + std::to_string(number));
    }

private:
    [[nodiscard]] MString GetKeyDirectory(const MString& name) const {
        MString path = directory;
        for (const MString& component : name.Split('\\'))
            path = MFile::Join(path, EscapeName(component) + ".key");
        return path;
    }
    [[nodiscard]] MString GetValueFile(const MString& name) const {
        return MFile::Join(directory, EscapeName(name) + ".value");
    }
    [[nodiscard]] bool Write(const MString& name, const std::string& content) const {
        return MGuard("MRegistryKey::SetValue", [&] {
            MOutputFile file(GetValueFile(name));
            file.Write(content.data(), static_cast<int32_t>(content.size()));
            file.Commit();
        });
    }

    MString directory;
};

}  // namespace

std::shared_ptr<MRegistryHandle> MRegistryHandle::OpenRoot(MRegistryRoot root) {
    static constexpr const char* names[] = {"classes", "user", "machine"};
    const auto folder = root == MRegistryRoot::CurrentUser ? MSpecialFolderUserData : MSpecialFolderData;
    const MString registry = MFile::Join(MFile::GetSpecialPath(folder), "registry");
    return std::make_shared<DirectoryHandle>(MFile::Join(registry, names[static_cast<int>(root)]));
}
