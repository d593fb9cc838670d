#pragma once

#include "foundation/files/MFile.h"
#include "foundation/files/MSpecialFolders.h"
#include "foundation/text/MString.h"

#include <array>
#include <string>
#include <string_view>

/// The bytes of a file anywhere.
[[nodiscard]] std::string MReadTestFile(const MString& path);
/// Writes a file anywhere, with the directories that lead to it.
void MWriteTestFile(const MString& path, std::string_view content);

/// A directory of a test's own, deleted with all it holds at the end of the test.
class MScratch {
public:
    MScratch();
    MScratch(const MScratch&) = delete;
    MScratch& operator=(const MScratch&) = delete;
    ~MScratch();

    [[nodiscard]] const MString& GetPath() const { return path; }
    /// The canonical path of a name in the directory.
    [[nodiscard]] MString Join(const MString& name) const { return MFile::Join(path, name); }
    /// Writes a file, with the directories that lead to it, and gives its path.
    MString WriteFile(const MString& name, std::string_view content) const;
    [[nodiscard]] std::string ReadFile(const MString& name) const { return MReadTestFile(Join(name)); }
    /// The paths of all files and directories in it, relative, sorted, one a line; directories end in a
    /// slash.
    [[nodiscard]] std::string ListTree() const;

private:
    MString path;
};

/// Special folders in a directory of a test, in place of the machine's, as long as the object lives. Each row
/// is a directory named after it ("data", "userdata", "programfiles", ...), which is there only if somebody
/// creates it.
class MScratchFolders final : public MSpecialFolders {
public:
    explicit MScratchFolders(const MScratch& scratch);
    MScratchFolders(const MScratchFolders&) = delete;
    MScratchFolders& operator=(const MScratchFolders&) = delete;
    ~MScratchFolders() noexcept override { MFile::UseSpecialFolders(nullptr); }

    [[nodiscard]] MString GetPath(int32_t index) override { return GetPathOf(owner, MString(), index); }
    [[nodiscard]] MString GetPathOf(MFolderOwner of, const MString& installation, int32_t index) override;
    /// Whose folders this process may write to.
    void SetOwner(MFolderOwner newOwner) { owner = newOwner; }
    void SetPath(int32_t index, const MString& path) { paths[static_cast<size_t>(index)] = path; }

private:
    std::array<MString, MSpecialFolderCount> paths;
    MFolderOwner owner = MFolderOwner::Everybody;
};
