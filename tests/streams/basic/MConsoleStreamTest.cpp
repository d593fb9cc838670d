#include "streams/basic/MConsoleStream.h"
#include "foundation/text/MUnicode.h"

#include <gtest/gtest.h>

namespace {

TEST(MConsoleStream, TextIsWholeAndBytesPassAsTheyAre) {
    testing::internal::CaptureStdout();
    {
        MConsoleStream console;
        EXPECT_TRUE(console.IsOpen());
        console.WriteLine(MDecodeUTF8Exact("p\xC5\x99\xC3\xADli\xC5\xA1 \xF0\x9F\x98\x80 ab"));
        console.Write("\xFF\x01", 2);
        console.Flush();
    }
    std::fputs("open", stdout);
    std::string output = testing::internal::GetCapturedStdout();
    std::erase(output, '\r');
    EXPECT_EQ(output, "p\xC5\x99\xC3\xADli\xC5\xA1 \xF0\x9F\x98\x80 ab\n\xFF\x01open");
}

}  // namespace
