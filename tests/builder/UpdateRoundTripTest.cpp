#include "foundation/base/MGuard.h"
#include "tests/builder/UpdateFixture.h"
#include "update/MUpdateRun.h"

#include <random>

namespace {

/// Products by chance, whose files move, change, come and go between versions, in groups that share a folder, have a
/// copy with other names, or are flattened.
class UpdateRoundTripTest : public UpdateFixture {
protected:
    static constexpr const char* Groups =
        R"(<files name="A" path="a" destination="{main}/A" required="1"/>)"
        R"(<files name="B" path="b" destination="{main}/A" required="1"><copy destination="{main}/C" required="1">)"
        R"(<extension src="d" dst="x"/></copy></files>)"
        R"(<files name="F" path="f" destination="{main}/F" ignoresubdirs="1" required="1"/>)";

    /// A version in a fresh directory.
    void WriteRandom(const std::string& directory, const std::string& time) {
        for (const char* group : {"a", "b", "f"}) {
            const MString path = scratch.Join(Name(directory + "/" + group));
            if (MFile::Exists(path)) MFile::DeleteTree(path);
            MFile::CreatePath(path);
        }
        Files files;
        for (const char* place : {"", "d1/", "d1/e/", "d2/", "d2/t.v/", "d1/e/g/"})
            for (const char* name : {"x", "y.d", "z"}) {
                const char* const content = Choose({"1", "2", "33", ""});
                const std::string path = std::string(place) + name;
                // Out of a group with a copy none can go to another one.
                std::string& group = groups[path];
                if (time == OldTime || group != "b/") group = Choose({"a/", "b/"});
                if (Chance() < 6) files[group + path] = content;
            }
        // What is flattened has each name once, but for that in a bundle.
        for (const char* name : {"x", "y", "z"})
            files[std::string("f/") + Choose({"", "d1/", "d2/e/", "d2/t.v/"}) + name] = Choose({"1", "2"});
        WriteVersion(directory, time, Groups, files);
    }

    /// Installs a version as a wizard would, with everything chosen, and leaves its state.
    void Install(const std::string& version, const MString& target) {
        MPayloadFile file(scratch.Join(Name(version)));
        MXMLItem& root = file.GetLibrary();
        const auto place = [&](MXMLItem& pass) {
            MString path = pass.GetAttribute("destination");
            path.Replace("{main}", target);
            pass.SetAttribute("currentpath", path);
            pass.SetAttribute("enabled", 1);
        };
        for (MXMLItem& files : MXMLSubItems(root, "files")) {
            place(files);
            for (MXMLItem& copy : MXMLSubItems(files, "copy")) place(copy);
        }
        root.SetAttribute("mainpath", target);
        MInstallProcessor().Perform(root, &file.GetLibrary(), {}, MRunKind::Install);
        root.SaveFile(MFile::Join(target, "setup.state"), false, "utf-8");
    }

    static void Update(MPayloadFile& update, const MString& target) {
        MUpdateRun(target).Install(*update.GetLibrary().GetSubItem("updateinformation"), update.GetStream(),
                                   {});
    }

    /// Its files with their contents, and its directories.
    [[nodiscard]] static std::string ListInstalled(const MString& target) {
        std::set<std::string> lines;
        MFile::GetFileListRecursed(target, "", [&](const MString& directory, const MFileListEntry& entry) {
            const MString path = MFile::Join(directory, entry.name);
            const bool isOwn = entry.name.StartsWith("setup.");
            if (!isOwn)
                lines.insert(Text(MFile::GetRelativePath(path, target)) +
                             (entry.isDirectory ? "/" : "=" + MReadTestFile(path)));
            return true;
        });
        std::string list;
        for (const std::string& line : lines) list += line + "\n";
        return list;
    }

    uint32_t Chance() { return random() % 10; }
    const char* Choose(std::initializer_list<const char*> choices) {
        return choices.begin()[random() % choices.size()];
    }

    MScratchFolders folders{scratch};
    std::mt19937 random{16};
    std::map<std::string, std::string> groups;  ///< of the files, by their paths
};

}  // namespace

// An update gives what the newer version would have installed, and a removal then leaves nothing.
TEST_F(UpdateRoundTripTest, LeadsToTheNewerVersion) {
    constexpr int32_t Rounds = 25;
    const MString updated = scratch.Join("updated");
    const MString fresh = scratch.Join("fresh");
    int32_t madeCount = 0;
    for (int32_t round = 0; round < Rounds; ++round) {
        WriteRandom("old", OldTime);
        WriteRandom("new", NewTime);
        for (const char* version : {"old", "new"})
            ASSERT_EQ(Run({"pack", std::string("@") + version + "/product.xml", "--form", "dat", "--output",
                           std::string("@") + version + ".dat", "--compression", "none"}),
                      0)
                << JoinComplaints();
        ASSERT_EQ(Run({"update", "@old.dat", "@new.dat", "--output", "@update.dat", "--compression", "zlib"}),
                  0)
            << JoinComplaints();
        Install("old.dat", updated);
        Install("new.dat", fresh);
        MPayloadFile update(scratch.Join("update.dat"));
        Update(update, updated);
        // A run that is repeated changes nothing.
        if (round % 2 == 0) Update(update, updated);
        ASSERT_EQ(ListInstalled(updated), ListInstalled(fresh)) << round << "\n" << Describe();

        MXMLItem state;
        state.LoadFile(updated + "/setup.state");
        MInstallProcessor removal;
        removal.Perform(state, nullptr, {}, MRunKind::Uninstall);
        ASSERT_EQ(ListInstalled(updated), "") << round << "\n" << Describe();
        ASSERT_EQ(removal.GetRemover().GetKeptDirectories().GetCount(), 0) << round;
        for (const MString& target : {updated, fresh}) MFile::DeleteTree(target);
        ++madeCount;
    }
    EXPECT_EQ(madeCount, Rounds);
}
