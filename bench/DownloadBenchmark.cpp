#include "bench/MComparison.h"
#include "bench/MFileServer.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"
#include "setup/console/MTextDialogs.h"
#include "streams/basic/MStdFileStream.h"
#include "streams/network/MHTTPStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestPayload.h"
#include "update/MHTTPBody.h"
#include "update/MUpdateSession.h"

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int64_t FileSize = 200'000'000;
/// Enough that curl's own start does not count.
constexpr int FilesAtOnce = 5;
constexpr int Rounds = 9;

void MakeFile(const MString& path) {
    std::vector<uint8_t> piece(1'000'000);
    uint32_t state = 1;
    for (uint8_t& byte : piece) byte = static_cast<uint8_t>((state = state * 1664525 + 1013904223) >> 24);
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    for (int64_t i = 0; i < FileSize; i += std::ssize(piece))
        file.Write(piece.data(), static_cast<int32_t>(piece.size()));
    // All of it is an update, too, that changes nothing.
    const std::string end = MTestPayload(0).Finish("<update/>");
    file.Write(end.data(), static_cast<int32_t>(end.size()));
    file.Close();
}

void CheckSize(const MString& path) {
    if (MFile::GetFileSize(path) < FileSize) MRaise(MExceptionGeneral, "The download is not whole.");
}

void Download(const MString& url, const MString& path) {
    MHTTPStream stream;
    stream.Get(url);
    if (!stream.Send(0)) MRaise(MExceptionGeneral, "The server sends no file.");
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    MReadHTTPBody(stream, file, INT64_MAX);
    file.Close();
}

void DownloadByCurl(const MString& url, const MString& path) {
    MList<MString> arguments;
    arguments.Add("--silent");
    for (int i = 0; i < FilesAtOnce; ++i) {
        arguments.Add("--output");
        arguments.Add(path);
        arguments.Add(url);
    }
    if (MFile::Execute("/usr/bin/curl", arguments, MString(), true) != 0)
        MRaise(MExceptionGeneral, "Curl has failed.");
}

/// The installation that is updated, level by level.
class Installation {
public:
    explicit Installation(const MFileServer& server) {
        const MString url = MDecodeUTF8Exact(server.GetURL());
        state.SetAttribute("name", "Benchmark");
        state.SetAttribute("time", "2026-01-01 00:00:00");
        state.SetAttribute("mainpath", scratch.GetPath());
        state.SetAttribute("updateaddress", url.Substring(MString("http://").GetLength()));
    }

    static std::string MakeIndex() {
        std::string index = "<updates>";
        for (int i = 1; i <= FilesAtOnce; ++i)
            index += "<update name=\"Update\" filename=\"update.dat\" size=\"200000000\" time=\"2026-02-0" +
                     std::to_string(i) + " 00:00:00\"/>";
        return index + "</updates>";
    }
    /// Takes all updates back.
    void Restore() { state.SaveFile(scratch.Join("setup.state"), false, "utf-8"); }
    void Update() const {
        MUnattendedDialogs dialogs(MRetryAnswer::Refuse);
        MInstallViews views;
        views.dialogs = &dialogs;
        MUpdateSession session(scratch.GetPath());
        session.Query();
        if (session.Perform(views, [] { return false; }) != FilesAtOnce)
            MRaise(MExceptionGeneral, "Not all updates have been fetched.");
    }

private:
    MScratch scratch;
    MScratchFolders folders{scratch};
    MXMLItem state{"install"};
};

/// `makeWork` gives what is compared with curl, for a server and a directory.
MComparison CompareDownloads(
    const std::function<MWork(const MFileServer& server, const MString& path)>& makeWork) {
    MPlatform::StartSubsystems();
    const MScratch scratch;
    const MString original = scratch.Join("original");
    const MString reference = scratch.Join("reference");
    MakeFile(original);
    const MFileServer server(original, Installation::MakeIndex());
    const MString url = MDecodeUTF8Exact(server.GetURL());
    MComparison comparison =
        MCompareSpeeds(Rounds, MClock::Wall, FilesAtOnce * FileSize / 1e6,
                       makeWork(server, scratch.Join("ours")), {{}, [&] { DownloadByCurl(url, reference); }});
    CheckSize(reference);
    comparison.unit = "MB/s";
    comparison.goal = 0.8;
    return comparison;
}

MWork DownloadPlainly(const MFileServer& server, const MString& path) {
    return {{}, [url = MDecodeUTF8Exact(server.GetURL()), path] {
                for (int i = 0; i < FilesAtOnce; ++i) Download(url, path);
                CheckSize(path);
            }};
}

MWork DownloadUpdates(const MFileServer& server, const MString&) {
    const auto installation = std::make_shared<Installation>(server);
    return {[installation] { installation->Restore(); }, [installation] { installation->Update(); }};
}

[[maybe_unused]] const bool areRegistered =
    MRegisterComparison("Download", [] { return CompareDownloads(DownloadPlainly); }) &&
    MRegisterComparison("Download of updates", [] { return CompareDownloads(DownloadUpdates); });

}  // namespace
