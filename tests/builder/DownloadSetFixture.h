#pragma once

#include "foundation/xml/MXMLItem.h"
#include "tests/builder/BuilderFixture.h"

/// Files to offer in "files", and the set that is made of them in "out".
class DownloadSetFixture : public BuilderFixture {
protected:
    int32_t MakeSet(const std::vector<std::string>& more = {}) {
        std::vector<std::string> words{"download-set", "@files", "--mirror", "http://a"};
        for (const auto& [option, value] : {std::pair("--id", "Tamborel-8.1"), {"--output", "@out"}})
            if (std::ranges::count(more, option) == 0) words.insert(words.end(), {option, value});
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }

    /// Makes a set, is refused for a reason, and leaves everything as it was.
    void ExpectRefused(const std::string& reason, const std::vector<std::string>& more = {}) {
        const std::string before = scratch.ListTree();
        EXPECT_EQ(MakeSet(more), MBuilderExitFailed);
        EXPECT_THAT(JoinComplaints(), HasSubstr(reason));
        EXPECT_EQ(scratch.ListTree(), before);
    }

    static void LoadTree(const std::string& bytes, MXMLItem& root) {
        MMemoryStream stream = MStreamOf(bytes);
        root.LoadCompressed(stream);
    }
};
