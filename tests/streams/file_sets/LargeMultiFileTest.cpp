#include "streams/file_sets/MMultiFileStream.h"
#include "tests/support/MScratch.h"

#include <gtest/gtest.h>

TEST(LargeMultiFileTest, PositionsGoBeyond4GiBInAPartAndInTheSet) {
    const MScratch scratch;
    constexpr int64_t PartSize = int64_t(5) << 30;
    for (const int32_t number : {1, 2}) {
        // Sparse, with the number at its end.
        MStdFileStream part;
        part.Open(scratch.Join(MNumberToText(number) + ".cab"), MOpenWrite | MOpenCreate);
        part.Seek(PartSize - 4, MSeekOrigin::Begin);
        part.WriteInt32(number);
        part.Close();
    }
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
