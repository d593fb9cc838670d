#pragma once

#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MStdFileStream.h"
#include "update/MDownloadDefinition.h"
#include "update/MDownloadIndex.h"
#include "update/MDownloadSpeed.h"
#include "update/MDownloadView.h"

/// Fetches a package from its mirrors, part by part, into a directory of its own. Each part and each finished
/// file is checked by MD5; what fails is fetched again, a part from the next mirror.
///
/// How far a download is stands in "downloader.dat" in that directory. It is saved when the list has arrived,
/// after each file, when the user cancels and when a run fails; a later run goes on from there. All of a run
/// happens in the calling thread.
class MDownloader {
public:
    /// `target` is the directory; the definition and the view outlive the downloader.
    MDownloader(const MDownloadDefinition& definition, const MString& target, MDownloadView& view);

    /// False if the user has cancelled. Raises "No mirrors are available. Please check your internet
    /// connection." (0) if the definition names none or a part failed 10 times, "Could not connect to any
    /// download server. Please check your internet connection." (0) if no mirror gives the list, what
    /// `MDownloadIndex::Check` raises before anything is written but the directory, and what creating and
    /// writing files raises.
    [[nodiscard]] bool Run();

    static constexpr int32_t TriesPerPart = 10;
    /// Between tries, once all mirrors have failed.
    static constexpr int32_t PauseMilliseconds = 250;

private:
    /// How much of the file in hand is good.
    struct Position {
        int64_t bytes = 0;
        int32_t partIndex = 0;
    };

    /// False if there is no usable list on the disk.
    [[nodiscard]] bool LoadState();
    void FetchIndex();
    /// False if the user has cancelled.
    [[nodiscard]] bool FetchFile(MXMLItem& item);
    [[nodiscard]] bool FetchParts(MXMLItem& item, MStdFileStream& file, Position& good);
    /// Fetches a part by its name on the mirrors.
    void FetchPart(const MString& name, const MString& digest, MMemoryStream& part);
    /// Notes how much of a file is good, and saves the list.
    void SaveState(MXMLItem& item, const Position& good);

    const MDownloadDefinition& definition;
    const MString target;
    const MString statePath;
    MDownloadView& view;
    MDownloadIndex index;
    int32_t mirror = 0;  ///< the one that parts come from
    MDownloadSpeed speed;
    int64_t finishedBytes = 0;  ///< of all files that are complete
};

/// The first program in a directory whose name holds "setup"; empty if there is none. Raises what
/// `MFile::GetFileList` raises.
[[nodiscard]] MString MFindDownloadedSetup(const MString& directory);
