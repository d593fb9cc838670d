#pragma once

#include "builder/commands/MRunBuilder.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// Keeps what the tool says, as UTF-8 lines.
class RecordingOutput final : public MBuilderOutput {
public:
    void Tell(const MString& line) override { told += Text(line) + "\n"; }
    void Complain(const MString& line) override { complaints.push_back(Text(line)); }
    [[nodiscard]] bool IsProgressShown() const override { return isWatched; }
    void ShowProgress(const MString& text) override { progress.push_back(Text(text)); }

    std::string told;
    std::vector<std::string> complaints;
    std::vector<std::string> progress;
    bool isWatched = false;
};

/// A product in a scratch directory, and the tool to work on it.
class BuilderFixture : public testing::Test {
protected:
    BuilderFixture() { scratch.WriteFile("stub", "MZ this is the program without any payload behind it"); }

    /// A name beyond ASCII.
    static MString Name(std::string_view bytes) { return MDecodeUTF8Exact(bytes); }

    /// Runs the tool; arguments that begin with "@" are names in the scratch directory.
    int32_t Run(const std::vector<std::string>& words) {
        output.told.clear();
        output.complaints.clear();
        MList<MString> arguments;
        for (const std::string& word : words)
            arguments.Add(word[0] == '@' ? scratch.Join(MDecodeUTF8Exact(word.substr(1)))
                                         : MDecodeUTF8Exact(word));
        return MRunBuilder(arguments, output);
    }

    int32_t Pack(const std::string& name, std::vector<std::string> more = {}) {
        const auto has = [&](const char* word) { return std::ranges::count(more, word) > 0; };
        if (!has("--stub") && !has("--form")) more.insert(more.end(), {"--stub", "@stub"});
        more.insert(more.begin(), {"pack", "@product.xml", "--output", "@" + name});
        return Run(more);
    }

    /// A definition with the pages and the directory that every one has, `elements` from the second line on.
    static std::string MakeDefinition(const std::string& elements) {
        return R"(<install name="Corvanth Tamborel 8"><directory id="main" name="M" default="{data}/T"/>)"
               "\n" +
               elements + "<onsuccess/><onerror/><onabort/>\n</install>\n";
    }

    void WriteDefinition(const std::string& elements) {
        scratch.WriteFile("product.xml", MakeDefinition(elements));
    }

    [[nodiscard]] std::string JoinComplaints() const {
        std::string joined;
        for (const std::string& line : output.complaints) joined += line + "\n";
        return joined;
    }

    MScratch scratch;
    RecordingOutput output;
};
