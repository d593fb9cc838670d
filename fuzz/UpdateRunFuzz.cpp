// Lays a hostile update over an installation with a hostile "setup.state", whose directories are moved into a
// scratch folder. A form feed stands between the state and the index of the update. What lies beside the
// installation must stay as it is, and the state on the disk be the old one or tell of the new level.

#include "foundation/base/MException.h"
#include "fuzz/FuzzPayload.h"
#include "install/run/MInstallState.h"
#include "tests/support/MScratch.h"
#include "update/MUpdateRun.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>

/// A run that waits for a virus scanner waits in vain here.
extern "C" int nanosleep(const timespec*, timespec*) {
    return 0;
}

namespace {

constexpr const char* OldTime = "2026-01-01 00:00:00";
constexpr const char* NewTime = "2026-02-01 00:00:00";

void MoveInside(MXMLItem& item, const MString& directory) {
    const MString path = item.GetAttribute("currentpath", "");
    // The last name is taken off by an update that asks for it.
    if (!path.IsEmpty())
        item.SetAttribute("currentpath", directory + (path.Contains(".") ? "/bin/own.file" : "/bin"));
    for (int32_t i = 0; i < item.GetSubItemCount(); ++i) MoveInside(*item.GetSubItem(i), directory);
}

/// An installation, and beside it what belongs to others.
class World {
public:
    World() {
        for (const char* name : {"bin/a.txt", "home/a.txt", "home/bin/a.txt", "desktop/own.desktop"})
            scratch.WriteFile(name, "somebody's");
        RunUpdate("<install name=\"P\"/>", "<x/>");
        beside = ListBeside();
    }

    void RunUpdate(std::string_view state, std::string_view update) {
        if (MFile::Exists(directory)) MFile::DeleteTree(directory);
        for (const char* name : {"bin/a.txt", "bin/sub/b.txt", "bin/Presets.xml"})
            scratch.WriteFile(MString("home/product/") + name, "<Set><preset name=\"Mine\"/></Set>");
        if (!SaveState(state)) return;
        const std::string before = ReadState();
        const bool isDone = Install(update);
        // The maker may bring a state of his own, which the saved one replaces at the end.
        if (!isDone && update.find("state") == update.npos && ReadState() != before) __builtin_trap();
        if (isDone) CheckState();
    }
    void Check() const {
        if (ListBeside() != beside) __builtin_trap();
    }

private:
    bool SaveState(std::string_view text) const {
        MXMLItem state;
        try {
            MMemoryStream stream(text.data(), static_cast<int32_t>(text.size()));
            state.Load(stream);
        } catch (const MException&) {
            return false;
        }
        state.SetAttribute("name", "P");
        state.SetAttribute("time", OldTime);
        state.SetAttribute("mainpath", directory);
        MoveInside(state, directory);
        state.SaveFile(MFile::Join(directory, "setup.state"), false, "utf-8");
        return true;
    }
    [[nodiscard]] std::string ReadState() const { return scratch.ReadFile("home/product/setup.state"); }
    [[nodiscard]] bool Install(std::string_view update) const {
        MXMLItem offer("update");
        offer.SetAttribute("name", "N");
        offer.SetAttribute("time", NewTime);
        MMemoryStream content;
        WriteFuzzPayload("<Set><preset name=\"Fresh\"/></Set>", update, 0, content);
        try {
            MUpdateRun(directory).Install(offer, content, {});
            return true;
        } catch (const MException&) {
            return false;
        }
    }
    void CheckState() const {
        MXMLItem state;
        MLoadInstallState(directory, state);
        if (!(state.GetAttribute("time") == NewTime)) __builtin_trap();
    }
    [[nodiscard]] std::string ListBeside() const {
        std::string list;
        for (const char* name : {"bin", "home", "desktop", "programfiles", "startmenuprograms"})
            AddTree(scratch.Join(name), list);
        return list;
    }
    void AddTree(const MString& path, std::string& list) const {
        if (!MFile::IsDirectory(path)) return;
        for (const MFileListEntry& entry : MFile::GetFileList(path)) {
            const MString child = MFile::Join(path, entry.name);
            if (child == directory) continue;
            list += entry.isDirectory ? "" : MReadTestFile(child);
            list += '\n';
            if (entry.isDirectory) AddTree(child, list);
        }
    }

    MScratch scratch;
    MScratchFolders folders{scratch};
    const MString directory = scratch.Join("home/product");
    std::string beside;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static World world;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const size_t end = std::min(text.find('\f'), size);
    world.RunUpdate(text.substr(0, end), text.substr(std::min(end + 1, size)));
    world.Check();
    return 0;
}
