#include "ui/widgets/colors/MColorEditor.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/widgets/colors/MColorSelectButton.h"

namespace {

using MColorEditorTest = WidgetTest;

TEST_F(MColorEditorTest, IsWorkedWithByMouseKeysAndDigits) {
    auto& editor = Add<MColorEditor>(MRect::FromSize(0, 0, 280, 190), "e");
    editor.SetColor(MColor::Parse("804020C0"));
    Open(root);
    MControl& field = *editor.GetChildren()[0];
    MControl& strip = *editor.GetChildren()[1];
    auto& edit = *static_cast<MEdit*>(editor.GetChildren()[3]);
    const MHSL before = editor.GetColor().GetHSL();

    user.Click(At(strip));
    EXPECT_NEAR(editor.GetColor().GetHSL().lightness, 0.5, 0.01);
    EXPECT_NEAR(editor.GetColor().GetHSL().hue, before.hue, 2);
    EXPECT_EQ(editor.GetColor().alpha, 0xC0);
    EXPECT_EQ(Take(), "e:change e:commit");
    user.PressKey(MKeyUp);
    EXPECT_NEAR(editor.GetColor().GetHSL().lightness, 0.51, 0.01);
    for (int32_t i = 0; i < 60; ++i) user.PressKey(MKeyUp);
    EXPECT_EQ(Text(edit.GetText()), "FFFFFFC0");
    for (int32_t i = 0; i < 50; ++i) user.PressKey(MKeyDown);
    EXPECT_NEAR(editor.GetColor().GetHSL().hue, before.hue, 2) << "white has not forgotten it";

    user.Click(At(field, {-field.size.x / 2 + 2, -field.size.y / 2 + 2}));
    EXPECT_GT(editor.GetColor().red, 250);
    EXPECT_LT(editor.GetColor().green, 12);
    for (int32_t i = 0; i < 34; ++i) user.PressKey(MKeyRight);
    EXPECT_GT(editor.GetColor().green, 240) << "a third of the way around";

    Take();
    edit.SetFocus();
    edit.SelectAll();
    user.Type("zz0a0B0cx");
    EXPECT_EQ(Text(edit.GetText()), "0a0B0c");
    EXPECT_EQ(Text(editor.GetColor().GetText()), "0A0B0CC0");
    EXPECT_EQ(Take(), "e:change e:commit") << "as soon as it is a colour";
}

TEST_F(MColorEditorTest, OpensFromItsButton) {
    auto& button = Add<MColorSelectButton>(MRect::FromSize(10, 10, 80, 24), "b");
    Open(root);
    for (const bool isTaken : {false, true}) {
        system.AdvanceTime(1000);
        system.Post([&] {
            MControl& window = *system.GetActiveRoot();
            EXPECT_NE(&window, &root);
            user.PressKey(MKeyTab);
            user.PressKey(MKeyHome);
            user.PressKey(MKeyUp);
            user.PressKey(isTaken ? MKeyEnter : MKeyEscape);
        });
        user.Click(At(button));
        EXPECT_EQ(Take(), isTaken ? "b:click b:change" : "b:click");
        EXPECT_EQ(button.GetColor() != MColor(), isTaken);
    }
}

}  // namespace
