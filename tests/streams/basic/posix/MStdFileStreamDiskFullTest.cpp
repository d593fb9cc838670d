#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/// No file of the process may grow beyond a size, as long as the object lives.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t size) {
        previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &previous);
        const rlimit limit = {size, previous.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &previous);
        std::signal(SIGXFSZ, previousHandler);
    }

private:
    rlimit previous;
    void (*previousHandler)(int);
};

TEST(MStdFileStreamDiskFull, EveryWayToTheDiskTells) {
    const MScratch scratch;
    const MString path = scratch.Join("full");
    const std::string expected = "100: Error writing to file \"" + Text(path) + "\". Probably disk full.";
    const std::string large(1 << 20, 'x');
    const FileSizeLimit limit(4096);
    MStdFileStream stream;
    const auto writeLittle = [&] {
        stream.Open(path, MOpenWrite | MOpenCreate);
        stream.Write(large.data(), 5000);
    };
    EXPECT_EQ(FailureOf([&] {
                  stream.Open(path, MOpenWrite | MOpenCreate);
                  stream.Write(large.data(), 1 << 20);
              }),
              expected);
    EXPECT_EQ(FailureOf([&] { stream.Close(); }), "none") << "told twice";
    EXPECT_FALSE(stream.IsOpen());

    // A little stays in the buffer, and only what empties that comes upon the full disk.
    EXPECT_EQ(FailureOf(writeLittle), "none");
    EXPECT_EQ(FailureOf([&] { stream.Flush(); }), expected);
    EXPECT_EQ(FailureOf([&] { stream.Close(); }), "none") << "told twice";
    EXPECT_EQ(FailureOf(writeLittle), "none");
    EXPECT_EQ(FailureOf([&] { stream.Close(); }), expected);
    EXPECT_EQ(FailureOf(writeLittle), "none");
    EXPECT_EQ(FailureOf([&] { stream.Rewind(); }), expected);
    EXPECT_EQ(FailureOf(writeLittle), "none");
    EXPECT_EQ(FailureOf([&] { stream.Open("", MOpenRead); }), expected);
    EXPECT_EQ(FailureOf([&] {
                  MStdFileStream silent;
                  silent.Open(path, MOpenWrite | MOpenCreate);
                  silent.Write(large.data(), 5000);
              }),
              "none");
}

TEST(MStdFileStreamDevice, ADeviceIsWrittenThroughAndNotReplaced) {
    const MScratch scratch;
    const MString link = scratch.Join("null");
    ASSERT_EQ(symlink("/dev/null", MNativePath(link).c_str()), 0);
    MStdFileStream stream;
    stream.Open(link, MOpenWrite | MOpenCreate);
    stream.Write("x", 1);
    stream.Close();
    EXPECT_TRUE(MFile::IsDevice(link));
    EXPECT_TRUE(MFile::IsLink(link));
}

TEST(MStdFileStreamDevice, OpenFilesAreNotInherited) {
    const MScratch scratch;
    const MString path = scratch.WriteFile("a", "");
    const int before = open("/dev/null", O_RDONLY);
    MStdFileStream stream;
    stream.Open(path, MOpenRead);
    const int descriptor = before + 1;
    EXPECT_EQ(fcntl(descriptor, F_GETFD), FD_CLOEXEC);
    close(before);
}

}  // namespace
