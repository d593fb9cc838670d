#include "bench/MComparison.h"
#include "foundation/base/MException.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "install/registration/MUninstallEntry.h"
#include "install/run/MUninstallRun.h"
#include "setup/console/MTextDialogs.h"
#include "tests/support/MScratch.h"

#include <unistd.h>
#include <vector>

namespace {

constexpr int32_t FileCount = 12000;
constexpr int32_t FilesPerDirectory = 100;
constexpr int Rounds = 7;

MString GetDirectory(const MString& root, int32_t index) {
    return MFile::Join(root, MFormat("Bank {0}", index / FilesPerDirectory));
}

MString GetName(int32_t index) {
    return MFormat("{0} warm room of the factory bank.preset", index);
}

/// An installation of files of a few kilobytes in folders of a hundred.
class Installation {
public:
    explicit Installation(const MString& root) : root(root) {
        const std::string content(3000, 'p');
        for (int32_t i = 0; i < FileCount; ++i)
            MWriteTestFile(MFile::Join(GetDirectory(root, i), GetName(i)), content);
    }

    void SaveState() const {
        MXMLItem state("install");
        state.SetAttribute("name", "Benchmark");
        state.SetAttribute("mainpath", root);
        MXMLItem& files = *state.AddSubItem("files");
        files.SetAttribute("enabled", 1);
        files.SetAttribute("createpath", 0);
        files.SetAttribute("currentpath", root);
        MXMLItem* directory = nullptr;
        for (int32_t i = 0; i < FileCount; ++i) {
            if (i % FilesPerDirectory == 0) {
                directory = files.AddSubItem("dir");
                directory->SetAttribute("name", MFile::GetFileName(GetDirectory(root, i)));
            }
            directory->AddSubItem("file")->SetAttribute("name", GetName(i));
        }
        state.SaveFile(MFile::Join(root, "setup.state"), false, "utf-8");
        MUninstallEntry entry;
        entry.key = "Benchmark";
        entry.setup = MFile::Join(root, "setup");
        entry.Write();
    }

    [[nodiscard]] std::vector<std::string> ListFiles() const {
        std::vector<std::string> paths;
        paths.reserve(FileCount);
        for (int32_t i = 0; i < FileCount; ++i)
            paths.push_back(MEncodeUTF8Exact(MFile::Join(GetDirectory(root, i), GetName(i))));
        return paths;
    }
    [[nodiscard]] std::vector<std::string> ListDirectories() const {
        std::vector<std::string> paths;
        for (int32_t i = 0; i < FileCount; i += FilesPerDirectory)
            paths.push_back(MEncodeUTF8Exact(GetDirectory(root, i)));
        return paths;
    }

private:
    MString root;
};

void Remove(const MString& root) {
    MUnattendedDialogs dialogs(MRetryAnswer::Refuse);
    MInstallViews views;
    views.dialogs = &dialogs;
    MUninstallRun run(root, views);
    run.PerformUninstallation();
    if (run.GetFailureCount() != 0) MRaise(MExceptionGeneral, "The removal has left something.");
}

void RemovePlainly(const std::vector<std::string>& files, const std::vector<std::string>& directories) {
    for (const std::string& file : files)
        if (unlink(file.c_str()) != 0) MRaise(MExceptionGeneral, "A file could not be deleted.");
    for (const std::string& directory : directories)
        if (rmdir(directory.c_str()) != 0) MRaise(MExceptionGeneral, "A directory could not be removed.");
}

MComparison CompareRemoval() {
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    const MString root = scratch.Join("product");
    std::vector<std::string> files;
    std::vector<std::string> directories;

    // What a user removes has been on the disk for long, and is no longer the cache's alone.
    const MWork remove{[&] {
                           Installation(root).SaveState();
                           sync();
                       },
                       [&] { Remove(root); }};
    const MWork reference{[&] {
                              const Installation installation(root);
                              files = installation.ListFiles();
                              directories = installation.ListDirectories();
                              sync();
                          },
                          [&] { RemovePlainly(files, directories); }};
    MComparison comparison = MCompareSpeeds(Rounds, MClock::Processor, FileCount, remove, reference);
    comparison.unit = "files/s";
    comparison.goal = 0.9;
    return comparison;
}

[[maybe_unused]] const bool isRegistered = MRegisterComparison("Removal of 12,000 files", CompareRemoval);

}  // namespace
