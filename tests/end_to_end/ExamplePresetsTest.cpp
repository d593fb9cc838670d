#include "tests/end_to_end/ExampleProductFixture.h"
#include "tests/support/MTestPresets.h"

namespace {

/// As an installation brings it.
std::string Stamped(const MXMLItem& preset) {
    MXMLItem stamped;
    stamped.CopyFrom(preset);
    stamped.SetAttribute("ExchangeIndex", "0");
    return MSaveXML(stamped);
}

/// A plain preset that a packed one has replaced: its attributes stay.
std::string Packed(const MXMLItem& plain, const MXMLItem& packed) {
    MXMLItem preset;
    preset.CopyFrom(plain);
    preset.RemoveAllSubItems();
    preset.SetValue(packed.GetValue());
    preset.SetAttribute("compressed", "1");
    return Stamped(preset);
}

MString GetShipped(const char* version) {
    return MString(EXAMPLE_DIRECTORY "/presets/") + version + "/Hallpresets.xml";
}

void AddPreset(MXMLItem& folder, const char* name) {
    MXMLItem& preset = *folder.AddSubItem("preset");
    preset.SetAttribute("name", name);
    preset.SetAttribute("maxx", "3.7");
    preset.AddSubItem("Point")->SetAttribute("y", "-7");
}

}  // namespace

class ExamplePresetsTest : public ExampleProductTest {
protected:
    void InstallVersion(const char* version) {
        PackExample(version);
        InstallExample("configuration=small");
    }
    [[nodiscard]] MString GetInstalled() const {
        return MFile::Join(GetUserData(), "Presets/Hallpresets.xml");
    }
    /// What a musician makes of the presets of version 1.0.
    static void Edit(MTestPresetFile& file) {
        for (const char* name : {"Default", "Rooms/Small Room", "Halls/Concert Hall"})
            file.Get(name).SetAttribute("maxx", "3.7");
        for (const char* name : {"Rooms/Wooden Room", "Rooms/Drums/Room Microphones", "Halls/Cathedral"})
            file.Remove(name);
        AddPreset(file.GetRoot(), "My Hall");
        AddPreset(*file.Get("Rooms/Drums/Tight Snare").GetParent(), "My Snare");
        MXMLItem& folder = *file.GetRoot().AddSubItem("Directory");
        folder.SetAttribute("Name", "My ideas");
        AddPreset(folder, "One");
    }
};

TEST_F(ExamplePresetsTest, AnUpgradeKeepsWhatTheMusicianMadeAndBringsWhatIsNew) {
    InstallVersion("1.0");
    ASSERT_EQ(MReadTestFile(GetInstalled()), MReadTestFile(GetShipped("1.0")));
    MTestPresetFile users(GetInstalled());
    Edit(users);
    users.GetRoot().SaveFile(GetInstalled(), false, "utf-8");
    const std::string edited = MReadTestFile(GetInstalled());
    InstallVersion("2.0");

    enum class From { User, Product, Both };
    const std::pair<const char*, From> expected[] = {
        {"Default", From::Product},        // changed, and replaced by the new one
        {"Rooms/Small Room", From::User},  // changed, and no longer shipped
        {"Rooms/Drums/Tight Snare", From::Product},
        {"Rooms/Drums/My Snare", From::User},  // added
        {"Rooms/Drums/Gated Toms", From::Product},
        {"Rooms/Wooden Room", From::Product},  // deleted, and shipped again
        {"Rooms/Glass Room", From::Product},
        {"Halls/Concert Hall", From::Both},  // changed, and replaced by a packed one
        {"Halls/Cathedral", From::Product},  // deleted, and shipped again
        {"My Hall", From::User},             // added
        {"My ideas/One", From::User},        // added in a folder of its own
        {"Open air/Forest", From::Product},
        {"Open air/Stages/Festival", From::Product},
    };
    const MTestPresetFile before(GetInstalled() + "backup");
    const MTestPresetFile shipped(GetShipped("2.0"));
    const MTestPresetFile merged(GetInstalled());
    ASSERT_EQ(merged.GetAll().size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i) {
        const auto& [name, from] = expected[i];
        const auto& [mergedName, preset] = merged.GetAll()[i];
        ASSERT_EQ(mergedName, name);
        SCOPED_TRACE(name);
        EXPECT_EQ(MSaveXML(*preset), from == From::User      ? MSaveXML(before.Get(name))
                                     : from == From::Product ? Stamped(shipped.Get(name))
                                                             : Packed(before.Get(name), shipped.Get(name)));
    }
    EXPECT_EQ(Text(merged.Get("Rooms/Drums/Tight Snare").GetParent()->GetAttribute("Probability")), "0.5");
    EXPECT_EQ(MReadTestFile(GetInstalled() + "backup"), edited);

    const std::string after = MReadTestFile(GetInstalled());
    InstallExample("configuration=small");
    EXPECT_EQ(MReadTestFile(GetInstalled()), after);
}
