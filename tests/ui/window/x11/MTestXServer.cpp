#include "tests/ui/window/x11/MTestXServer.h"

#include "streams/basic/MMemoryStream.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

/// libxkbcommon copies parts of blocks that have no end of text, which is its right.
extern "C" const char* __asan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
    return "interceptor_via_lib:libxkbcommon-x11\n";
}

MTestXServer::MTestXServer(const std::string& screen) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
    process = fork();
    if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // The server writes its number to a descriptor of ours, and nothing else anywhere.
        dup2(ends[1], STDOUT_FILENO);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        execlp("Xvfb", "Xvfb", "-displayfd", "1", "-screen", "0", screen.c_str(), "-noreset", "-ac",
               "-nolisten", "tcp", nullptr);
        _exit(127);
    }
    close(ends[1]);
    std::FILE* const reading = fdopen(ends[0], "r");
    int number = -1;
    const int count = std::fscanf(reading, "%d", &number);
    std::fclose(reading);
    EXPECT_EQ(count, 1) << "scripts/install-tools installs what is missing";
    name = ":" + std::to_string(number);
}

std::string MTestXServer::Run(const std::string& command) const {
    std::FILE* const pipe = popen(("export DISPLAY=" + name + "; " + command).c_str(), "r");
    std::string output;
    std::array<char, 4096> piece;
    size_t size;
    while ((size = std::fread(piece.data(), 1, piece.size(), pipe)) > 0) output.append(piece.data(), size);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

MBitmap MTestXServer::TakePicture() const {
    const std::string file = Run("import -window root -depth 8 png:-");
    MMemoryStream stream(file.data(), static_cast<int32_t>(file.size()));
    MBitmap picture;
    picture.LoadPNG(stream);
    return picture;
}

void MTestXServer::Kill() {
    if (process <= 0) return;
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    process = -1;
}
