#include "update/MUpdateOffers.h"

#include "streams/basic/MMemoryStream.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

MXMLItem& LoadTree(MXMLItem& tree, const std::string& xml) {
    MMemoryStream stream(xml.data(), static_cast<int32_t>(xml.size()));
    tree.Load(stream);
    return tree;
}

const char* const State = "<install id=\"reverb\" time=\"2026-03-01 12:00:00\">"
                          "<package time=\"2026-01-01 08:00:00\" name=\"Halls\"/></install>";

void Read(MUpdateOffers& offers, const std::string& index) {
    MXMLItem state;
    MMemoryStream reply(index.data(), static_cast<int32_t>(index.size()));
    offers.Read(reply, LoadTree(state, State));
}

std::string NamesOf(const MUpdateOffers::List& list) {
    std::string names;
    for (const MXMLItem* offer : list) names += Text(offer->GetAttribute("name")) + " ";
    return names;
}

}  // namespace

TEST(MUpdateOffersTest, OffersNewerUpdatesAndPackagesThatAreNotInstalled) {
    MUpdateOffers offers;
    Read(offers, "<any>"
                 "<update name=\"same\" time=\"2026-03-01 12:00:00\"/>"
                 "<update name=\"newer\" time=\"2026-03-01 12:00:01\" filename=\"newer.dat\"/>"
                 "<other name=\"unknown\" time=\"2027-01-01 00:00:00\"/>"
                 "<update name=\"older\" time=\"2025-12-31 23:59:59\" package=\"0\"/>"
                 "<update name=\"installed\" time=\"2026-01-01 08:00:00\" package=\"1\"/>"
                 "<update name=\"addition\" time=\"2024-01-01 08:00:00\" package=\"1\"/>"
                 "<update name=\"next year\" time=\"2027-01-01 00:00:00\"/>"
                 "</any>");
    EXPECT_EQ(NamesOf(offers.GetUpdates()), "newer next year ");
    EXPECT_EQ(NamesOf(offers.GetPackages()), "addition ");
    Read(offers, "<any/>");
    EXPECT_TRUE(offers.IsEmpty());
}

TEST(MUpdateOffersTest, RefusesOffersThatItCannotTrust) {
    const std::pair<const char*, const char*> cases[] = {
        {"<a><update name=\"n\" time=\"yesterday\"/></a>", "0: Invalid datetime format."},
        {"<a><update name=\"n\"/></a>", "0: Could not find required attribute (time)."},
        {"<a><update time=\"2027-01-01 00:00:00\" filename=\"../../setup.exe\"/></a>",
         "0: The name \"../../setup.exe\" in the list of updates leads out of its directory. The server is damaged "
         "or not trustworthy; nothing has been written."},
        {"<a><update time=\"2020-01-01 00:00:00\" execute=\"C:/Windows/format.com\"/></a>",
         "0: The name \"C:/Windows/format.com\" in the list of updates leads out of its directory. The server is "
         "damaged or not trustworthy; nothing has been written."},
    };
    for (const auto& offer : cases) {
        MUpdateOffers offers;
        EXPECT_EQ(FailureOf([&] { Read(offers, offer.first); }), offer.second);
    }
}
