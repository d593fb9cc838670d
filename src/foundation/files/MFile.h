#pragma once

#include "foundation/base/MList.h"
#include "foundation/files/MSpecialFolders.h"
#include "foundation/text/MString.h"

#include <cstdint>
#include <functional>

/// An entry of a directory.
struct MFileListEntry {
    MString name;  ///< without the directory
    bool isDirectory = false;
};

/// Operations on paths and files.
///
/// Paths are canonical: absolute, with forward slashes and without a trailing one ("C:/dir/file" or, where
/// the platform has a root directory, "/dir/file"). Only the last step before a call of the platform turns
/// them into the platform's form. Failures are an `MException` with code 0 and the text given with each
/// operation; where it says "and the system's words", a blank and the system's own description follow.
///
/// Free of shared state except the current directory of the process and the special folders, which belong to
/// the main thread.
class MFile {
public:
    MFile() = delete;

    // Texts of paths (MFilePath.cpp); none of these touches the disk.

    /// The canonical form; an empty path stays empty. A relative path is put behind the current directory.
    /// "." and ".." inside a path stay, and there is no notion of network paths.
    [[nodiscard]] static MString Normalize(const MString& path);
    /// Whether a path begins at a drive or at the platform's root directory.
    [[nodiscard]] static bool IsAbsolute(const MString& path);
    /// `base`, a slash and `name`; "./" and "../" that lead `name` are worked off against `base`.
    /// Either of them empty gives the other.
    [[nodiscard]] static MString Join(const MString& base, const MString& name);
    /// The text before the last separator, empty if there is none; the root directory is its own.
    [[nodiscard]] static MString GetDirectory(const MString& path);
    /// The text after the last separator.
    [[nodiscard]] static MString GetFileName(const MString& path);
    /// The file name up to its last ".".
    [[nodiscard]] static MString GetBaseName(const MString& path);
    /// The file name after its last ".", empty if it has none.
    [[nodiscard]] static MString GetExtension(const MString& path);
    [[nodiscard]] static MString ChangeExtension(const MString& path, const MString& extension);
    /// The way that leads from `to` to `from`: a ".." for each component that only `to` has, then those that
    /// only `from` has.
    [[nodiscard]] static MString GetRelativePath(const MString& from, const MString& to);

    // Questions.

    /// An empty path exists. A link exists, whatever it leads to.
    [[nodiscard]] static bool Exists(const MString& path);
    /// An empty path and a bare drive are directories. Links are followed.
    [[nodiscard]] static bool IsDirectory(const MString& path);
    /// Exists and is no directory.
    [[nodiscard]] static bool IsFile(const MString& path);
    /// A symbolic link, or what the platform has in its place.
    [[nodiscard]] static bool IsLink(const MString& path);
    /// Something that is written through rather than replaced: a device, pipe or socket.
    [[nodiscard]] static bool IsDevice(const MString& path);
    /// A directory on a volume that answers. True for an empty path.
    [[nodiscard]] static bool IsValidDirectory(const MString& path);
    /// A directory that an installation has left its "setup.state" in.
    [[nodiscard]] static bool IsInstallation(const MString& path);
    /// Whether two paths lead to the same file or directory, by whatever links, short names or mapped drives.
    /// Two that lead to nothing are compared as texts.
    [[nodiscard]] static bool IsSame(const MString& first, const MString& second);
    /// Whether this process may write to a file, or create files in a directory.
    [[nodiscard]] static bool IsWritable(const MString& path);
    /// In bytes. Raises what `MStdFileStream::Open` raises.
    [[nodiscard]] static int64_t GetFileSize(const MString& path);
    /// Time of the last change, in microseconds since 1970-01-01 UTC.
    /// Raises "Cannot retrieve file time of  \"{0}\".".
    [[nodiscard]] static int64_t GetFileTime(const MString& path);

    // Operations that raise.

    /// Nothing for a directory that stands. Raises "Could not create path \"{0}\"." and the system's words.
    static void CreateDirectory(const MString& path);
    /// Creates the missing ancestors too. Raises as `CreateDirectory`, with the one that could not be
    /// created.
    static void CreatePath(const MString& path);
    /// Never replaces what stands at `to`. Raises "Could not rename file \"{0}\" to \"{1}\".".
    static void Rename(const MString& from, const MString& to);
    /// Deletes a file, a write-protected one too, or a link. Raises "Could not delete file \"{0}\".".
    static void Delete(const MString& path);
    /// Raises "Could not remove directory \"{0}\"." also for one that is not empty.
    static void RemoveDirectory(const MString& path);
    /// Deletes a directory with all it holds, or a file. Links are deleted, never followed.
    /// Raises as `Delete` and `RemoveDirectory`; what was deleted before stays deleted.
    static void DeleteTree(const MString& path);
    /// Copies the bytes of a file, or a directory with all it holds, into what may stand there.
    /// Raises as `CreatePath`, `GetFileList` and the operations of `MStdFileStream`.
    static void Copy(const MString& from, const MString& to);
    /// Lets everybody run a file who may read it. Raises "Could not make file \"{0}\" executable.".
    static void MakeExecutable(const MString& path);
    /// Sets the time of the last change. Raises "Could not set system times to {0}.".
    static void SetFileTime(const MString& path, int64_t time);
    /// Starts a program, or opens a file with the program that is there for it, in `directory` if that is not
    /// empty; it then is the current directory of this process from there on. With `wait` gives the exit
    /// code, else 0. Raises "Could not execute file \"{0}\"." and the system's words.
    static int32_t Execute(const MString& path, const MList<MString>& arguments, const MString& directory,
                           bool wait);
    /// Creates a link in the file `link`, to which the kind's extension is added. A target with "://" gives
    /// an internet shortcut. An empty description is replaced by the link's name.
    /// Raises "Could not create file link at \"{0}\" to \"{1}\"." and the system's words.
    static void CreateLink(const MString& link, const MString& target, const MString& arguments,
                           const MString& description);
    /// The file of a link that `CreateLink` has created; empty if there is none.
    [[nodiscard]] static MString FindLink(const MString& link);
    /// The working directory of a link file of `CreateLink`, which is the directory that its target is in.
    /// Empty for an internet shortcut, and for what cannot be read.
    [[nodiscard]] static MString GetLinkDirectory(const MString& file);
    /// Deletes what `CreateLink` has created. Raises as `Delete`.
    static void DeleteLink(const MString& link);
    /// The entries of a directory in the platform's order, without "." and "..". The filter is a wildcard
    /// pattern of the platform, empty for all. An empty directory gives the drives.
    /// Raises "Could not access path \"{0}\" to get file list.".
    [[nodiscard]] static MList<MFileListEntry> GetFileList(const MString& directory,
                                                           const MString& filter = MString());
    /// What the system takes a path for, in canonical form. Raises "Could not resolve path {0}.".
    [[nodiscard]] static MString ResolvePath(const MString& path);
    /// The directory of an installed product. Raises "Software installation has not been found. Please use
    /// the newest installer.".
    [[nodiscard]] static MString GetSoftwareInstallationPath(const MString& name);

    // Operations that swallow failures.

    /// Gets the directory that holds an entry, and the entry; a directory for which it gives false is not
    /// entered.
    using FileListCallback = std::function<bool(const MString& directory, const MFileListEntry& entry)>;
    /// Walks a directory, parents before their children. Links to directories are not entered; a branch that
    /// cannot be read is dropped.
    static void GetFileListRecursed(const MString& directory, const MString& filter,
                                    const FileListCallback& callback);
    /// Renames a file; moves a directory entry by entry into what may stand there.
    static void Move(const MString& from, const MString& to);
    /// Shows a web address in the user's browser.
    static void ExecuteWWW(const MString& url);

    // State of the process and the machine.

    [[nodiscard]] static MString GetCurrentPath();
    /// A failure is ignored.
    static void SetCurrentPath(const MString& path);
    [[nodiscard]] static MList<MString> GetDrives();
    /// The folder of an `MSpecialFolder`; empty if the platform does not give it.
    [[nodiscard]] static MString GetSpecialPath(int32_t index);
    /// Replaces the platform's folders, which null brings back. The object stays the caller's.
    static void UseSpecialFolders(MSpecialFolders* folders);
};
