// Whatever users do, and whatever handlers do to the tree meanwhile, nothing is touched that has ended. What this
// finds it finds with the sanitizers.

#include "tests/ui/control/ControlFixture.h"

#include <random>

namespace {

class Storm;

class Drop final : public MControl {
public:
    Drop(MControl* parent, Storm& storm) : MControl(parent), storm(storm) {}
    ~Drop() noexcept override;
    bool ProcessEvent(const MSystemEvent& event) override;
    bool PreviewEvent(MControl* target, const MSystemEvent& event) override;
    bool Paint(MDrawer& drawer) override;
    bool OnDragOver(MControl& source, MPoint point) override;
    bool OnDropAccepted(MControl& source, MPoint point) override;
    void OnDragFinished(MControl* target, MPoint point, bool isAccepted) override;
    void Click(const MOnClickParams& params);

    Storm& storm;
};

class Storm final : public ControlTest {
public:
    ~Storm() noexcept override = default;
    void TestBody() override {}
    using ControlTest::windows;

    uint32_t Get(uint32_t count) { return static_cast<uint32_t>(random()) % count; }
    MPoint GetPoint() { return {static_cast<int32_t>(Get(420)), static_cast<int32_t>(Get(320))}; }
    MControl* GetAny() { return all.empty() ? nullptr : all[Get(static_cast<uint32_t>(all.size()))]; }

    void Grow(MControl* parent) {
        if (all.size() > 60) return;
        auto* const drop = new Drop(parent, *this);
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
        switch (Get(16)) {
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
        case 10: control->GetRoot().ShowModeless(nullptr); break;
        case 11: control->linkedControl.Set(other); break;
        case 12: control->SetSize({static_cast<int32_t>(Get(100)), 40}); break;
        case 13:
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
        root.RunModal(&owner);
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
            if (control->IsRoot()) return control->ShowModeless(nullptr);
            control->SetVisible(true);
        }
    }

    std::mt19937 random{20261122};
    std::vector<Drop*> all;
    int32_t depth = 0;
    int32_t events = 0;
};

Drop::~Drop() noexcept {
    std::erase(storm.all, this);
}

bool Drop::ProcessEvent(const MSystemEvent& event) {
    Storm& all = storm;
    all.events += 1;
    const MControlRef self(this);
    all.Meddle();
    return !self || all.Get(3) == 0 || MControl::ProcessEvent(event);
}

bool Drop::PreviewEvent(MControl* target, const MSystemEvent& event) {
    const MControlRef self(this);
    const MControlRef next(target);
    if (storm.Get(8) == 0) storm.Meddle();
    return !self || MControl::PreviewEvent(next.Get(), event);
}

bool Drop::Paint(MDrawer& drawer) {
    const MControlRef self(this);
    if (storm.Get(8) == 0) Invalidate();
    return self && MControl::Paint(drawer);
}

bool Drop::OnDragOver(MControl&, MPoint) {
    storm.Meddle();
    return true;
}

bool Drop::OnDropAccepted(MControl&, MPoint) {
    storm.Meddle();
    return true;
}

void Drop::OnDragFinished(MControl*, MPoint, bool) {
    storm.Meddle();
}

void Drop::Click(const MOnClickParams&) {
    storm.Meddle();
}

TEST(EventStormTest, TouchesNothingThatHasEnded) {
    Storm storm;
    while (storm.events < STORM_EVENTS) {
        if (storm.all.size() < 20) storm.Grow(storm.Get(8) ? storm.GetAny() : nullptr);
        if (storm.Get(20) == 0) storm.Mend();
        storm.Step();
    }
    while (!storm.all.empty()) delete storm.all.back();
    EXPECT_TRUE(storm.windows.GetRoots().IsEmpty());
}

}  // namespace
