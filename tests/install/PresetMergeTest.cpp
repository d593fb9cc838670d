#include "install/presets/MPresetMerge.h"

#include "foundation/xml/MXMLItem.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

namespace {

struct Merged {
    std::string target;
    std::string source;
    int32_t count;
};

Merged Merge(const std::string& target, const std::string& source, int32_t exchangeIndex, int32_t mode,
             bool categorize = false) {
    MXMLItem into;
    MXMLItem from;
    MLoadXML(into, "<r>" + target + "</r>");
    MLoadXML(from, "<other>" + source + "</other>");
    const int32_t count = MergePresets(into, from, exchangeIndex, mode, categorize);
    return {MSaveXML(into), MSaveXML(from), count};
}

}  // namespace

TEST(PresetMergeTest, BringsTheNewAndKeepsTheMusiciansOwn) {
    const struct {
        const char* what;
        std::string target;
        std::string source;
        int32_t index;
        int32_t mode;
        std::string result;
        int32_t count;
    } cases[] = {
        {"own presets stay, namesakes are replaced and stamped",
         R"(<preset name="Mine"/><preset name="Théirs" a="1"/>)", R"(<preset name="theirs" a="2"/>)", 0,
         MMergeReplace, R"(<r><preset name="Mine"/><preset a="2" ExchangeIndex="0" name="theirs"/></r>)", 1},
        {"keep drops namesakes and adds the rest", R"(<preset name="A" x="1"/>)",
         R"(<preset name="A" x="2"/><preset name="B"/>)", 7, MMergeKeep,
         R"(<r><preset name="A" x="1"/><preset ExchangeIndex="7" name="B"/></r>)", 1},
        {"add never looks, and nothing is stamped below 0", R"(<preset name="A"/>)",
         R"(<preset name="A" x="2"/>)", -1, MMergeAdd, R"(<r><preset name="A"/><preset name="A" x="2"/></r>)",
         1},
        {"packed over plain keeps the attributes, and the points go",
         R"(<preset name="A" maxx="3"><Point/></preset>)",
         R"(<preset name="A" compressed="yes" maxx="9">AB01</preset>)", 0, MMergeReplace,
         R"(<r><preset compressed="1" ExchangeIndex="0" maxx="3" name="A">AB01</preset></r>)", 1},
        {"plain over packed takes the new attributes",
         R"(<preset name="A" compressed="1" maxx="3">AB01</preset>)",
         R"(<preset name="A" minx="1"><Point y="2"/></preset>)", 0, MMergeReplace,
         R"(<r><preset ExchangeIndex="0" minx="1" name="A"><Point y="2"/></preset></r>)", 1},
        {"a nameless preset does not grow the file", R"(<preset x="1"/>)", R"(<preset x="2"/>)", 0,
         MMergeReplace, R"(<r><preset ExchangeIndex="0" x="2"/></r>)", 1},
        {"equal names among the new ones both arrive", "",
         R"(<preset name="A" x="1"/><preset name="A" x="2"/>)", -1, MMergeReplace,
         R"(<r><preset name="A" x="1"/><preset name="A" x="2"/></r>)", 2},
        {"levels merge by folder, presets before folders",
         R"(<Directory Name="D" Probability="5"><preset name="A"/></Directory>)",
         R"(<Directory Name="d" Probability="9"><preset name="B"/></Directory><preset name="C"/>)", 0,
         MMergeReplace,
         R"(<r><Directory Name="D" Probability="5"><preset name="A"/><preset ExchangeIndex="0" name="B"/></Directory>)"
         R"(<preset ExchangeIndex="0" name="C"/></r>)",
         2},
        {"an unknown folder arrives whole and every preset in it is stamped anew", "",
         R"(<Directory Name="D" AllowPostProcessing="1"><Directory Name="E"><preset name="A" ExchangeIndex="8"/></Directory></Directory>)",
         0, MMergeReplace,
         R"(<r><Directory AllowPostProcessing="1" Name="D"><Directory Name="E"><preset ExchangeIndex="0" name="A"/></Directory></Directory></r>)",
         1},
        {"an unknown folder counts its presets without stamping them", "",
         R"(<Directory Name="D"><preset name="A" ExchangeIndex="8"/><Directory Name="E"><preset/></Directory></Directory>)",
         -1, MMergeReplace,
         R"(<r><Directory Name="D"><preset ExchangeIndex="8" name="A"/><Directory Name="E"><preset/></Directory></Directory></r>)",
         2},
    };
    for (const auto& [what, target, source, index, mode, result, count] : cases) {
        const Merged merged = Merge(target, source, index, mode);
        EXPECT_EQ(merged.target, result) << what;
        EXPECT_EQ(merged.count, count) << what;
        EXPECT_EQ(merged.source, Merge("", source, -1, MMergeKeep).source) << what;
    }
}

TEST(PresetMergeTest, CategoriesFollowTheOrderOfTheirTable) {
    const struct {
        const char* folder;
        const char* category;
    } cases[] = {{"Synth Drums", "Drums"},  {"Keyboard Pad", "Pad"},     {"Bass and BRASS", "Bass"},
                 {"Brass", "Brass"},        {"Effects", "FX"},           {"Sequencer fx", "FX"},
                 {"Gatorade", "Gator"},     {"Drone strings", "Drones"}, {"Tambourines", ""},
                 {"Church organs", "Organ"}};
    for (const auto& [folder, category] : cases)
        EXPECT_EQ(Text(MFindPresetCategory(folder)), category) << folder;

    // Two new folders of one category become two: what is there is looked up once, before the first.
    const Merged merged = Merge(R"(<Directory Name="Bass"/>)",
                                R"(<Directory Name="Deep bass"><preset name="A"/></Directory>)"
                                R"(<Directory Name="Pads"/><Directory Name="My pads"/>)",
                                -1, MMergeAdd, true);
    EXPECT_EQ(merged.target, R"(<r><Directory Name="Bass"><preset name="A"/></Directory>)"
                             R"(<Directory Name="Pad"/><Directory Name="Pad"/></r>)");
    EXPECT_NE(merged.source.find(R"(<Directory Name="Bass">)"), std::string::npos);
}

TEST(PresetMergeTest, StampsAllOrOnlyThoseWithoutIndex) {
    const std::string presets =
        R"(<r><preset ExchangeIndex="1"/><Directory Name="D"><preset/></Directory><Other><preset/></Other></r>)";
    MXMLItem item;
    MLoadXML(item, presets);
    EXPECT_EQ(AssignExchangeIndex(item, false, "5"), 1);
    EXPECT_EQ(MSaveXML(item),
              R"(<r><preset ExchangeIndex="1"/><Directory Name="D"><preset ExchangeIndex="5"/>)"
              R"(</Directory><Other><preset/></Other></r>)");
    EXPECT_EQ(AssignExchangeIndex(item, true, "6"), 2);
}
