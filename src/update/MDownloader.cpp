#include "update/MDownloader.h"

#include "foundation/base/MDateTime.h"
#include "foundation/base/MGuard.h"
#include "foundation/base/MLinearRandom.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MByteSizeText.h"
#include "foundation/xml/MXMLSubItems.h"
#include "streams/hashes/MMD5Text.h"
#include "update/MHTTPBody.h"

#include <algorithm>
#include <chrono>

namespace {

constexpr int64_t MaximumStoredIndexSize = 0x4000000;

const char* const NoMirrors = "No mirrors are available. Please check your internet connection.";

/// A count of bytes for the progress, as the list has it: nothing has checked it.
int64_t GetByteCount(const MXMLItem& item, const char* name) {
    return std::clamp<int64_t>(item.GetInt64Attribute(name, 0), 0, int64_t{1} << 60);
}

double SecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

MDownloader::MDownloader(const MDownloadDefinition& definition, const MString& target, MDownloadView& view)
    : definition(definition),
      target(target),
      statePath(MFile::Join(target, MDownloadIndex::StateName)),
      view(view) {}

bool MDownloader::Run() {
    if (definition.GetMirrors().IsEmpty()) MRaise(MExceptionGeneral, NoMirrors);
    view.SetText(MTranslate("Connecting the download server..."));
    MFile::CreateDirectory(target);
    if (!LoadState()) FetchIndex();
    MXMLItem& root = index.GetRoot();
    for (const MXMLItem& directory : MXMLSubItems(root, "Directory"))
        MFile::CreatePath(MFile::Join(target, directory.GetValue()));

    // By chance, so that all users together load all mirrors alike.
    MLinearRandom random(static_cast<uint32_t>(MDateTime::NowUTC().GetMicroseconds() / 1000));
    mirror = static_cast<int32_t>(random.Next()) % definition.GetMirrors().GetCount();

    finishedBytes = GetByteCount(root, "Downloaded");
    view.SetText(MTranslate("Downloading files..."));
    view.SetProgress(static_cast<double>(index.GetSize()),
                     static_cast<double>(root.GetInt64Attribute("DownloadedTotal", 0)));
    for (MXMLItem& item : MXMLSubItems(root, "File"))
        if (!FetchFile(item)) return false;
    index.Save(statePath);
    return true;
}

bool MDownloader::LoadState() {
    if (!MFile::Exists(statePath)) return false;
    try {
        MStdFileStream stored;
        stored.Open(statePath, MOpenRead);
        index.Load(stored);
        index.Check();
        return true;
    } catch (const MException&) {
        MFile::Delete(statePath);
        return false;
    }
}

void MDownloader::FetchIndex() {
    constexpr int32_t RedirectBudget = 10;
    for (const MString& address : definition.GetMirrors()) {
        try {
            MHTTPStream request;
            request.Get(address + MDownloadIndex::FileName);
            if (!request.Send(RedirectBudget)) continue;
            MMemoryStream stored;
            MReadHTTPBody(request, stored, MaximumStoredIndexSize);
            stored.Rewind();
            index.Load(stored);
        } catch (const MException&) {
            continue;
        }
        index.Check();
        index.Save(statePath);
        return;
    }
    MRaise(MExceptionGeneral,
           "Could not connect to any download server. Please check your internet connection.");
}

bool MDownloader::FetchFile(MXMLItem& item) {
    const MString path = MFile::Join(target, item.GetValue());
    if (item.HasAttribute("Finished")) {
        if (MFile::Exists(path)) return true;
        // Somebody has taken away a file that was complete.
        item.RemoveAttribute("Finished");
        finishedBytes = std::max<int64_t>(0, finishedBytes - GetByteCount(item, "NextPartSize"));
    }
    MStdFileStream file;
    Position good;
    for (;;) {
        file.Open(path, MFile::Exists(path) ? MOpenWrite : MOpenWrite | MOpenCreate);
        good = {item.GetInt64Attribute("NextPartSize", 0), item.GetInt32Attribute("NextPartIndex", 0)};
        // Somebody has changed the file since; what is missing cannot be made up by zeros.
        if (good.bytes < 0 || good.partIndex < 0 || good.bytes > file.GetSize()) good = {};
        file.Seek(good.bytes, MSeekOrigin::Begin);
        file.Truncate();
        if (!FetchParts(item, file, good)) return false;

        view.SetText(MTranslate("Checking file integrity..."));
        file.Rewind();
        if (MMD5OfStream(file) == item.GetAttribute("md5")) break;
        view.SetText(MTranslate("Download failed, retrying..."));
        item.SetAttribute("NextPartIndex", 0);
        item.SetAttribute("NextPartSize", 0);
    }
    file.Close();
    MSyncFile(path);
    view.SetText(MTranslate("Downloading..."));
    item.SetAttribute("Finished", "1");
    index.GetRoot().SetAttribute("Downloaded", finishedBytes + good.bytes);
    SaveState(item, good);
    finishedBytes += good.bytes;
    return true;
}

bool MDownloader::FetchParts(MXMLItem& item, MStdFileStream& file, Position& good) {
    const auto size = static_cast<double>(index.GetSize());
    MMemoryStream part;
    int32_t position = 0;
    for (const MXMLItem& child : MXMLSubItems(item, "Part")) {
        if (position++ < good.partIndex) continue;
        const auto start = std::chrono::steady_clock::now();
        try {
            FetchPart(item.GetAttribute("ID") + "." + child.GetValue() + ".zip", child.GetAttribute("md5"),
                      part);
            file.Write(part.GetBuffer().GetBlock(), static_cast<int32_t>(part.GetSize()));
            file.Flush();
        } catch (const MException&) {
            MGuard("MDownloader::FetchParts", [&] { SaveState(item, good); });
            throw;
        }
        good.bytes += part.GetSize();
        ++good.partIndex;
        view.SetProgress(size, static_cast<double>(finishedBytes + good.bytes));
        if (speed.Add(part.GetSize(), SecondsSince(start)))
            view.SetStatistics(MFormat(MTranslate("Speed: {0}/s\nDownloaded: {1}\nTotal size: {2}"),
                                       MByteSizeText(speed.Get()), MByteSizeText(finishedBytes + good.bytes),
                                       MByteSizeText(index.GetSize())));
        if (view.IsCancelled()) {
            SaveState(item, good);
            return false;
        }
    }
    return true;
}

void MDownloader::FetchPart(const MString& name, const MString& digest, MMemoryStream& part) {
    // No part is larger than all files together; a list without that number sets no limit.
    const int64_t limit = index.GetSize() > 0 ? index.GetSize() : INT64_MAX;
    const MList<MString>& mirrors = definition.GetMirrors();
    for (int32_t tries = 1; tries <= TriesPerPart; ++tries) {
        try {
            MHTTPStream request;
            request.Get(mirrors[mirror] + name);
            if (request.Send(0)) {
                part.Reset();
                MReadHTTPBody(request, part, limit);
                const auto size = static_cast<int32_t>(part.GetSize());
                if (MMD5OfBlock(part.GetBuffer().GetBlock(), size) == digest) return;
            }
        } catch (const MException&) {
            // As a part with a wrong digest: the next mirror may do better.
        }
        mirror = (mirror + 1) % mirrors.GetCount();
        if (tries % mirrors.GetCount() == 0 && tries < TriesPerPart) MPlatform::Sleep(PauseMilliseconds);
    }
    MRaise(MExceptionGeneral, NoMirrors);
}

void MDownloader::SaveState(MXMLItem& item, const Position& good) {
    item.SetAttribute("NextPartIndex", good.partIndex);
    item.SetAttribute("NextPartSize", good.bytes);
    index.GetRoot().SetAttribute("DownloadedTotal", finishedBytes + good.bytes);
    index.Save(statePath);
}

MString MFindDownloadedSetup(const MString& directory) {
    for (const MFileListEntry& entry : MFile::GetFileList(directory))
        if (!entry.isDirectory && entry.name.Contains("setup") &&
            MFile::GetExtension(entry.name) == MPlatform::ExecutableExtension())
            return MFile::Join(directory, entry.name);
    return MString();
}
