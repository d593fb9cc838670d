#include "streams/basic/MStdFileStream.h"
#include "tests/end_to_end/EndToEndFixture.h"

#include <chrono>

namespace {

constexpr int64_t GiB = 1024 * 1024 * 1024;
constexpr int64_t First = 4 * GiB + 123456789;
constexpr int64_t Second = GiB + 7;

/// Calls `visit` at marks at the beginning, behind 4 GiB if it goes that far, and at the end of a file.
template <class Visitor>
void VisitMarks(MStdFileStream& file, int64_t size, Visitor visit) {
    for (const int64_t mark : {int64_t(0), 4 * GiB + 5, size - 8}) {
        if (mark > size - 8) continue;
        file.Seek(mark, MSeekOrigin::Begin);
        visit(mark ^ size);
    }
}

/// A sparse file.
void MakeLargeFile(const MString& path, int64_t size) {
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    VisitMarks(file, size, [&](int64_t mark) { file.WriteInt64(mark); });
    file.Close();
}

void ExpectMarks(const MString& path, int64_t size) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    EXPECT_EQ(file.GetSize(), size);
    VisitMarks(file, size, [&](int64_t mark) { EXPECT_EQ(file.ReadInt64(), mark); });
}

using LargeProductTest = EndToEndTest;

}  // namespace

TEST_F(LargeProductTest, PacksVerifiesAndInstallsBeyond4GiB) {
    MakeLargeFile(InProduct("samples.bin"), First);
    MakeLargeFile(InProduct("more.bin"), Second);
    scratch.WriteFile("product/last.txt", "behind everything");
    Pack(ToDestination("samples.bin") + ToDestination("more.bin") + ToDestination("last.txt"),
         {"--compression", "none"});
    EXPECT_GT(MFile::GetFileSize(GetInstaller()), First + Second);
    Build(ToList({"verify"}), {GetInstaller()});

    // The start reads the ends of the file only: a refused run is over at once.
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Install({"silent", "nonsense"}).exitCode, 2);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));

    const MProgramResult result = InstallSilently();
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    ExpectMarks(InHome("to/samples.bin"), First);
    ExpectMarks(InHome("to/more.bin"), Second);
    EXPECT_EQ(ReadHome("to/last.txt"), "behind everything");
}
