// Whatever users do, and whatever handlers do to the tree meanwhile, nothing is touched that has ended. What
// this finds it finds with the sanitizers.

#include "foundation/base/MGuard.h"
#include "tests/ui/control/ControlFixture.h"

#include <random>

namespace {

/// Does something unexpected in everything that is called.
class Drop final : public MControl {
public:
    struct World {
        std::function<void()> meddle;
        std::mt19937 random{20261122};
        std::vector<Drop*> all = {};
        int32_t events = 0;

        uint32_t Get(uint32_t count) { return static_cast<uint32_t>(random()) % count; }
    };

    Drop(MControl* parent, World& world) : MControl(parent), world(world) {}
    ~Drop() noexcept override { std::erase(world.all, this); }
    bool ProcessEvent(const MSystemEvent& event) override {
        World& around = world;
        around.events += 1;
        const MControlRef self(this);
        around.meddle();
        return !self || around.Get(3) == 0 || MControl::ProcessEvent(event);
    }
    bool PreviewEvent(MControl* target, const MSystemEvent& event) override {
        const MControlRef self(this);
        const MControlRef next(target);
        if (world.Get(8) == 0) world.meddle();
        return !self || MControl::PreviewEvent(next.Get(), event);
    }
    bool Paint(MDrawer& drawer) override {
        const MControlRef self(this);
        if (world.Get(2) == 0) world.meddle();
        return self && MControl::Paint(drawer);
    }
    void OnSizeChanged(MPoint) override { world.meddle(); }
    void OnPrepared() override { world.meddle(); }
    bool CanClose() override { return world.meddle(), true; }
    void OnClosed() override { world.meddle(); }
    void OnHidden() override { world.meddle(); }
    bool OnDragOver(MControl&, MPoint) override { return world.meddle(), true; }
    bool OnDropAccepted(MControl&, MPoint) override { return world.meddle(), true; }
    void OnDragFinished(MControl*, MPoint, bool) override { world.meddle(); }
    void Click(const MOnClickParams&) { world.meddle(); }

private:
    World& world;
};

class Storm final : public ControlTest {
public:
    ~Storm() noexcept override = default;
    void TestBody() override {}
    using ControlTest::windows;

    uint32_t Get(uint32_t count) { return world.Get(count); }
    MPoint GetPoint() { return {static_cast<int32_t>(Get(420)), static_cast<int32_t>(Get(320))}; }
    MControl* GetAny() { return all.empty() ? nullptr : all[Get(static_cast<uint32_t>(all.size()))]; }

    void Grow(MControl* parent) {
        if (all.size() > 60) return;
        auto* const drop = new Drop(parent, world);
        all.push_back(drop);
        Place(*drop, MRect::FromSize(static_cast<int32_t>(Get(150)), static_cast<int32_t>(Get(100)), 80, 60));
        drop->Set(MControlFlag::HotTrack, Get(2) == 0);
        drop->Set(MControlFlag::RaisesPressEvent, Get(2) == 0);
        drop->OnClick(MControl::Click::Left).Connect(drop, &Drop::Click);
        drop->OnClick(MControl::Click::Press).Connect(drop, &Drop::Click);
        if (parent) return parent->UpdateLayout();
        Prepare(*drop, {static_cast<int32_t>(Get(100)), static_cast<int32_t>(Get(100))}, {300, 200});
        drop->Set(MControlFlag::WindowMovable, Get(2) == 0);
        drop->Set(MControlFlag::CloseOnDeactivate);
        drop->ShowModeless(nullptr);
    }
    /// Something that a handler might do.
    void Meddle() {
        MControl* const control = GetAny();
        if (!control || Get(4) != 0) return;
        MControl* const other = GetAny();
        switch (Get(20)) {
        case 0: delete control; break;
        case 1: control->SetVisible(Get(2) == 0); break;
        case 2: control->SetEnabled(Get(2) == 0); break;
        case 3: control->SetFocus(); break;
        case 4: control->StartDragDrop(); break;
        case 5: control->SetCapture(control); break;
        case 6: control->OnCaptureLost(); break;
        case 7:
            if (!control->Holds(other)) control->Reparent(*other);
            break;
        case 8: control->RedrawNow(); break;
        case 9: control->GetRoot().CloseWindow(MModalValue::Ok); break;
        case 17: control->GetRoot().RequestClose(); break;
        case 10: control->GetRoot().ShowModeless(nullptr); break;
        case 11: control->linkedControl.Set(other); break;
        case 12: control->SetSize({static_cast<int32_t>(Get(100)), 40}); break;
        case 13: control->SetCollapsed(Get(2) == 0); break;
        case 14: control->GetRoot().DestroyWindow(); break;
        case 15: throw 1;
        case 16:
            if (depth < 3 && !control->GetRoot().Is(MControlFlag::ModalRunning))
                RunModal(control->GetRoot(), *other);
            break;
        default: Grow(Get(8) ? control : nullptr); break;
        }
    }
    void RunModal(MControl& root, MControl& owner) {
        ++depth;
        for (int32_t i = 0; i < 5; ++i) system.Post([this] { Step(); });
        const MControlRef window(&root);
        system.Post([this, &root, known = all.size()] {
            if (windows.HasRoot(&root) && known) root.CloseWindow(MModalValue::Cancel);
        });
        MGuard("Storm", [&] { root.RunModal(&owner); });
        --depth;
    }
    /// Something that a user might do.
    void Step() {
        switch (Get(12)) {
        case 0: user.PressButton(Get(4) ? MModifierLeftButton : MModifierRightButton); break;
        case 1: user.ReleaseButton(Get(4) ? MModifierLeftButton : MModifierRightButton); break;
        case 2: user.Click(GetPoint(), 1 + static_cast<int32_t>(Get(2))); break;
        case 3: user.TurnWheel(120); break;
        case 4: user.PressKey(Get(2) ? MKeyTab : MKeyEscape); break;
        case 5: user.PressKey('A', u'a'); break;
        case 6: system.ActivateOtherProgram("Editor"); break;
        case 7: system.AdvanceTime(static_cast<int64_t>(Get(40))); break;
        default: user.MoveMouse(GetPoint()); break;
        }
    }
    /// Makes something usable again.
    void Mend() {
        MControl* control = GetAny();
        for (; control; control = control->GetParent()) {
            control->SetEnabled(true);
            control->CreateWindow(nullptr);
            if (control->IsRoot()) return control->ShowModeless(nullptr);
            control->SetVisible(true);
        }
    }

    Drop::World world{.meddle = [this] { Meddle(); }};
    std::vector<Drop*>& all = world.all;
    int32_t depth = 0;
};

TEST(EventStormTest, TouchesNothingThatHasEnded) {
    Storm storm;
    while (storm.world.events < STORM_EVENTS) {
        MGuard("Storm", [&] {
            if (storm.all.size() < 20) storm.Grow(storm.Get(8) ? storm.GetAny() : nullptr);
            if (storm.Get(20) == 0) storm.Mend();
            storm.Step();
        });
    }
    while (!storm.all.empty()) delete storm.all.back();
    EXPECT_TRUE(storm.windows.GetRoots().IsEmpty());
}

}  // namespace
