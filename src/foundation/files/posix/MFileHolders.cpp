#include "foundation/files/MFileHolders.h"

#include "foundation/files/posix/MNativePath.h"
#include "foundation/text/MStringFormatter.h"

#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::chrono::seconds LongestSearch{1};

struct Closing {
    void operator()(DIR* directory) const { closedir(directory); }
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// The lines of a small file of the system, until `use(line)` gives false.
template <class Use>
void ForEachLine(const std::string& path, Use use) {
    const std::unique_ptr<std::FILE, Closing> file(std::fopen(path.c_str(), "re"));
    if (!file) return;
    char* line = nullptr;
    size_t capacity = 0;
    ssize_t length;
    while ((length = getline(&line, &capacity, file.get())) > 0) {
        if (line[length - 1] == '\n') line[--length] = '\0';
        if (!use(line)) break;
    }
    std::free(line);
}

/// The names in a directory of the system, until `use(name)` gives false.
template <class Use>
void ForEachEntry(const std::string& path, Use use) {
    const std::unique_ptr<DIR, Closing> directory(opendir(path.c_str()));
    if (!directory) return;
    while (const dirent* entry = readdir(directory.get()))
        if (!use(entry->d_name)) break;
}

/// What the kernel calls the process, but it cuts names to 15 bytes.
MString GetProcessName(const std::string& process) {
    std::string name;
    ForEachLine(process + "/comm", [&](const char* line) {
        name = line;
        return false;
    });
    char link[PATH_MAX];
    const ssize_t length = readlink((process + "/exe").c_str(), link, sizeof link);
    const std::string_view program(link, length > 0 ? static_cast<size_t>(length) : 0);
    const std::string_view whole = program.substr(program.find_last_of('/') + 1);
    return MPathFromNative(whole.starts_with(name) ? whole : name);
}

/// The file whose holders are sought.
class HeldFile {
public:
    explicit HeldFile(const MString& path)
        : path(MNativePath(path)),
          isKnown(Look(this->path, status)),
          end(std::chrono::steady_clock::now() + LongestSearch) {}

    [[nodiscard]] bool IsSoughtStill() const { return isKnown && std::chrono::steady_clock::now() < end; }
    /// `process` is its directory of the system.
    [[nodiscard]] bool IsHeldBy(const std::string& process) const {
        return IsOpenIn(process) || IsMappedIn(process);
    }

private:
    /// Does not wait for a server that a file may be on.
    static bool Look(const std::string& path, struct statx& status) {
        return statx(AT_FDCWD, path.c_str(), AT_STATX_DONT_SYNC, STATX_INO, &status) == 0;
    }

    [[nodiscard]] bool IsOpenIn(const std::string& process) const {
        bool isFound = false;
        const std::string directory = process + "/fd/";
        ForEachEntry(directory, [&](const char* name) {
            struct statx open;
            isFound = *name != '.' && Look(directory + name, open) && open.stx_ino == status.stx_ino &&
                      open.stx_dev_major == status.stx_dev_major &&
                      open.stx_dev_minor == status.stx_dev_minor;
            return !isFound && IsSoughtStill();
        });
        return isFound;
    }

    [[nodiscard]] bool IsMappedIn(const std::string& process) const {
        bool isFound = false;
        ForEachLine(process + "/maps", [&](const char* line) {
            unsigned major = 0;
            unsigned minor = 0;
            unsigned long long inode = 0;
            int pathStart = 0;
            // Some file systems give their files other devices than this list has.
            isFound =
                std::sscanf(line, "%*s %*s %*s %x:%x %llu %n", &major, &minor, &inode, &pathStart) == 3 &&
                inode == status.stx_ino &&
                ((major == status.stx_dev_major && minor == status.stx_dev_minor) ||
                 path == line + pathStart);
            return !isFound;
        });
        return isFound;
    }

    const std::string path;
    struct statx status = {};
    const bool isKnown;
    const std::chrono::steady_clock::time_point end;
};

}  // namespace

MList<MString> MFindFileHolders(const MString& path) {
    MList<MString> holders;
    const HeldFile file(path);
    const std::string ownId = std::to_string(getpid());
    ForEachEntry("/proc", [&](const char* id) {
        const std::string process = std::string("/proc/") + id;
        const bool isOther = *id >= '1' && *id <= '9' && ownId != id;
        if (isOther && file.IsHeldBy(process))
            holders.Add(MFormat("{0} ({1})", GetProcessName(process), MPathFromNative(id)));
        return file.IsSoughtStill();
    });
    return holders;
}
