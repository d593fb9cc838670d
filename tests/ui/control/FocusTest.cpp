#include "tests/ui/control/ControlFixture.h"

#include <random>

namespace {

using FocusTest = ControlTest;

/// The controls of a tree, each before its children.
void Collect(MControl& control, std::vector<MControl*>& all) {
    all.push_back(&control);
    for (MControl* child : control.GetChildren()) Collect(*child, all);
}

TEST_F(FocusTest, WalksAnyTreeInItsOrder) {
    std::mt19937 random(1);
    for (int32_t round = 0; round < 60; ++round) {
        MControl root;
        std::vector<MControl*> all{&root};
        for (int32_t i = 0; i < 12; ++i) {
            auto* control = new MControl(all[random() % all.size()]);
            Place(*control, {0, 0, 9, 9});
            control->Set(MControlFlag::TabStop, random() % 4 != 0);
            control->Set(MControlFlag::AcceptsFocus, random() % 8 != 0);
            if (random() % 8 == 0) control->SetEnabled(false);
            if (random() % 8 == 0) control->SetVisible(false);
            all.push_back(control);
        }
        Open(root);
        // Later changes count as well.
        if (round % 2) delete std::exchange(all[1 + random() % 12], nullptr);
        Place(*new MControl(&root), {0, 0, 9, 9});
        all.clear();
        Collect(root, all);

        const auto isReachable = [&](MControl* control) {
            if (!control->Is(MControlFlag::TabStop) || !control->Is(MControlFlag::AcceptsFocus)) return false;
            for (; control; control = control->GetParent())
                if (!control->Is(MControlFlag::Visible) || !control->Is(MControlFlag::Enabled)) return false;
            return true;
        };
        std::erase_if(all, [&](MControl* control) { return !isReachable(control); });
        root.SetFocus(all[0]);
        for (size_t i = 1; i <= all.size(); ++i) {
            user.PressKey(MKeyTab);
            ASSERT_TRUE(all[i % all.size()]->HasFocus()) << "round " << round;
        }
        for (size_t i = all.size(); i-- > 0;) {
            user.PressKey(MKeyUp);
            ASSERT_TRUE(all[i]->HasFocus()) << "round " << round;
        }
    }
}

TEST_F(FocusTest, GoesOnFromWhatCannotHaveItAnyMore) {
    Probe root(nullptr, "root", log);
    Probe panel(&root, "panel", log);
    Probe first(&panel, "first", log);
    Probe second(&panel, "second", log);
    Probe last(&root, "last", log);
    Place(panel, {0, 0, 99, 99});
    for (Probe* probe : {&first, &second, &last}) Place(*probe, {0, 0, 9, 9});
    for (Probe* probe : {&root, &panel}) probe->Set(MControlFlag::TabStop, false);
    Open(root);
    EXPECT_EQ(Take(), "first:focus root:activation");
    first.SetEnabled(false);
    EXPECT_EQ(Take(), "first:blur second:focus");
    panel.SetVisible(false);
    EXPECT_EQ(Take(), "panel:vanish second:blur last:focus");
    user.PressKey(MKeyTab);
    EXPECT_TRUE(last.HasFocus()) << "the only one that can have it keeps it";
    Take();
    panel.SetVisible(true);
    last.onEvent = [&](const MSystemEvent& event) {
        if (event.type == MEventType::LostFocus) panel.SetVisible(false);
    };
    second.SetFocus();
    EXPECT_EQ(Take(), "last:blur panel:vanish second:blur last:focus");
    EXPECT_TRUE(last.HasFocus());

    panel.SetVisible(true);
    panel.onEvent = [&](const MSystemEvent&) { second.SetVisible(false); };
    second.onEvent = [&](const MSystemEvent&) { panel.SetVisible(false); };
    second.SetVisible(false);
    EXPECT_FALSE(second.Is(MControlFlag::Visible) || panel.Is(MControlFlag::Visible))
        << "each hides the other";

    MControl label(&root);
    last.linkedControl.Set(&label);
    last.SetEnabled(false);
    EXPECT_FALSE(label.IsEnabled());
}

TEST_F(FocusTest, LetsGoOfControlsThatAreMoved) {
    Probe root(nullptr, "root", log);
    Probe other(nullptr, "other", log);
    auto* const moved = new Probe(&root, "moved", log);
    auto* const below = new MControl(moved);
    Place(*moved, {0, 0, 49, 49});
    Place(*below, {0, 0, 9, 9});
    Open(root);
    Open(other, {500, 100});
    moved->SetFocus();
    root.SetCapture(below);
    other.SetEnabled(false);
    Take();
    root.Reparent(other);
    EXPECT_EQ(Take(), "moved:blur");
    EXPECT_FALSE(root.GetCapture());
    EXPECT_EQ(&below->GetRoot(), &other);
    EXPECT_FALSE(below->IsEnabled()) << "the new parent is disabled";
    EXPECT_ANY_THROW(other.Reparent(*moved));
    delete moved;
    other.SetEnabled(true);
    user.PressKey(MKeyTab);
    EXPECT_TRUE(other.HasFocus()) << "nothing is left of the moved ones in the order";
}

}  // namespace
