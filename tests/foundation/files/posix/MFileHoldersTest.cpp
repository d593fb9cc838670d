#include "foundation/files/MFileHolders.h"
#include "foundation/files/posix/MNativePath.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/support/posix/MFileHolder.h"

#include <fcntl.h>
#include <sys/mman.h>

TEST(MFileHolders, AreOtherProcessesThatHaveTheFileOpenOrMapped) {
    const MScratch scratch;
    const MString path = scratch.WriteFile("held", "x");
    const int file = open(MNativePath(path).c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_TRUE(MFindFileHolders(path).IsEmpty());
    const MFileHolder opens;
    void* const map = mmap(nullptr, 1, PROT_READ, MAP_PRIVATE, file, 0);
    ASSERT_EQ(close(file), 0);
    const MFileHolder maps;
    ASSERT_EQ(munmap(map, 1), 0);

    std::string names;
    for (const MString& name : MFindFileHolders(path)) names += Text(name) + "\n";
    EXPECT_THAT(names, testing::AllOf(testing::HasSubstr(Text(opens.GetName())),
                                      testing::HasSubstr(Text(maps.GetName()))));
    EXPECT_TRUE(MFindFileHolders(scratch.WriteFile("other", "x")).IsEmpty());
    EXPECT_TRUE(MFindFileHolders(scratch.Join("missing")).IsEmpty());
}
