#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// Keeps a folder to one process at a time: a file in it, which is gone when the lock is, and never outlives
/// a process as a lock. Where a process may not create files in the folder there is nothing to keep, and the
/// lock is none; in a folder that does not exist likewise.
class MFolderLock {
public:
    /// Takes the lock for `holder`, a name that others are told. Waits for at most `patienceMilliseconds`,
    /// and then raises "Another setup is at work in \"{0}\": {1}. ..." (0). On the way to the folder no link
    /// of another user is followed, which raises as in `MFile::CreateDirectory`.
    MFolderLock(const MString& folder, const MString& holder,
                int32_t patienceMilliseconds = PatienceMilliseconds, const MString& fileName = "setup.lock");
    MFolderLock(const MFolderLock&) = delete;
    MFolderLock& operator=(const MFolderLock&) = delete;
    ~MFolderLock();

    static constexpr int32_t PatienceMilliseconds = 5000;

private:
    enum class Attempt { Taken, Held, Impossible };
    /// Creates and locks the file, and writes the holder and the process into it.
    [[nodiscard]] Attempt Try(const MString& holder);
    /// Deletes the file.
    void Release();
    /// What the process that has the lock wrote, empty if that cannot be read.
    [[nodiscard]] MString ReadHolder() const;

    static constexpr intptr_t None = -1;

    const MString path;
    intptr_t file = None;  ///< the system's handle
};
