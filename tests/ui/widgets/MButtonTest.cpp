#include "ui/widgets/buttons/MButton.h"
#include "tests/ui/widgets/WidgetFixture.h"

namespace {

using MButtonTest = WidgetTest;

TEST_F(MButtonTest, ClicksOnceByEachWay) {
    MWindow root;
    auto& button = Place(*new MButton(&root, "button"), {10, 10, 89, 33});
    Listen(button);
    Open(root);
    user.Click({120, 120});
    EXPECT_EQ(Take(), "button:click");
    user.PressKey(MKeyEnter);
    user.PressKey(MKeySpace);
    EXPECT_EQ(Take(), "button:click button:click");
}

}  // namespace
