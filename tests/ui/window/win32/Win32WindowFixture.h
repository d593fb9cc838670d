#pragma once

#include "examples/windows/MPlainStyle.h"
#include "foundation/win32/MWindowsHeader.h"
#include "tests/support/MTestText.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/MNativeWindowSystem.h"

#include <functional>
#include <string>
#include <vector>

/// A window that writes down what it hears and is painted in one colour, another one each time.
class LoggingWindow : public MControl {
public:
    explicit LoggingWindow(const char* name, MRect frame = MRect::FromSize(100, 80, 300, 200))
        : MControl(nullptr, name) {
        SetCaption(name, MCaptionType::Normal);
        SetControlType(MControlType::Window);
        position = frame.GetTopLeft();
        size = {frame.GetWidth(), frame.GetHeight()};
        for (const MControlFlag flag : {MControlFlag::AdaptSize, MControlFlag::MoveToScreenCenter})
            Set(flag, false);
        for (const MControlFlag flag :
             {MControlFlag::AcceptsFiles, MControlFlag::InTaskbar, MControlFlag::KeepsApplicationAlive})
            Set(flag);
        CreateWindow(nullptr);
    }
    ~LoggingWindow() noexcept override = default;

    bool PreviewEvent(MControl*, const MSystemEvent& event) override {
        const bool isMove = event.type == MEventType::MouseMove && !logsMoves;
        if (isMove || (!event.HasPosition() && !event.IsKeyboard())) return isMove;
        Tell(event);
        return !event.IsDoubleClick();
    }
    bool ProcessEvent(const MSystemEvent& event) override {
        if (event.type != MEventType::Activation) return MControl::ProcessEvent(event);
        Tell(event);
        return true;
    }
    bool Paint(MDrawer& drawer) override {
        if (onPaint) onPaint();
        drawer.FillRectangle(MRect::FromSize(0, 0, size.x, size.y), GetColor(++paints), MDrawMode::Copy);
        return false;
    }
    void OnCaptureLost() override {
        log += "capture lost\n";
        MControl::OnCaptureLost();
    }
    void OnMouseLeave() override {
        if (logsMoves) log += "left\n";
        MControl::OnMouseLeave();
    }
    bool OnFilesDropped(const MList<MString>& files) override {
        for (const MString& file : files) log += Text(file) + "\n";
        return true;
    }

    static MColor GetColor(int32_t paint) {
        return MColor::FromRGB(static_cast<uint8_t>(40 * paint), 100, 7);
    }
    std::string TakeLog() { return std::exchange(log, std::string()); }

    std::function<void(const MSystemEvent&)> onEvent;
    std::function<void()> onPaint;
    std::string log;
    int32_t paints = 0;
    bool logsMoves = false;

private:
    void Tell(const MSystemEvent& event) {
        log += Describe(event) + "\n";
        if (const auto action = onEvent) action(event);
    }
    static std::string Describe(const MSystemEvent& event) {
        std::string text = std::to_string(static_cast<uint32_t>(event.type)) + " ";
        if (event.type == MEventType::Activation) return event.flag ? "active" : "inactive";
        if (event.IsKeyboard()) return text + std::to_string(event.key + event.character);
        text += std::to_string(event.point.x) + "," + std::to_string(event.point.y) + " ";
        text += std::to_string(event.modifiers);
        return event.wheelDelta ? text + " " + std::to_string(event.wheelDelta) : text;
    }
};

class Win32WindowTest : public testing::Test {
protected:
    Win32WindowTest() { windows.SetStyle(std::make_unique<MPlainStyle>(&windows, SYSTEM_FONTS)); }
    ~Win32WindowTest() noexcept override = default;

    HWND Open(LoggingWindow& window) {
        window.ShowModeless(nullptr);
        PumpUntil([&] { return window.paints > 0 && system.GetActiveRoot() == &window; });
        window.TakeLog();
        return GetHandle(window);
    }
    HWND GetHandle(MControl& window) { return reinterpret_cast<HWND>(system.GetNativeHandle(window)); }
    /// Handles messages until something is so, for at most five seconds; returns whether it is.
    bool PumpUntil(const std::function<bool()>& isSo) {
        const int64_t end = system.GetTime() + 5000;
        while (!isSo() && system.GetTime() < end)
            if (system.ProcessPending() == 0) Sleep(1);
        return isSo();
    }
    void Pump(int64_t milliseconds) {
        const int64_t end = system.GetTime() + milliseconds;
        PumpUntil([&] { return system.GetTime() >= end; });
    }

    MWindows windows{MCreateNativeWindowSystem()};
    MWindowSystem& system = windows.GetSystem();
    LoggingWindow window{"First"};
};
