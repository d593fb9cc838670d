#include "foundation/text/MCharFilter.h"
#include "foundation/text/MString.h"

#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

TEST(MCharFilterTest, EachFilterKeepsItsCharacters) {
    const MString text = Wide(u"Az09-. _,fFgG\u00e9\u0131+");
    struct Case {
        const MCharFilter::Interface& filter;
        const char* kept;
        uint8_t flags;
    };
    const Case cases[] = {
        {MCharFilter::AllFilter(), "Az09-. _,fFgG\u00e9\u0131+", 23},
        {MCharFilter::LettersFilter(), "AzfFgG", 1},
        {MCharFilter::AlphaStrictFilter(), "Az09fFgG", 3},
        {MCharFilter::AlphaFilter(), "Az09-. fFgG", 7},
        {MCharFilter::IntegerFilter(), "09-", 2},
        {MCharFilter::IntegerHexaFilter(), "A09fF", 10},
        {MCharFilter::FloatFilter(), "09-.", 6},
    };
    for (const Case& tested : cases) {
        MString kept = text;
        kept.KeepAccepted(tested.filter);
        EXPECT_EQ(Text(kept), tested.kept);
        EXPECT_EQ(tested.filter.GetFlags(), tested.flags) << tested.kept;
    }
}

}  // namespace
