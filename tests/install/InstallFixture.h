#pragma once

#include "foundation/files/MFile.h"
#include "install/engine/MInstallProcessor.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestPayload.h"
#include "tests/support/MTestText.h"

#include <functional>
#include <vector>

/// Answers as the test says and keeps what it was asked and told.
class ScriptedDialogs final : public MUserDialogs {
public:
    bool AskYesNo(const MString&) override { return false; }
    MRetryAnswer AskRetry(const MString& question) override {
        questions.push_back(Text(question));
        if (onQuestion) onQuestion();
        return questions.size() <= answers.size() ? answers[questions.size() - 1] : MRetryAnswer::Refuse;
    }
    void ShowError(const MString& text) override {
        errors.push_back(Text(text));
        if (onError) onError();
    }
    void ShowInformation(const MString& markup) override { told.push_back(Text(markup)); }
    void ShowText(const MString&, const MString&) override {}
    std::unique_ptr<MProgressView> OpenProgress(const MString&) override { return nullptr; }

    std::vector<MRetryAnswer> answers;
    std::function<void()> onQuestion;
    std::function<void()> onError;
    std::vector<std::string> questions;
    std::vector<std::string> errors;
    std::vector<std::string> told;
};

/// A product in memory, installed into scratch folders.
class InstallTest : public testing::Test {
protected:
    ~InstallTest() noexcept override = default;

    std::string File(const std::string& name, const std::string& content, const std::string& op = "create") {
        return "<file name=\"" + name + "\" op=\"" + op + "\"" + payload.Add(content) + "/>";
    }
    /// An enabled element with these children, which goes to a folder of the target.
    static std::string Files(const std::string& folder, const std::string& children,
                             const std::string& attributes = "") {
        return "<files enabled=\"1\" currentpath=\"{to}" + folder + "\" " + attributes + ">" + children +
               "</files>";
    }
    /// The text with the path of the scratch directory "target" in place of `{to}`.
    [[nodiscard]] std::string Place(std::string text) const {
        for (size_t at; (at = text.find("{to}")) != std::string::npos;)
            text.replace(at, 4, Text(GetTarget()));
        return text;
    }
    /// Takes the children of the root, in which `{to}` is replaced.
    void Define(const std::string& children) {
        bytes = payload.Finish("<install name=\"Test\">" + Place(children) + "</install>");
        source.Attach(bytes.data(), static_cast<int32_t>(bytes.size()));
        library.Attach(&source);
    }
    [[nodiscard]] MString GetTarget() const { return scratch.Join("target"); }
    [[nodiscard]] MString InTarget(const MString& name) const { return MFile::Join(GetTarget(), name); }

    void Perform(MRunKind kind = MRunKind::Install) {
        processor = std::make_unique<MInstallProcessor>();
        MInstallViews views;
        views.dialogs = &dialogs;
        processor->Perform(library, kind == MRunKind::Install ? &library : nullptr, views, kind);
    }
    [[nodiscard]] bool Exists(const MString& name) const { return MFile::Exists(InTarget(name)); }
    [[nodiscard]] std::string Read(const MString& name) const { return MReadTestFile(InTarget(name)); }
    void Put(const MString& name, const std::string& content) const {
        MWriteTestFile(InTarget(name), content);
    }
    [[nodiscard]] std::string ReadLog() {
        processor.reset();
        return scratch.ReadFile("userdata/InstallerLog.txt");
    }

    MScratch scratch;
    MScratchFolders folders{scratch};
    MTestPayload payload{7};
    std::string bytes;
    MMemoryStream source;
    MLargeResourceLibrary library;
    ScriptedDialogs dialogs;
    std::unique_ptr<MInstallProcessor> processor;
};
