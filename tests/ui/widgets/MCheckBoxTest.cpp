#include "foundation/xml/MXMLItem.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/widgets/buttons/MRadioGroup.h"

#include <random>

namespace {

using MCheckBoxTest = WidgetTest;
using enum MCheckBoxState;

TEST_F(MCheckBoxTest, TogglesWhenItIsPressed) {
    auto& box = Add<MCheckBox>({10, 10, 89, 33}, "box");
    Open(root);
    Press(box);
    EXPECT_EQ(Take(), "box:change") << "at the press";
    user.ReleaseButton();
    EXPECT_EQ(Take(), "box:click");
    box.SetThreeState(true);
    std::vector<MCheckBoxState> states;
    for (const int32_t key : {MKeyEnter, MKeySpace, MKeyEnter}) {
        user.PressKey(key);
        states.push_back(box.Get());
    }
    EXPECT_EQ(states, (std::vector{Grayed, Off, On}));
    EXPECT_EQ(Take(), "box:change box:change box:change") << "at the press alone";
    for (int32_t i = 0; i < 3; ++i) system.GetMessages().OnKey(root, MEventType::KeyDown, MKeySpace);
    EXPECT_EQ(Take(), "box:change") << "however long the key is held";
    box.Set(On);
    EXPECT_EQ(Take(), "");
    EXPECT_EQ(FailureOf([&] { box.Set(static_cast<MCheckBoxState>(3)); }),
              "2: Invalid checkbox state to get image to.");
}

TEST_F(MCheckBoxTest, ReadsAndKeepsItsState) {
    MXMLItem item("checkbox");
    item.SetAttribute("threestate", 1);
    item.SetAttribute("default", "grayed");
    item.SetAttribute("caption", "Text");
    auto& box = Add<MCheckBox>({10, 10, 89, 33}, "box");
    box.LoadFromXml(item);
    EXPECT_EQ(box.Get(), Grayed);
    EXPECT_EQ(box.GetCaptionType(), MCaptionType::None) << "the caption is its text";
    box.Set(MControlFlag::SaveValue);
    MXMLItem state("state");
    EXPECT_TRUE(root.SaveState(state));
    box.Set(On);
    root.LoadState(state);
    EXPECT_EQ(box.Get(), Grayed);
    box.Set(Off);
    root.ResetToDefault();
    EXPECT_EQ(box.Get(), Grayed);
}

TEST_F(MCheckBoxTest, OneOfAGroupIsOn) {
    auto group = std::make_unique<MRadioGroup>();
    std::vector<MCheckBox*> boxes;
    for (int32_t i = 0; i < 4; ++i) {
        boxes.push_back(&Add<MCheckBox>(MRect::FromSize(10, 10 + 30 * i, 80, 24)));
        boxes.back()->Set(MCheckBoxState::On);
        group->Add(*boxes.back());
        ASSERT_EQ(group->GetChosen(), boxes.front()) << "who was there first stays on";
    }
    boxes[2]->SetEnabled(false);
    auto& behind = Add<MCheckBox>({10, 150, 89, 170}, "behind");
    Open(root);
    root.Set(MControlFlag::TabStop, false);
    for (const auto& [chosen, stop] : {std::pair{3, 3}, {2, 0}, {0, 0}}) {
        boxes[static_cast<size_t>(chosen)]->Set(On);
        behind.SetFocus();
        user.PressKey(MKeyTab);
        EXPECT_TRUE(boxes[static_cast<size_t>(stop)]->HasFocus())
            << "the one that is on, if it can be reached";
        user.PressKey(MKeyTab);
        EXPECT_TRUE(behind.HasFocus()) << "and no other one";
    }
    user.Click(At(*boxes[1]));
    std::mt19937 random(1);
    size_t model = 1;
    for (int32_t round = 0; round < 200; ++round) {
        const size_t i = random() % 4;
        switch (random() % 3) {
        case 0:
            user.Click(At(*boxes[i]));
            if (i != 2) model = i;
            break;
        case 1:
            user.PressKey(MKeyDown);
            model = model == 1 ? 3 : (model + 1) % 4;
            break;
        default:
            user.PressKey(MKeyLeft);
            model = model == 3 ? 1 : (model + 3) % 4;
            break;
        }
        ASSERT_EQ(group->GetChosen(), boxes[model]) << round;
        ASSERT_TRUE(boxes[model]->HasFocus());
        for (size_t k = 0; k < 4; ++k) ASSERT_EQ(boxes[k]->IsOn(), k == model);
    }
    delete boxes[model];
    EXPECT_EQ(group->GetChosen(), nullptr);
    group.reset();
    boxes[2]->SetEnabled(true);
    user.Click(At(*boxes[2]));
    EXPECT_TRUE(boxes[2]->IsOn());
}

}  // namespace
