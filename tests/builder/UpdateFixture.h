#pragma once

#include "builder/reports/MPayloadFile.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLSubItems.h"
#include "tests/builder/BuilderFixture.h"

#include <map>

/// Two versions of a product in the directories "old" and "new", and what is made between them.
class UpdateFixture : public BuilderFixture {
protected:
    /// Files by their names, with the contents.
    using Files = std::map<std::string, std::string>;

    static constexpr const char* OldTime = "2026-01-01 10:00:00";
    static constexpr const char* NewTime = "2026-02-01 10:00:00";

    /// Writes a definition with `elements`, and the files that it names.
    void WriteVersion(const std::string& directory, const std::string& time, const std::string& elements,
                      const Files& files) {
        std::string definition = MakeDefinition(elements);
        definition.insert(definition.find('>'), " time=\"" + time + "\"");
        scratch.WriteFile(Name(directory + "/product.xml"), definition);
        const std::string folder = directory + "/";
        for (const auto& [name, content] : files) scratch.WriteFile(Name(folder + name), content);
    }

    /// Both versions with the same elements; an empty directory counts as one that is not there.
    void WriteVersions(const std::string& elements, const Files& before, const Files& after) {
        WriteVersion("old", OldTime, elements, before);
        WriteVersion("new", NewTime, elements, after);
    }

    int32_t Make(const std::string& command, std::vector<std::string> more = {}) {
        if (std::ranges::count(more, "--output") == 0) more.insert(more.end(), {"--output", "@update.dat"});
        more.insert(more.begin(), {command, "@old/product.xml", "@new/product.xml"});
        return Run(more);
    }

    /// Each `files` of an update on a line: "unchanged", or its items, "op:name" with directories in brackets.
    std::string Describe(const std::string& name = "update.dat") {
        MPayloadFile file(scratch.Join(Name(name)));
        std::string lines;
        for (const MXMLItem& files : MXMLSubItems(file.GetLibrary(), "files")) {
            lines += files.GetInt32Attribute("unchanged", 0) != 0 ? "unchanged" : DescribeItems(files);
            lines += "\n";
        }
        return lines;
    }

    void ExpectRefused(const std::string& command, const std::string& reason,
                       const std::vector<std::string>& more = {}) {
        EXPECT_EQ(Make(command, more), MBuilderExitFailed) << reason;
        EXPECT_THAT(JoinComplaints(), HasSubstr(reason));
        EXPECT_FALSE(MFile::Exists(scratch.Join("update.dat"))) << reason;
    }

private:
    static std::string DescribeItems(const MXMLItem& parent) {
        std::string line;
        for (const MXMLItem* item : parent.GetSubItems()) {
            line += (line.empty() ? "" : " ") + Text(item->GetAttribute("op", "")) + ":" +
                    Text(item->GetAttribute("name"));
            if (item->GetName() == "dir") line += "(" + DescribeItems(*item) + ")";
        }
        return line;
    }
};
