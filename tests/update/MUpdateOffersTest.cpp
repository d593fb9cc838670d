#include "update/MUpdateOffers.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

namespace {

void Read(MUpdateOffers& offers, const std::string& index) {
    MXMLItem state;
    MLoadXML(state, "<install id=\"reverb\" time=\"2026-03-01 12:00:00\">"
                    "<package time=\"2026-01-01 08:00:00\" name=\"Halls\"/></install>");
    MMemoryStream reply = MStreamOf(index);
    offers.Read(reply, state);
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
    EXPECT_EQ(NamesOf(offers.GetUpdates()) + "| " + NamesOf(offers.GetPackages()),
              "newer next year | addition ");
    Read(offers, "<any/>");
    EXPECT_TRUE(offers.IsEmpty());
}

TEST(MUpdateOffersTest, RefusesOffersThatItCannotTrust) {
    const std::string leadsOut =
        "\" in the list of updates leads out of its directory. The server is damaged or not trustworthy; nothing "
        "has been written.";
    const std::pair<const char*, std::string> cases[] = {
        {R"(time="yesterday")", "0: Invalid datetime format."},
        {"", "0: Could not find required attribute (time)."},
        {R"(time="2027-01-01 00:00:00" filename="../../setup.exe")",
         "0: The name \"../../setup.exe" + leadsOut},
        {R"(time="2020-01-01 00:00:00" execute="C:/Windows/format.com")",
         "0: The name \"C:/Windows/format.com" + leadsOut},
    };
    for (const auto& [attributes, failure] : cases) {
        MUpdateOffers offers;
        const std::string index = std::string("<a><update ") + attributes + "/></a>";
        EXPECT_EQ(FailureOf([&] { Read(offers, index); }), failure);
    }
}
