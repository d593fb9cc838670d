#include "streams/basic/MStdFileStream.h"
#include "tests/end_to_end/EndToEndFixture.h"

#include <chrono>

namespace {

constexpr int64_t GiB = 1024 * 1024 * 1024;

/// A sparse file with marks at its beginning, behind 4 GiB if it goes that far, and at its end.
void MakeLargeFile(const MString& path, int64_t size) {
    MStdFileStream file;
    file.Open(path, MOpenWrite | MOpenCreate);
    for (const int64_t mark : {int64_t(0), 4 * GiB + 5, size - 8}) {
        if (mark > size - 8) continue;
        file.Seek(mark, MSeekOrigin::Begin);
        file.WriteInt64(mark ^ size);
    }
    file.Close();
}

void ExpectMarks(const MString& path, int64_t size) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    EXPECT_EQ(file.GetSize(), size);
    for (const int64_t mark : {int64_t(0), 4 * GiB + 5, size - 8}) {
        if (mark > size - 8) continue;
        file.Seek(mark, MSeekOrigin::Begin);
        EXPECT_EQ(file.ReadInt64(), mark ^ size);
    }
}

}  // namespace

class LargeProductTest : public EndToEndTest {
protected:
    ~LargeProductTest() noexcept override = default;

    static constexpr int64_t First = 4 * GiB + 123456789;
    static constexpr int64_t Second = GiB + 7;
};

TEST_F(LargeProductTest, PacksVerifiesAndInstallsBeyond4GiB) {
    MakeLargeFile(InProduct("samples.bin"), First);
    MakeLargeFile(InProduct("more.bin"), Second);
    scratch.WriteFile("product/last.txt", "behind everything");
    Pack("<directory id=\"destination\" name=\"D\" default=\"unused\"/>"
         "<files path=\"samples.bin\" destination=\"{destination}\" required=\"1\"/>"
         "<files path=\"more.bin\" destination=\"{destination}\" required=\"1\"/>"
         "<files path=\"last.txt\" destination=\"{destination}\" required=\"1\"/>",
         {"--compression", "none"});
    EXPECT_GT(MFile::GetFileSize(GetInstaller()), First + Second);
    MList<MString> verify = ToList({"verify"});
    verify.Add(GetInstaller());
    const MProgramResult verified = Build(verify);
    EXPECT_EQ(verified.exitCode, 0) << verified.errors;

    // The start reads the ends of the file only: a refused run is over at once.
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Install({"silent", "nonsense"}).exitCode, 2);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));

    const MProgramResult result = Install({"silent", "directory:destination=to"});
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    ExpectMarks(InHome("to/samples.bin"), First);
    ExpectMarks(InHome("to/more.bin"), Second);
    EXPECT_EQ(ReadHome("to/last.txt"), "behind everything");
}
