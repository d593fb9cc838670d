#include "foundation/text/MJSONWriter.h"

#include "tests/support/MTestText.h"

TEST(MJSONWriterTest, WritesMembersListsAndEscapes) {
    MJSONWriter json;
    json.BeginObject();
    json.Add("a", "q\" b\\ t\t n\n \x7f");
    json.BeginList("list");
    for (int32_t i = 0; i < 2; ++i) {
        json.BeginObject();
        json.Add("n", INT64_MIN + i);
        json.Add("yes", i == 0);
        json.EndObject();
    }
    json.EndList();
    json.BeginList("none");
    json.EndList();
    json.Add("u", MDecodeUTF8Exact("ž"));
    json.EndObject();
    EXPECT_EQ(
        Text(json.GetText()),
        "{\"a\":\"q\\\" b\\\\ t\\u0009 n\\u000A \x7f\",\"list\":[{\"n\":-9223372036854775808,\"yes\":true},"
        "{\"n\":-9223372036854775807,\"yes\":false}],\"none\":[],\"u\":\"ž\"}");
}
