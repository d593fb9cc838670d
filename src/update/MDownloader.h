#pragma once

#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MStdFileStream.h"
#include "update/MDownloadSpeed.h"
#include "update/MMirrors.h"

#include <vector>

/// Fetches a package from its mirrors, part by part, into a directory of its own. Each part and each finished
/// file is checked by MD5; what fails is fetched again, a part from the next mirror.
///
/// How far a download is stands in "downloader.dat" in that directory. It is saved when the list has arrived,
/// after a file unless that was done a moment ago, when the user cancels and when a run ends or fails; a
/// later run goes on from there. All of a run happens in the calling thread.
class MDownloader {
public:
    /// `target` is the directory; the definition and the view outlive the downloader.
    MDownloader(const MDownloadDefinition& definition, const MString& target, MDownloadView& view);

    /// False if the user has cancelled. Raises `MRefusal` with what `MRequireOwnFolder` says (MFileTrust.h)
    /// if the target stands and somebody else may have put something into it; what `MCreateOwnPath` raises
    /// for a directory in it; what `MFolderLock` raises if another download is at work there; "No mirrors are
    /// available. Please check your internet connection." (0) if the definition names none or a part failed
    /// 10 times; "Could not connect to any download server. Please check your internet connection." (0) if no
    /// mirror gives the list; what `MDownloadIndex::Check` raises before anything is written but the
    /// directory; and what creating and writing files raises.
    [[nodiscard]] bool Run();

    /// Before a file is fetched again that is not as the list says as a whole; the first pause is that of
    /// `MMirrors`, and each is twice the one before.
    static constexpr int32_t LongestPauseMilliseconds = 60000;

    [[nodiscard]] MMirrors& GetMirrors() { return mirrors; }

private:
    /// How much of the file in hand is good.
    struct Position {
        int64_t bytes = 0;
        int32_t partIndex = 0;
    };

    /// False if there is no usable list on the disk.
    [[nodiscard]] bool LoadState();
    /// False if the user has cancelled.
    [[nodiscard]] bool FetchIndex();
    /// Finds out what is finished. Gives the bytes of all that is good.
    [[nodiscard]] int64_t CountGood();
    /// False if the user has cancelled.
    [[nodiscard]] bool FetchFile(MXMLItem& item);
    /// Opens a file at the end of what is good of it.
    [[nodiscard]] Position OpenFile(MXMLItem& item, const MString& path, MStdFileStream& file);
    [[nodiscard]] bool FetchParts(MXMLItem& item, MStdFileStream& file, Position& good);
    void FinishFile(MXMLItem& item, MStdFileStream& file, const Position& good);
    /// Notes how much of a file is good.
    void Note(MXMLItem& item, const Position& good);
    void SaveState();

    const MDownloadDefinition& definition;
    const MString target;
    const MString statePath;
    MDownloadView& view;
    MMirrors mirrors;
    MDownloadIndex index;
    MDownloadSpeed speed;
    int64_t finishedBytes = 0;        ///< of all files that are complete
    std::vector<MXMLItem*> unsynced;  ///< finished files that a power cut may still damage
    std::chrono::steady_clock::time_point nextSave;
};

/// The first program in a directory whose name holds "setup"; empty if there is none. Raises what
/// `MFile::GetFileList` raises.
[[nodiscard]] MString MFindDownloadedSetup(const MString& directory);

/// The directory that the program at a path downloads into: beside it, with its name without the extension. A program
/// without extension cannot share its name with a directory, so "-download" stands behind it there.
[[nodiscard]] MString MGetDownloadTarget(const MString& program);
