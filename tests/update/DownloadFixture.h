#pragma once

#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestServer.h"
#include "tests/support/MTestText.h"
#include "update/MDownloader.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>

/// A server that keeps the connection, after what it has sent.
inline MTestReply LeftOpen(const MTestReply& reply) {
    MTestReply open = reply;
    open.isLeftOpen = true;
    return open;
}

inline const char* const NotFound = "HTTP/1.0 404 Not Found\n\n";
inline const char* const NoMirrors = "0: No mirrors are available. Please check your internet connection.";

/// What a mirror gives, by path. Tests change it between requests.
class MTestMirror {
public:
    MTestMirror() : server([this](const std::string& request) { return Answer(request); }) {}

    [[nodiscard]] MString GetAddress() const { return server.GetURL(MString()); }
    void Put(const std::string& path, const MTestReply& reply) {
        const std::lock_guard guard(mutex);
        replies.insert_or_assign(path, reply);
    }
    /// The names of the files that were asked for since the last call, one a line.
    [[nodiscard]] std::string TakeRequests() {
        const std::lock_guard guard(mutex);
        return std::exchange(requests, {});
    }

private:
    MTestReply Answer(const std::string& request) {
        const std::string path = MTestServer::GetPath(request);
        const std::lock_guard guard(mutex);
        requests += path.substr(path.find_last_of('/') + 1) + "\n";
        const auto found = replies.find(path);
        return found == replies.end() ? MTestReply(NotFound) : found->second;
    }

    std::mutex mutex;
    std::map<std::string, MTestReply> replies;
    std::string requests;
    MTestServer server;
};

/// Writes down what it is shown, and cancels after a number of parts.
class MTestDownloadView final : public MDownloadView {
public:
    void SetText(const MString& text) override { texts += Text(text) + "\n"; }
    void SetStatistics(const MString& text) override { statistics.push_back(Text(text)); }
    void SetProgress(double newMaximum, double value) override {
        maximum = newMaximum;
        values.push_back(value);
    }
    [[nodiscard]] bool IsCancelled() override {
        return values.size() == cancelAfter + 1 || ++askCount == cancelAtQuestion;
    }

    std::string texts;
    std::vector<std::string> statistics;
    double maximum = 0;
    std::vector<double> values;
    size_t cancelAfter = SIZE_MAX - 1;
    int32_t askCount = 0;
    int32_t cancelAtQuestion = 0;
};

/// A package "package" of three files in five parts, on two mirrors.
class DownloadTest : public testing::Test {
protected:
    DownloadTest() {
        for (MTestMirror* mirror : {&first, &second}) Publish(*mirror, GetIndex());
    }
    ~DownloadTest() noexcept override = default;

    static std::string GetIndex() {
        std::string files = DescribeFile("big", "big.bin", {"aaaa", "bbbb", "cccc", "dd"});
        files += DescribeFile("small", "folder/näme.txt", {"hello"});
        files += DescribeFile("empty", "folder/empty", {});
        return "<index Size=\"19\"><Directory>folder</Directory>" + files + "</index>";
    }
    static std::string DescribeFile(const std::string& id, const std::string& name,
                                    const std::vector<std::string>& parts) {
        std::string all;
        std::string children;
        for (size_t i = 0; i < parts.size(); ++i) {
            all += parts[i];
            children += "<Part md5=\"" + MTestDigest(parts[i]) + "\">" + std::to_string(i + 1) + "</Part>";
        }
        return "<File ID=\"" + id + "\" md5=\"" + MTestDigest(all) + "\">" + name + children + "</File>";
    }
    static void Publish(MTestMirror& mirror, const std::string& index) {
        mirror.Put("/package/INDEX.ZIP", MTestBody(MDeflate(index)));
        const char* const parts[] = {"aaaa", "bbbb", "cccc", "dd"};
        for (int i = 0; i < 4; ++i)
            mirror.Put("/package/big." + std::to_string(i + 1) + ".zip", MTestBody(parts[i]));
        mirror.Put("/package/small.1.zip", MTestBody("hello"));
    }

    [[nodiscard]] static MDownloadDefinition Define(const std::vector<MString>& mirrors) {
        std::string xml = "<download ID=\"package\">";
        for (const MString& mirror : mirrors) xml += "<Mirror>" + Text(mirror) + "</Mirror>";
        const std::string stored = MDeflate(xml + "</download>");
        MMemoryStream stream = MStreamOf(stored);
        return MDownloadDefinition(stream);
    }
    [[nodiscard]] std::vector<MString> Both() const {
        return {first.GetAddress(), second.GetAddress() + "/"};
    }
    [[nodiscard]] bool Run(MDownloadView& view, const std::vector<MString>& mirrors) const {
        const MDownloadDefinition definition = Define(mirrors);
        MDownloader downloader(definition, target, view);
        downloader.GetMirrors().quietLimit = std::chrono::milliseconds(300);
        return downloader.Run();
    }
    [[nodiscard]] std::string FailureOfRun(const std::vector<MString>& mirrors) const {
        MTestDownloadView view;
        return FailureOf([&] { (void)Run(view, mirrors); });
    }
    /// Cancels after a number of parts.
    void RunInPart(size_t parts) const {
        MTestDownloadView view;
        view.cancelAfter = parts;
        EXPECT_FALSE(Run(view, {first.GetAddress()}));
    }
    MTestDownloadView RunToTheEnd(const std::vector<MString>& mirrors) const {
        MTestDownloadView view;
        EXPECT_TRUE(Run(view, mirrors));
        ExpectComplete();
        return view;
    }
    /// Both mirrors' requests for files, one a line, in the order in which each mirror got them.
    [[nodiscard]] std::string TakeRequests() { return first.TakeRequests() + second.TakeRequests(); }

    void ExpectComplete() const {
        EXPECT_EQ(scratch.ListTree(),
                  "target/\ntarget/big.bin\ntarget/downloader.dat\ntarget/folder/\ntarget/folder/empty\n"
                  "target/folder/näme.txt\n");
        EXPECT_EQ(scratch.ReadFile("target/big.bin"), "aaaabbbbccccdd");
        EXPECT_EQ(scratch.ReadFile(SmallFile), "hello");
    }

    const MString SmallFile = MDecodeUTF8Exact("target/folder/näme.txt");
    MScratch scratch;
    const MString target = scratch.Join("target");
    MTestMirror first;
    MTestMirror second;
};
