#include "update/MDownloader.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/base/MRefusal.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"
#include "foundation/files/MFileTrust.h"
#include "foundation/files/MFolderLock.h"
#include "foundation/files/MProgramFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MByteSizeText.h"
#include "foundation/xml/MXMLSubItems.h"
#include "payload/MDownloadNames.h"
#include "streams/hashes/MMD5Text.h"

#include <algorithm>
#include <array>

namespace {

const char* const NoMirrors = "No mirrors are available. Please check your internet connection.";

/// As the list has it: nobody has checked it.
int64_t GetGoodBytes(const MXMLItem& item) {
    return std::clamp<int64_t>(item.GetInt64Attribute("NextPartSize", 0), 0, int64_t{1} << 40);
}

double SecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

MDownloader::MDownloader(const MDownloadDefinition& definition, const MString& target, MDownloadView& view)
    : definition(definition),
      target(target),
      statePath(MFile::Join(target, MDownloadNames::State)),
      view(view),
      mirrors(definition, view) {}

bool MDownloader::Run() {
    if (definition.GetMirrors().IsEmpty()) MRaise(MExceptionGeneral, NoMirrors);
    view.SetText(MTranslate("Connecting the download server..."));
    MCreateOwnFolder(target);
    try {
        MRequireOwnFolder(target);
    } catch (const MException& exception) {
        throw MRefusal(exception.GetMessage());
    }
    const MFolderLock lock(target, definition.GetID(), MFolderLock::PatienceMilliseconds,
                           MString(MDownloadNames::State) + ".lock");
    if (!LoadState() && !FetchIndex()) return false;
    const MXMLItem& root = index.GetRoot();
    for (const MXMLItem& directory : MXMLSubItems(root, "Directory"))
        MCreateOwnPath(target, directory.GetValue());
    mirrors.ChooseFirst();
    const auto goodBytes = static_cast<double>(CountGood());
    view.SetText(MTranslate("Downloading files..."));
    view.SetProgress(static_cast<double>(index.GetSize()), goodBytes);
    bool isComplete = true;
    try {
        for (MXMLItem& item : MXMLSubItems(root, "File")) {
            if (!item.HasAttribute("Finished")) isComplete = FetchFile(item);
            if (!isComplete) break;
        }
    } catch (const MException&) {
        MGuard("MDownloader::Run", [&] { SaveState(); });
        throw;
    }
    SaveState();
    return isComplete;
}

bool MDownloader::LoadState() {
    if (!MFile::Exists(statePath)) return false;
    try {
        // A link is none of ours, even where nobody else can have put it there.
        if (MIsPlainFile(statePath)) {
            MStdFileStream stored;
            stored.Open(statePath, MOpenRead);
            index.Load(stored);
            index.Check();
            return true;
        }
    } catch (const MException&) {
        // It is fetched again.
    }
    MFile::Delete(statePath);
    return false;
}

bool MDownloader::FetchIndex() {
    if (!mirrors.FetchIndex(index)) {
        if (mirrors.IsCancelled()) return false;
        MRaise(MExceptionGeneral,
               "Could not connect to any download server. Please check your internet connection.");
    }
    index.Save(statePath);
    return true;
}

int64_t MDownloader::CountGood() {
    int64_t begunBytes = 0;
    for (MXMLItem& item : MXMLSubItems(index.GetRoot(), "File")) {
        const bool isFinished = item.HasAttribute("Finished");
        // Somebody may have taken away or changed a file that was complete.
        const MString path = MFile::Join(target, item.GetValue());
        if (isFinished && !(MIsPlainFile(path) && MFile::GetFileSize(path) == GetGoodBytes(item))) {
            item.RemoveAttribute("Finished");
            Note(item, {});
        }
        (isFinished ? finishedBytes : begunBytes) += GetGoodBytes(item);
    }
    return finishedBytes + begunBytes;
}

bool MDownloader::FetchFile(MXMLItem& item) {
    const MString& name = item.GetValue();
    const MString path = MFile::Join(target, name);
    MCreateOwnPath(target, MFile::GetDirectory(name));
    int32_t pause = MMirrors::PauseMilliseconds;
    while (!mirrors.IsCancelled()) {
        MStdFileStream file;
        Position good = OpenFile(item, path, file);
        if (!FetchParts(item, file, good)) return false;

        view.SetText(MTranslate("Checking file integrity..."));
        file.Rewind();
        if (MMD5OfStream(file) == item.GetAttribute("md5")) {
            FinishFile(item, file, good);
            return true;
        }
        Note(item, {});
        view.SetText(MTranslate("Download failed, retrying..."));
        mirrors.Pause(pause);
        pause = std::min(2 * pause, LongestPauseMilliseconds);
    }
    return false;
}

MDownloader::Position MDownloader::OpenFile(MXMLItem& item, const MString& path, MStdFileStream& file) {
    // What is written through a link or into a pipe is not in this folder.
    if (MFile::IsLink(path) || MFile::IsDevice(path)) MFile::Delete(path);
    file.Open(path, MFile::Exists(path) ? MOpenWrite : MOpenWrite | MOpenCreate);
    Position good{item.GetInt64Attribute("NextPartSize", 0), item.GetInt32Attribute("NextPartIndex", 0)};
    // Somebody has changed the file since; what is missing cannot be made up by zeros.
    if (good.bytes < 0 || good.partIndex < 0 || good.bytes > file.GetSize()) good = {};
    file.Seek(good.bytes, MSeekOrigin::Begin);
    file.Truncate();
    return good;
}

bool MDownloader::FetchParts(MXMLItem& item, MStdFileStream& file, Position& good) {
    const int64_t size = index.GetSize();
    // No part is larger than all files together; a list without that number sets no limit.
    const int64_t limit = size > 0 ? size : INT64_MAX;
    MMemoryStream part;
    int32_t position = 0;
    for (const MXMLItem& child : MXMLSubItems(item, "Part")) {
        if (position++ < good.partIndex) continue;
        const auto start = std::chrono::steady_clock::now();
        const MString name = item.GetAttribute("ID") + "." + child.GetValue() + ".zip";
        if (!mirrors.FetchPart(name, child.GetAttribute("md5"), limit, part)) {
            if (mirrors.IsCancelled()) return false;
            MRaise(MExceptionGeneral, NoMirrors);
        }
        file.Write(part.GetBuffer().GetBlock(), static_cast<int32_t>(part.GetSize()));
        file.Flush();
        good.bytes += part.GetSize();
        ++good.partIndex;
        Note(item, good);
        const int64_t total = finishedBytes + good.bytes;
        view.SetProgress(static_cast<double>(size), static_cast<double>(total));
        if (speed.Add(part.GetSize(), SecondsSince(start)))
            view.SetStatistics(MFormat(MTranslate("Speed: {0}/s\nDownloaded: {1}\nTotal size: {2}"),
                                       MByteSizeText(speed.Get()), MByteSizeText(total),
                                       MByteSizeText(size)));
        if (mirrors.IsCancelled()) return false;
    }
    return true;
}

void MDownloader::FinishFile(MXMLItem& item, MStdFileStream& file, const Position& good) {
    std::array<char, 4> start;
    file.Rewind();
    const int32_t count = file.Read(start.data(), start.size());
    file.Close();
    if (MBeginsProgram({start.data(), static_cast<size_t>(count)}))
        MGuard("MDownloader::FinishFile", [&] { MFile::MakeExecutable(file.GetFileName()); });
    unsynced.push_back(&item);
    view.SetText(MTranslate("Downloading..."));
    item.SetAttribute("Finished", "1");
    Note(item, good);
    finishedBytes += good.bytes;
    if (std::chrono::steady_clock::now() >= nextSave) SaveState();
}

void MDownloader::Note(MXMLItem& item, const Position& good) {
    item.SetAttribute("NextPartIndex", good.partIndex);
    item.SetAttribute("NextPartSize", good.bytes);
    index.GetRoot().SetAttribute("DownloadedTotal", finishedBytes + good.bytes);
}

void MDownloader::SaveState() {
    constexpr auto Interval = std::chrono::seconds(1);
    constexpr int32_t Share = 10;
    const auto start = std::chrono::steady_clock::now();
    // A file that cannot be synced, since somebody has it open, is checked once more by the next run.
    for (MXMLItem* item : unsynced)
        if (!MGuard("MDownloader::SaveState", [&] { MSyncFile(MFile::Join(target, item->GetValue())); }))
            item->RemoveAttribute("Finished");
    unsynced.clear();
    index.GetRoot().SetAttribute("Downloaded", finishedBytes);
    index.Save(statePath);
    // The list of a package of many small files takes longer to save than one of these to fetch.
    const auto end = std::chrono::steady_clock::now();
    nextSave = end + std::max<std::chrono::steady_clock::duration>(Interval, Share * (end - start));
}

MString MFindDownloadedSetup(const MString& directory) {
    for (const MFileListEntry& entry : MFile::GetFileList(directory))
        if (!entry.isDirectory && entry.name.Contains("setup") &&
            MFile::GetExtension(entry.name) == MPlatform::ExecutableExtension())
            return MFile::Join(directory, entry.name);
    return MString();
}

MString MGetDownloadTarget(const MString& program) {
    const MString target = MFile::Join(MFile::GetDirectory(program), MFile::GetBaseName(program));
    return target.IsExactly(program) ? program + "-download" : target;
}
