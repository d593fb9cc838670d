#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLItem.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestModule.h"
#include "tests/ui/control/ControlFixture.h"

namespace {

struct Value : MControl {
    using MControl::MControl;
    ~Value() noexcept override = default;
    bool SaveState(MXMLItem& item) override {
        if (value) item.SetAttribute("value", value);
        return MControl::SaveState(item) || value;
    }
    void LoadState(MXMLItem& item) override {
        value = item.GetInt32Attribute("value", 0);
        MControl::LoadState(item);
    }
    void ResetState() override { value = -1; }

    int32_t value = 0;
};

/// A window with a panel that can be collapsed and two values in it.
struct Window : MControl {
    explicit Window(const MString& name = "main") : MControl(nullptr, name) {
        SetControlType(MControlType::Window);
        size = {300, 200};
        for (const MControlFlag flag : {MControlFlag::AutoSaveState, MControlFlag::KeepsApplicationAlive})
            Set(flag);
        Set(MControlFlag::AdaptSize, false);
        panel.Set(MControlFlag::Collapsable);
        CreateWindow(nullptr);
    }
    ~Window() noexcept override = default;

    MControl panel{this, "panel"};
    Value first{&panel, "first"};
    Value second{&panel, "second"};
};

class WindowStateTest : public ControlTest {
protected:
    ~WindowStateTest() noexcept override = default;

    /// The state file of "main".
    MString GetFile() { return module.GetDataPath_File_User("Window_main.winstate", MString(), true); }
    void Write(const std::string& text) { MWriteTestFile(GetFile(), text); }
    static MRect Show(Window& window) {
        window.ShowModeless(nullptr);
        return MWindows::GetInstance()->GetSystem().GetFrame(window);
    }

    MScratch scratch;
    MScratchFolders folders{scratch};
    MTestModule module{scratch.Join("program")};
};

TEST_F(WindowStateTest, ComesBackWithTheWindow) {
    MRect frame;
    {
        Window window;
        EXPECT_EQ(Show(window), MRect::FromSize(810, 440, 300, 200)) << "centred at first";
        window.SetPosition({50, 60});
        system.Resize(window, {400, 250});
        frame = system.GetFrame(window);
        window.first.value = 7;
        window.panel.SetCollapsed(true);
        window.CloseWindow(MModalValue::None);
    }
    Window window;
    window.second.value = 3;
    window.size = {10, 10};
    const MRect loaded = Show(window);
    EXPECT_EQ(loaded.GetTopLeft(), frame.GetTopLeft());
    EXPECT_EQ(loaded.GetWidth(), 400);
    EXPECT_EQ(window.first.value, 7);
    EXPECT_EQ(window.second.value, -1) << "what was not saved is reset";
    EXPECT_TRUE(window.panel.Is(MControlFlag::Collapsed));
    system.Maximize(window);
    window.CloseWindow(MModalValue::None);
    {
        Window dialog;
        system.Post([&] {
            dialog.first.value = 9;
            dialog.CloseWindow(MModalValue::Cancel);
        });
        dialog.RunModal(nullptr);
    }
    Window again;
    EXPECT_EQ(Show(again), MRect::FromSize(0, 0, 1920, 1080));
    system.Restore(again);
    EXPECT_EQ(system.GetFrame(again), MRect::FromSize(810, 440, 300, 200));
    EXPECT_EQ(again.first.value, 7) << "what was cancelled is not kept";
}

TEST_F(WindowStateTest, TakesFromAnyFileWhatFitsTheScreen) {
    system.SetWorkAreas({MRect::FromSize(0, 0, 1000, 800), MRect::FromSize(1000, 0, 500, 500)});
    const MRect unchanged = MRect::FromSize(350, 300, 300, 200);
    const std::pair<const char*, MRect> cases[] = {
        {"", unchanged},
        {"windowposx=\"20\" windowposy=\"30\"", MRect::FromSize(20, 30, 300, 200)},
        {"windowposx=\"-100\" windowposy=\"750\"", MRect::FromSize(0, 600, 300, 200)},
        {"windowposx=\"1400\" windowposy=\"10\"", MRect::FromSize(1200, 10, 300, 200)},
        {"windowposx=\"-400\" windowposy=\"0\"", unchanged},
        {"windowposx=\"2147483646\" windowposy=\"-2147483648\"", unchanged},
        {"windowposx=\"2147483647\" windowposy=\"5\"", unchanged},
        {"windowposx=\"99999999999999999999\" windowsizex=\"x\"", unchanged},
        {"windowsizex=\"900\" windowsizey=\"0\"", MRect::FromSize(50, 320, 900, 160)},
        {"windowsizex=\"1500\" windowsizey=\"900\"", MRect::FromSize(0, 0, 1000, 800)},
        {"windowsizex=\"2001\" windowsizey=\"10\"", unchanged},
        {"windowsizex=\"2147483647\" windowsizey=\"2147483647\" windowposx=\"1\" windowposy=\"1\"",
         unchanged},
        {"windowsizex=\"-5\" windowsizey=\"-5\" windowposx=\"1\" windowposy=\"1\"",
         MRect::FromSize(1, 1, 200, 160)},
        {"maximized=\"1\" windowposx=\"20\"", MRect::FromSize(0, 0, 1000, 800)},
    };
    for (const auto& [attributes, expected] : cases) {
        Write("<?xml version=\"1.0\" encoding=\"utf-8\"?><ControlState " + std::string(attributes) + "/>");
        Window window;
        window.minimalSize = {200, 160};
        window.Set(MControlFlag::AutoDetectMinimalSize, false);
        EXPECT_EQ(Show(window), expected) << attributes;
    }
}

TEST_F(WindowStateTest, SurvivesDamagedFilesAndNames) {
    {
        Window window;
        Show(window);
        window.first.value = 7;
        window.CloseWindow(MModalValue::None);
    }
    const std::string whole = MReadTestFile(GetFile());
    for (size_t length = 0; length < whole.size(); length += 3) {
        Write(whole.substr(0, length));
        Window window;
        Show(window);
    }
    const std::string before = scratch.ListTree();
    for (const char* name : {"../evil", "a/b", "a\\b", "C:evil"}) {
        Window window(name);
        Value strange(&window, "no <element> name");
        strange.value = 1;
        Show(window);
        window.CloseWindow(MModalValue::None);
    }
    EXPECT_EQ(scratch.ListTree(), before);
}

}  // namespace
