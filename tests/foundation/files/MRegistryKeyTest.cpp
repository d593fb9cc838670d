#include "foundation/files/MRegistryKey.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

namespace {

constexpr const char* TestKey = "software\\Corvanth Test of the Registry";

/// A key of the user, deleted at the end with what the tests put below it.
class MRegistryKeyTest : public testing::Test {
protected:
    ~MRegistryKeyTest() noexcept override {
        for (const char* name : {"\\sub", ""})
            (void)FailureOf(
                [&] { MRegistryKey::Delete(MRegistryRoot::CurrentUser, MString(TestKey) + name); });
    }

    MScratch scratch;
    MScratchFolders folders{scratch};
    MRegistryKey key;
};

TEST_F(MRegistryKeyTest, ValuesAreKeptUnderNamesThatIgnoreCaseAndKeysLieBelowOthers) {
    EXPECT_EQ(FailureOf([&] { key.Open(MRegistryRoot::CurrentUser, TestKey); }),
              "0: Cannot open registry key " + std::string(TestKey) + ".");
    EXPECT_FALSE(key.IsOpen());
    key.Create(MRegistryRoot::CurrentUser, TestKey);
    const MString text = MDecodeUTF8Exact("C:/Program Files/\xC5\x99\xF0\x9F\x98\x80"
                                          "ab\nsecond line");
    key.SetValue("UninstallString", text);
    key.SetValue("A/strange\\name: *?", "");
    key.SetValue("NoModify", -7);
    MString longName;
    for (int32_t i = 0; i < 90; ++i) longName += MDecodeUTF8Exact("\xE6\x97\xA5");
    for (const char* end : {"a", "b"}) key.SetValue(longName + end, end);
    EXPECT_EQ(Text(key.GetValue(longName + "A")), "a");

    MRegistryKey again;
    again.Open(MRegistryRoot::CurrentUser, MString(TestKey).ToLower());
    EXPECT_EQ(Text(again.GetValue("uninstallstring")), Text(text));
    EXPECT_TRUE(again.GetValue("A/strange\\name: *?").IsEmpty());
    EXPECT_EQ(static_cast<int32_t>(std::stoll(Text(again.GetValue("NoModify")))), -7);
    again.SetValue("UninstallString", "short");
    EXPECT_EQ(Text(key.GetValue("UninstallString")), "short");
    EXPECT_EQ(FailureOf([&] { (void)key.GetValue("None"); }), "0: Cannot get registry value None");

    MRegistryKey sub;
    sub.Create(key, "sub");
    sub.SetValue("x", "kept");
    sub.Create(key, "sub");
    EXPECT_EQ(Text(sub.GetValue("x")), "kept");
    sub.Close();

    EXPECT_EQ(FailureOf([&] { MRegistryKey::Delete(MRegistryRoot::CurrentUser, TestKey); }),
              "0: Cannot delete registry key " + std::string(TestKey) + ".");
    MRegistryKey::Delete(key, "sub");
    EXPECT_EQ(FailureOf([&] { MRegistryKey::Delete(key, "sub"); }), "0: Cannot delete registry key sub.");
    EXPECT_EQ(FailureOf([&] { sub.Open(key, "sub"); }), "0: Cannot open registry key sub.");
}

}  // namespace
