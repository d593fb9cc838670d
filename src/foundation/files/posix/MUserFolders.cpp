#include "foundation/files/posix/MUserFolders.h"

#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <pwd.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

std::string FindHome() {
    const char* home = std::getenv("HOME");
    if (home && *home == '/') return home;
    const passwd* user = getpwuid(getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

/// The lines of a file, none if it cannot be read. The streams of the C++ library would bring all of its
/// locales into every program.
std::vector<std::string> ReadLines(const std::string& path) {
    std::vector<std::string> lines;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "re"), &std::fclose);
    if (!file) return lines;
    char* line = nullptr;
    size_t room = 0;
    for (ssize_t size; (size = getline(&line, &room, file.get())) > 0;)
        lines.emplace_back(line, line[size - 1] == '\n' ? size - 1 : size);
    std::free(line);
    return lines;
}

/// Takes the value of a line KEY="value", in which the shell's quotes, its backslashes and a leading $HOME
/// mean what they mean there; any other relative value is invalid.
std::optional<std::string> ParseUserDirectory(const std::string& line, const std::string& key,
                                              const std::string& home) {
    const std::string start = "XDG_" + key + "_DIR=\"";
    const size_t begin = line.find_first_not_of(" \t");
    if (begin == std::string::npos || line.compare(begin, start.size(), start) != 0) return {};

    std::string value;
    for (size_t i = begin + start.size(); i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size()) ++i;
        value += line[i];
    }
    if (value.starts_with("$HOME")) return home + value.substr(5);
    if (value.starts_with('/')) return value;
    return {};
}

}  // namespace

MUserFolders::MUserFolders() : home(MFile::Normalize(MPathFromNative(FindHome()))) {}

MUserFolders MUserFolders::OfOwner(const MString& path) {
    struct stat status;
    if (geteuid() != 0 || stat(MNativePath(path).c_str(), &status) != 0 || status.st_uid == 0) return {};
    const passwd* owner = getpwuid(status.st_uid);
    const MString home = MFile::Normalize(MPathFromNative(owner && owner->pw_dir ? owner->pw_dir : ""));
    return home.IsEmpty() || !MFile::IsDirectory(home) ? MUserFolders() : MUserFolders(home);
}

MString MUserFolders::GetData() const {
    return GetBase("XDG_DATA_HOME", ".local/share");
}

MString MUserFolders::GetNamed(const char* key, const char* defaultName) const {
    const MString path = MFile::Join(GetBase("XDG_CONFIG_HOME", ".config"), "user-dirs.dirs");
    MString result = MFile::Join(home, defaultName);
    for (const std::string& line : ReadLines(MNativePath(path)))
        if (const auto value = ParseUserDirectory(line, key, MNativePath(home)))
            result = MFile::Normalize(MPathFromNative(*value));
    return result;
}

MString MUserFolders::GetBase(const char* variable, const char* defaultName) const {
    const char* value = isOwn ? std::getenv(variable) : nullptr;
    if (value && *value == '/') return MFile::Normalize(MPathFromNative(value));
    return MFile::Join(home, defaultName);
}
