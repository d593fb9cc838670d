#include "embedded/MProgramBlocks.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/resources/MResourceLibrary.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestModule.h"
#include "tests/support/MTestText.h"
#include "ui/control/MContainers.h"
#include "ui/control/windows/MWindows.h"
#include "ui/dialogs/configuration/MTexturedStyleConfiguration.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <gtest/gtest.h>

namespace {

/// The page of settings in a window, of a user whose settings are in a scratch folder.
class StyleConfigurationTest : public testing::Test {
protected:
    StyleConfigurationTest() {
        const MEmbeddedBlocks blocks = MGetProgramBlocks();
        MMemoryStream stream(blocks.resources.data(), static_cast<int32_t>(blocks.resources.size()));
        resources.Load(stream);
        MXMLItem root("mstyle");
        root.AddSubItem("resources");
        MResourceLibrary plain;
        plain.Assign(root, MBuffer());
        MMemoryStream file;
        plain.Save(file);
        MWriteTestFile(
            MFile::Join(folders.GetPath(MSpecialFolderData), "MTexturedStyles/Plain.mstyle"),
            {static_cast<const char*>(file.GetBuffer().GetBlock()), static_cast<size_t>(file.GetSize())});
        auto made =
            std::make_unique<MTexturedStyle>(&windows, &resources, MTexturedStyle::FontSource::Traveling);
        made->LoadStyle();
        style = made.get();
        windows.SetStyle(std::move(made));
        page = new MTexturedStyleConfiguration(*style, &window);
        window.Set(MControlFlag::KeepsApplicationAlive);
        window.SetClientControl(page);
        window.CreateWindow(nullptr);
        window.ShowModeless(nullptr);
    }
    ~StyleConfigurationTest() noexcept override = default;

    template <class Control>
    Control& Find(const char* name) {
        for (MControl* child : page->GetChildren())
            if (child->GetName() == name) return dynamic_cast<Control&>(*child);
        throw std::runtime_error(name);
    }
    void Press(const char* name) {
        auto& button = Find<MButton>(name);
        button.OnClick(MPoint{1, 1});
    }
    MStyleSettings GetSaved() {
        MXMLItem item;
        item.LoadFile(style->GetSettingsFile());
        MStyleSettings saved;
        saved.Load(item);
        return saved;
    }

    MScratch scratch;
    MScratchFolders folders{scratch};
    MTestModule module{"/program"};
    MResourceLibrary resources;
    MWindows windows{std::make_unique<MWindowSystemHeadless>()};
    MTexturedStyle* style = nullptr;
    MWindow window{"Main", "Settings"};
    MTexturedStyleConfiguration* page = nullptr;
};

TEST_F(StyleConfigurationTest, WhatIsSetIsSeenAtOnceAndKept) {
    Press("InvertColors");
    EXPECT_TRUE(style->GetColors().IsInverted());
    EXPECT_EQ(GetSaved().invertColors, true);

    MButton named(&window);
    named.SetIconAndText(MStdIcon::Add, "letters");
    MPoint small;
    named.GetMinimalContentSize(small.x, small.y);
    Press("EnableUpperCase");
    MPoint capital;
    named.GetMinimalContentSize(capital.x, capital.y);
    EXPECT_GT(capital.x, small.x);

    auto& width = Find<MSwitcher>("ResizeX");
    width.GetValue().SetFromDisplayText("150 %");
    width.ExecuteOnChange();
    EXPECT_EQ(style->GetScale(), (MStyleScale{150, 100}));
    EXPECT_EQ(GetSaved().resizeX, 150);
    width.GetValue().SetDiscreteIndex(0);
    width.ExecuteOnChange();
    EXPECT_EQ(style->GetScale().x, 100);
    EXPECT_EQ(GetSaved().resizeX, std::nullopt);

    auto& scheme = Find<MSwitcher>("ColorScheme");
    scheme.GetValue().SetDiscreteIndex(2);
    scheme.ExecuteOnChange();
    EXPECT_EQ(style->GetColors().GetMainColors(), style->GetColorSchemes()[1].colors);
    EXPECT_EQ(Text(GetSaved().colorScheme), Text(style->GetColorSchemes()[1].name));

    auto& color = Find<MColorSelectButton>("MainColor0");
    EXPECT_FALSE(color.IsEnabled());
    Press("EditorMode");
    EXPECT_TRUE(color.IsEnabled());
    color.SetColor(MColor::FromRGB(90, 10, 10));
    color.ExecuteOnChange();
    EXPECT_EQ(style->GetColors().GetMainColors()[0], MColor::FromRGB(90, 10, 10));
    MXMLItem item;
    item.LoadFile(style->GetSettingsFile());
    EXPECT_EQ(item.GetSubItem("StyleConfiguration")->GetInt32Attribute("EditorMode"), 1);

    // Another style has other schemes, and its own colours where the one that was chosen is none of them.
    scheme.GetValue().SetDiscreteIndex(2);
    scheme.ExecuteOnChange();
    auto& styles = Find<MListBox>("Styles");
    styles.SelectRow(1);
    styles.ExecuteOnChange();
    EXPECT_EQ(Text(style->GetName()), "Plain");
    EXPECT_EQ(scheme.GetValue().GetDiscreteCount(), 1);
    EXPECT_EQ(style->GetColors().GetMainColors(), style->GetColors().GetDefaultColors());

    MString names;
    for (const MString& name : style->ListStyles()) names += name + " ";
    EXPECT_EQ(Text(names), "Default Plain ");

    // Another page shows what this one has set.
    MWindow other("Other", "Settings");
    MTexturedStyleConfiguration again(*style, &other);
    for (MControl* child : again.GetChildren())
        if (auto* const button = dynamic_cast<MColorSelectButton*>(child)) {
            EXPECT_TRUE(button->IsEnabled());
        }
}

}  // namespace
