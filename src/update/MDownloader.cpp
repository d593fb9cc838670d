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
#include "streams/hashes/MMD5Stream.h"
#include "update/MHTTPBody.h"

#include <chrono>

namespace {

constexpr int64_t MaximumStoredIndexSize = 0x4000000;

const char* const NoMirrors = "No mirrors are available. Please check your internet connection.";

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
    CreateDirectories();
    ChooseMirror();

    finishedBytes = index.GetRoot().GetInt64Attribute("Downloaded", 0);
    view.SetText(MTranslate("Downloading files..."));
    view.SetProgress(static_cast<double>(index.GetSize()),
                     static_cast<double>(index.GetRoot().GetInt64Attribute("DownloadedTotal", 0)));
    if (!FetchFiles()) return false;
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
    for (const MString& address : definition.GetMirrors()) {
        if (!FetchIndexFrom(address)) continue;
        index.Check();
        index.Save(statePath);
        return;
    }
    MRaise(MExceptionGeneral,
           "Could not connect to any download server. Please check your internet connection.");
}

bool MDownloader::FetchIndexFrom(const MString& address) {
    constexpr int32_t RedirectBudget = 10;
    try {
        MHTTPStream request;
        request.Get(address + MDownloadIndex::FileName);
        if (!request.Send(RedirectBudget)) return false;
        MMemoryStream stored;
        MReadHTTPBody(request, stored, MaximumStoredIndexSize);
        stored.Rewind();
        index.Load(stored);
        return true;
    } catch (const MException&) {
        return false;
    }
}

/// By chance, so that all users together load all mirrors alike.
void MDownloader::ChooseMirror() {
    MLinearRandom random(static_cast<uint32_t>(MDateTime::NowUTC().GetMicroseconds() / 1000));
    mirror = static_cast<int32_t>(random.Next()) % definition.GetMirrors().GetCount();
}

void MDownloader::CreateDirectories() {
    for (const MXMLItem& directory : MXMLSubItems(index.GetRoot(), "Directory"))
        MFile::CreatePath(MFile::Join(target, directory.GetValue()));
}

bool MDownloader::FetchFiles() {
    for (MXMLItem& item : MXMLSubItems(index.GetRoot(), "File"))
        if (!FetchFile(item)) return false;
    return true;
}

bool MDownloader::FetchFile(MXMLItem& item) {
    const MString path = MFile::Join(target, item.GetValue());
    if (item.HasAttribute("Finished")) {
        if (MFile::Exists(path)) return true;
        ForgetFile(item);
    }
    for (;;) {
        OpenFile(path, item);
        if (!FetchParts(item)) return false;
        view.SetText(MTranslate("Checking file integrity..."));
        if (IsComplete(item.GetAttribute("md5"))) break;
        view.SetText(MTranslate("Download failed, retrying..."));
        item.SetAttribute("NextPartIndex", 0);
        item.SetAttribute("NextPartSize", 0);
    }
    FinishFile(item);
    return true;
}

/// Somebody has taken away a file that was complete.
void MDownloader::ForgetFile(MXMLItem& item) {
    item.RemoveAttribute("Finished");
    finishedBytes -= item.GetInt64Attribute("NextPartSize", 0);
}

void MDownloader::OpenFile(const MString& path, const MXMLItem& item) {
    file.Open(path, MFile::Exists(path) ? MOpenWrite : MOpenWrite | MOpenCreate);
    fileBytes = item.GetInt64Attribute("NextPartSize", 0);
    partIndex = item.GetInt32Attribute("NextPartIndex", 0);
    if (fileBytes < 0 || partIndex < 0 || fileBytes > file.GetSize()) {
        // Somebody has changed the file since; what is missing cannot be made up by zeros.
        fileBytes = 0;
        partIndex = 0;
    }
    file.Seek(fileBytes, MSeekOrigin::Begin);
    file.Truncate();
}

bool MDownloader::FetchParts(MXMLItem& item) {
    int32_t position = 0;
    for (const MXMLItem& child : MXMLSubItems(item, "Part")) {
        if (position++ < partIndex) continue;
        const auto start = std::chrono::steady_clock::now();
        try {
            FetchPart(item.GetAttribute("ID") + "." + child.GetValue() + ".zip", child.GetAttribute("md5"));
            file.Write(part.GetBuffer().GetBlock(), static_cast<int32_t>(part.GetSize()));
            file.Flush();
        } catch (const MException&) {
            MGuard("MDownloader::FetchParts", [&] { SaveState(item); });
            throw;
        }
        fileBytes += part.GetSize();
        ++partIndex;
        view.SetProgress(static_cast<double>(index.GetSize()),
                         static_cast<double>(finishedBytes + fileBytes));
        ShowSpeed(SecondsSince(start));
        if (view.IsCancelled()) {
            SaveState(item);
            return false;
        }
    }
    return true;
}

void MDownloader::FetchPart(const MString& name, const MString& digest) {
    const MList<MString>& mirrors = definition.GetMirrors();
    for (int32_t tries = 1; tries <= TriesPerPart; ++tries) {
        if (TryPart(mirrors[mirror] + name, digest)) return;
        mirror = (mirror + 1) % mirrors.GetCount();
        if (tries % mirrors.GetCount() == 0 && tries < TriesPerPart) MPlatform::Sleep(PauseMilliseconds);
    }
    MRaise(MExceptionGeneral, NoMirrors);
}

bool MDownloader::TryPart(const MString& url, const MString& digest) {
    // No part is larger than all files together; a list without that number sets no limit.
    const int64_t limit = index.GetSize() > 0 ? index.GetSize() : INT64_MAX;
    try {
        MHTTPStream request;
        request.Get(url);
        if (!request.Send(0)) return false;
        part.Reset();
        MReadHTTPBody(request, part, limit);
    } catch (const MException&) {
        return false;
    }
    MMD5Stream hash;
    hash.Write(part.GetBuffer().GetBlock(), static_cast<int32_t>(part.GetSize()));
    hash.Finish();
    return hash.GetDigestText() == digest;
}

void MDownloader::ShowSpeed(double seconds) {
    if (!speed.Add(part.GetSize(), seconds)) return;
    view.SetStatistics(MFormat(MTranslate("Speed: {0}/s\nDownloaded: {1}\nTotal size: {2}"),
                               MByteSizeText(speed.Get()), MByteSizeText(finishedBytes + fileBytes),
                               MByteSizeText(index.GetSize())));
}

bool MDownloader::IsComplete(const MString& digest) {
    file.Rewind();
    MMD5Stream hash;
    file.CopyAllToInLargePieces(hash);
    hash.Finish();
    return hash.GetDigestText() == digest;
}

void MDownloader::FinishFile(MXMLItem& item) {
    file.Close();
    MSyncFile(file.GetFileName());
    view.SetText(MTranslate("Downloading..."));
    item.SetAttribute("Finished", "1");
    index.GetRoot().SetAttribute("Downloaded", finishedBytes + fileBytes);
    SaveState(item);
    finishedBytes += fileBytes;
}

void MDownloader::SaveState(MXMLItem& item) {
    item.SetAttribute("NextPartIndex", partIndex);
    item.SetAttribute("NextPartSize", fileBytes);
    index.GetRoot().SetAttribute("DownloadedTotal", finishedBytes + fileBytes);
    index.Save(statePath);
}

MString MFindDownloadedSetup(const MString& directory) {
    for (const MFileListEntry& entry : MFile::GetFileList(directory))
        if (!entry.isDirectory && entry.name.Contains("setup") &&
            MFile::GetExtension(entry.name) == MPlatform::ExecutableExtension())
            return MFile::Join(directory, entry.name);
    return MString();
}
