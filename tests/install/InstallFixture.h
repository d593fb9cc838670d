#pragma once

#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "install/engine/MInstallProcessor.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestPayload.h"

#include <functional>
#include <gtest/gtest.h>
#include <vector>

/// Answers as the test says and keeps what it was asked.
class ScriptedDialogs final : public MUserDialogs {
public:
    bool AskYesNo(const MString&) override { return false; }
    MRetryAnswer AskRetry(const MString& question) override {
        questions.Add(question);
        if (onRetry) onRetry();
        const auto index = static_cast<size_t>(questions.GetCount() - 1);
        return index < answers.size() ? answers[index] : MRetryAnswer::Refuse;
    }
    void ShowError(const MString& text) override { errors.Add(text); }
    void ShowText(const MString&, const MString&) override {}
    std::unique_ptr<MProgressView> OpenProgress(const MString&) override { return nullptr; }

    std::vector<MRetryAnswer> answers;
    std::function<void()> onRetry;
    MList<MString> questions;
    MList<MString> errors;
};

/// A product in memory, installed into scratch folders.
class InstallTest : public testing::Test {
protected:
    ~InstallTest() noexcept override = default;

    /// Attributes that store `content` as an item: for use inside a `file` element.
    std::string Item(const std::string& content) { return payload.Add(content); }
    std::string File(const std::string& name, const std::string& content, const std::string& op = "create") {
        return "<file name=\"" + name + "\" op=\"" + op + "\"" + Item(content) + "/>";
    }
    /// Takes the children of the root. `{to}` in the text becomes the scratch directory "target".
    void Define(const std::string& children) {
        std::string xml = "<install name=\"Test\">" + children + "</install>";
        const MCHARBuffer target = GetTarget().ToUTF8();
        for (size_t at; (at = xml.find("{to}")) != std::string::npos;) xml.replace(at, 4, target.Get());
        bytes = payload.Finish(xml);
        source.Attach(bytes.data(), static_cast<int32_t>(bytes.size()));
        library.Attach(&source);
    }
    [[nodiscard]] MString GetTarget() const { return scratch.Join("target"); }

    void Perform(MRunKind kind = MRunKind::Install) {
        processor = std::make_unique<MInstallProcessor>();
        MInstallViews views;
        views.dialogs = &dialogs;
        processor->Perform(library, kind == MRunKind::Install ? &library : nullptr, views, kind);
    }
    [[nodiscard]] bool Exists(const MString& name) const {
        return MFile::Exists(MFile::Join(GetTarget(), name));
    }
    [[nodiscard]] std::string Read(const MString& name) const {
        return MReadTestFile(MFile::Join(GetTarget(), name));
    }
    void Put(const MString& name, const std::string& content) const {
        scratch.WriteFile(MString("target/") + name, content);
    }
    [[nodiscard]] std::string ReadLog() {
        processor.reset();
        return MReadTestFile(MFile::Join(MFile::GetSpecialPath(MSpecialFolderUserData), "InstallerLog.txt"));
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
