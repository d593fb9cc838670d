#include "bench/MComparison.h"
#include "bench/MFileServer.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MStdFileStream.h"
#include "streams/network/MHTTPStream.h"
#include "tests/support/MScratch.h"
#include "update/MHTTPBody.h"

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
    file.Close();
}

void CheckSize(const MString& path) {
    if (MFile::GetFileSize(path) != FileSize) MRaise(MExceptionGeneral, "The download is not whole.");
}

void Download(const MString& url, const MString& path) {
    MHTTPStream stream;
    stream.Get(url);
    if (!stream.Send(0)) MRaise(MExceptionGeneral, "The server sends no file.");
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    MReadHTTPBody(stream, file, FileSize);
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

MComparison CompareDownloads() {
    MPlatform::StartSubsystems();
    const MScratch scratch;
    const MString original = scratch.Join("original");
    const MString ours = scratch.Join("ours");
    const MString reference = scratch.Join("reference");
    MakeFile(original);
    const MFileServer server(original);
    const MString url = MDecodeUTF8Exact(server.GetURL());
    MComparison comparison = MCompareSpeeds(Rounds, MClock::Wall, FilesAtOnce * FileSize / 1e6,
                                            {{},
                                             [&] {
                                                 for (int i = 0; i < FilesAtOnce; ++i) Download(url, ours);
                                             }},
                                            {{}, [&] { DownloadByCurl(url, reference); }});
    CheckSize(ours);
    CheckSize(reference);
    comparison.unit = "MB/s";
    comparison.goal = 0.8;
    return comparison;
}

[[maybe_unused]] const bool isRegistered = MRegisterComparison("Download", CompareDownloads);

}  // namespace
