#pragma once

#include "foundation/xml/MXMLItem.h"
#include "tests/builder/BuilderFixture.h"
#include "tests/support/MTestBytes.h"

/// Files to offer in "files", and the set that is made of them in "out".
class DownloadSetFixture : public BuilderFixture {
protected:
    int32_t MakeSet(const std::vector<std::string>& more = {}) {
        std::vector<std::string> words{"download-set", "@files", "--mirror", "http://a"};
        for (const std::vector<std::string>& common :
             {std::vector<std::string>{"--id", "Tamborel-8.1"}, {"--output", "@out"}})
            if (std::find(more.begin(), more.end(), common[0]) == more.end())
                words.insert(words.end(), common.begin(), common.end());
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }

    /// Makes a set, is refused for a reason, and leaves everything as it was.
    void ExpectRefused(const std::string& reason, const std::vector<std::string>& more = {}) {
        const std::string before = scratch.ListTree();
        EXPECT_EQ(MakeSet(more), MBuilderExitFailed);
        EXPECT_THAT(JoinComplaints(), testing::HasSubstr(reason));
        EXPECT_EQ(scratch.ListTree(), before);
    }

    static void LoadTree(const std::string& bytes, MXMLItem& root) {
        MMemoryStream stream = MStreamOf(bytes);
        root.LoadCompressed(stream);
    }
};
