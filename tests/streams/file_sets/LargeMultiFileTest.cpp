#include "streams/file_sets/MMultiFileStream.h"
#include "tests/support/MScratch.h"

#include <gtest/gtest.h>

namespace {

constexpr int64_t GiB = 1024 * 1024 * 1024;
constexpr int64_t PartSize = 5 * GiB;

/// A sparse part with its number at the end.
void MakePart(const MString& path, int32_t number) {
    MStdFileStream part;
    part.Open(path, MOpenWrite | MOpenCreate);
    part.Seek(PartSize - 4, MSeekOrigin::Begin);
    part.WriteInt32(number);
    part.Close();
}

}  // namespace

TEST(LargeMultiFileTest, PositionsGoBeyond4GiBInAPartAndInTheSet) {
    const MScratch scratch;
    MakePart(scratch.Join("1.cab"), 1);
    MakePart(scratch.Join("2.cab"), 2);
    const std::string part = ".cab\" Size=\"" + std::to_string(PartSize) + "\"/>";
    MMultiFileStream set;
    set.Open(scratch.WriteFile("set", "<Set PartSize=\"5368709120\"><File Name=\"1" + part +
                                          "<File Name=\"2" + part + "</Set>"));
    EXPECT_EQ(set.GetSize(), 2 * PartSize);
    EXPECT_EQ(set.GetStatedPartSize(1), PartSize);
    for (const int64_t number : {2, 1}) {
        set.Seek(number * PartSize - 4, MSeekOrigin::Begin);
        EXPECT_EQ(set.ReadInt32(), number);
        EXPECT_EQ(set.GetPosition(), number * PartSize);
    }
}
