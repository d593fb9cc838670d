#pragma once

#include "examples/windows/MPlainStyle.h"
#include "tests/support/MTestText.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

/// Tells what reaches it, and does what a test wants it to.
class Probe : public MControl {
public:
    Probe(MControl* parent, const char* name, std::string& log) : MControl(parent, name), log(log) {}

    ~Probe() noexcept override = default;

    void Tell(const std::string& what) { log += Text(GetName()) + ":" + what + " "; }
    bool ProcessEvent(const MSystemEvent& event) override {
        static constexpr const char* Names[] = {
            "down",       "rightdown",   "middledown",   "up",   "rightup", "middleup",
            "double",     "rightdouble", "middledouble", "move", "wheel",   "enter",
            "leave",      "key",         "keyup",        "char", "focus",   "blur",
            "activation", "collapse",    "vanish",       "drag"};
        if (event.type != MEventType::MouseMove) Tell(Names[static_cast<size_t>(event.type)]);
        const MControlRef self(this);
        if (const auto action = onEvent) action(event);
        return !self || takes || MControl::ProcessEvent(event);
    }
    bool OnDragOver(MControl&, MPoint) override {
        Tell("over");
        return true;
    }
    bool OnDropAccepted(MControl&, MPoint point) override {
        Tell("drop" + std::to_string(point.x) + "," + std::to_string(point.y));
        return takes;
    }
    void OnDragFinished(MControl* target, MPoint, bool isAccepted) override {
        Tell(!target ? "cancelled" : isAccepted ? "accepted" : "refused");
    }
    bool OnFilesDropped(const MList<MString>& files) override {
        Tell("files" + std::to_string(files.GetCount()));
        return takes || MControl::OnFilesDropped(files);
    }
    bool CanClose() override {
        Tell("canclose");
        return canClose;
    }
    void OnHidden() override { Tell("hidden"); }
    void TellClick(const MOnClickParams& params) { Tell("click" + std::to_string(params.point.x)); }
    void TellDoubleClick(const MOnClickParams&) { Tell("doubleclick"); }

    std::function<void(const MSystemEvent&)> onEvent;
    bool takes = false;
    bool canClose = true;

private:
    std::string& log;
};

/// A screen in memory with one window at (100, 100), 300 by 200.
class ControlTest : public testing::Test {
protected:
    ControlTest() : ControlTest(std::make_unique<MWindowSystemHeadless>()) {}
    ~ControlTest() noexcept override = default;

    template <class Root>
    static void Open(Root& root, MPoint position = {100, 100}, MPoint size = {300, 200}) {
        Prepare(root, position, size);
        root.ShowModeless(nullptr);
    }
    static void Prepare(MControl& root, MPoint position = {100, 100}, MPoint size = {300, 200}) {
        root.SetControlType(MControlType::Window);
        root.size = size;
        root.position = position;
        root.Set(MControlFlag::AdaptSize, false);
        root.Set(MControlFlag::MoveToScreenCenter, false);
        root.Set(MControlFlag::KeepsApplicationAlive);
        root.CreateWindow(nullptr);
    }
    template <class Control>
    static Control& Place(Control& control, const MRect& rect) {
        control.Set(MControlFlag::OverlayControl);
        control.Set(MControlFlag::AdaptSize, false);
        control.position = rect.GetTopLeft();
        control.size = {rect.GetWidth(), rect.GetHeight()};
        return control;
    }
    /// What has been told since the last time.
    std::string Take() {
        std::string taken = std::exchange(log, "");
        if (!taken.empty()) taken.pop_back();
        return taken;
    }

    MWindowSystemHeadless& system;
    MWindows windows;
    MHeadlessUser& user;
    std::string log;

private:
    explicit ControlTest(std::unique_ptr<MWindowSystemHeadless> owned)
        : system(*owned), windows(std::move(owned)), user(system.GetUser()) {
        windows.SetStyle(std::make_unique<MPlainStyle>(&windows, SYSTEM_FONTS));
    }
};
