#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/support/posix/MTestFileSizeLimit.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST(MStdFileStreamDiskFull, EveryWayToTheDiskTellsOnce) {
    const MScratch scratch;
    const MString path = scratch.Join("full");
    const std::string large(1 << 20, 'x');
    const MTestFileSizeLimit limit(4096);
    // Of a little that stays in the buffer, only what empties that comes upon the full disk.
    const std::pair<int32_t, void (*)(MStdFileStream&)> ways[] = {
        {1 << 20, nullptr},
        {5000, [](MStdFileStream& stream) { stream.Flush(); }},
        {5000, [](MStdFileStream& stream) { stream.Close(); }},
        {5000, [](MStdFileStream& stream) { stream.Rewind(); }},
        {5000, [](MStdFileStream& stream) { stream.Open("", MOpenRead); }},
    };
    for (const auto& [size, way] : ways) {
        MStdFileStream stream;
        stream.Open(path, MOpenWrite | MOpenCreate);
        EXPECT_EQ(FailureOf([&, count = size, empty = way] {
                      stream.Write(large.data(), count);
                      empty(stream);
                  }),
                  "100: Error writing to file \"" + Text(path) + "\". Probably disk full.");
        EXPECT_EQ(FailureOf([&] { stream.Close(); }), "none") << "told twice";
        EXPECT_FALSE(stream.IsOpen());
    }
}

TEST(MStdFileStreamDiskFull, ADocumentStaysUntilTheNextOneIsComplete) {
    const MScratch scratch;
    const MString path = scratch.WriteFile("settings.xml", "old");
    {
        const MTestFileSizeLimit limit(16);
        EXPECT_NE(FailureOf([&] { MXMLItem("settings").SaveFile(path, true, "utf-8"); }), "none");
    }
    EXPECT_EQ(scratch.ReadFile("settings.xml"), "old");
}

// A pipe was waited for without end.
TEST(MStdFileStreamDevice, DevicesAndPipesAreRefusedAndStay) {
    const MScratch scratch;
    const MString link = scratch.Join("null");
    const MString pipe = scratch.Join("pipe");
    ASSERT_EQ(symlink("/dev/null", MNativePath(link).c_str()), 0);
    ASSERT_EQ(mkfifo(MNativePath(pipe).c_str(), 0600), 0);
    for (const MString& path : {link, pipe})
        for (const MOpenFlags flags : {MOpenRead, MOpenWrite, MOpenWrite | MOpenCreate}) {
            MStdFileStream stream;
            EXPECT_EQ(FailureOf([&] { stream.Open(path, flags); }),
                      "101: \"" + Text(path) + "\" is a device or a pipe where a file is expected.");
            EXPECT_TRUE(MFile::IsDevice(path));
        }
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
