#include "foundation/text/MUnicode.h"
#include "tests/ui/style/StyleFixture.h"
#include "ui/control/MContainers.h"
#include "ui/control/windows/MWindows.h"
#include "ui/style/MProgramIcons.h"
#include "ui/style/captions/ControlCaptionInstance.h"
#include "ui/style/captions/MCaptionPanel.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

namespace {

/// A screen in memory with the style of the program.
class CaptionTest : public testing::Test {
protected:
    CaptionTest() : CaptionTest(std::make_unique<MWindowSystemHeadless>()) {}
    ~CaptionTest() noexcept override = default;

    void Open() {
        window.Set(MControlFlag::KeepsApplicationAlive);
        window.minClientSize = {300, 200};
        window.CreateWindow(nullptr);
        window.ShowModeless(nullptr);
    }
    /// The control of a caption button, or null.
    static MControl* FindButton(MControl& owner, const char* name) {
        const ControlCaptionInstance* const instance = ControlCaptionInstance::Find(owner);
        if (!instance) return nullptr;
        for (MControl* child : instance->GetPanel()->GetChildren())
            if (child->GetName() == name) return child;
        return nullptr;
    }
    void Click(MControl& control) {
        system.GetUser().Click(control.GetScreenPoint({control.size.x / 2, control.size.y / 2}));
    }

    MWindowSystemHeadless& system;
    MWindows windows;
    MTexturedStyle* style;
    MWindow window{"Main", "A title"};

private:
    explicit CaptionTest(std::unique_ptr<MWindowSystemHeadless> owned)
        : system(*owned), windows(std::move(owned)) {
        auto made = std::make_unique<MTexturedStyle>(&windows, &GetProgramStyle(),
                                                     MTexturedStyle::FontSource::Traveling);
        made->LoadStyle();
        style = made.get();
        windows.SetStyle(std::move(made));
    }
};

TEST_F(CaptionTest, ThePictureOfTheProgramHasTheSizesThatManagersAskFor) {
    MShowProgramIcons(windows, GetProgramStyle());
    std::string sizes;
    for (const MBitmap& icon : windows.GetIcons()) sizes += std::to_string(icon.GetWidth()) + " ";
    EXPECT_EQ(sizes, "16 32 48 ");
}

TEST_F(CaptionTest, WindowsHaveTheButtonsThatTheyNeed) {
    window.Set(MControlFlag::MaximizeAllowed);
    Open();
    EXPECT_TRUE(FindButton(window, "Close"));
    ASSERT_TRUE(FindButton(window, "Maximize"));
    EXPECT_FALSE(FindButton(window, "Minimize"));
    EXPECT_FALSE(FindButton(window, "Help"));

    // They lie in the caption, at its right end, also after the window has become wider.
    for (const int32_t width : {400, 700, 350}) {
        system.Resize(window, {width, 300});
        window.OnWindowSized({width, 300});
        MControl& close = *FindButton(window, "Close");
        const MRect place = close.contentRect.Shifted(close.windowOffset);
        EXPECT_TRUE(style->HitCaption(window, place.GetTopLeft()));
        EXPECT_TRUE(style->HitCaption(window, {place.right, place.bottom}));
        EXPECT_LE(window.size.x - place.right, 12);
        EXPECT_GT(window.size.x, place.right);
        EXPECT_FALSE(style->HitCaption(window, {place.left, window.clientRect.top}));
    }
    EXPECT_EQ(style->GetCaptionPanel(window), FindButton(window, "Close")->GetParent());

    Click(*FindButton(window, "Maximize"));
    EXPECT_TRUE(system.IsMaximized(window));
    Click(*FindButton(window, "Maximize"));
    EXPECT_FALSE(system.IsMaximized(window));
    Click(*FindButton(window, "Close"));
    EXPECT_FALSE(system.IsVisible(window));
}

TEST_F(CaptionTest, PanelsCollapseAndSwitchWhatIsInThem) {
    MPanel panel(&window, "panel");
    panel.SetCaption("Panel", MCaptionType::Normal);
    panel.Set(MControlFlag::Collapsable);
    panel.minClientSize = {150, 60};
    MControl child(&panel, "child");
    Open();
    ControlCaptionInstance& caption = *ControlCaptionInstance::Find(panel);
    caption.AddEnableButton();
    caption.AddButton(MStdIcon::Settings);
    window.UpdateLayout();

    Click(*FindButton(panel, "Enable"));
    EXPECT_FALSE(child.IsEnabled());
    EXPECT_TRUE(FindButton(panel, "Enable")->IsEnabled());
    Click(*FindButton(panel, "Enable"));
    EXPECT_TRUE(child.IsEnabled());
    EXPECT_TRUE(FindButton(panel, "Button1"));

    const int32_t height = panel.GetShownSize().y;
    Click(*FindButton(panel, "Collapse"));
    EXPECT_TRUE(panel.Is(MControlFlag::Collapsed));
    EXPECT_LT(panel.GetShownSize().y, height / 2);
    MControl& button = *FindButton(panel, "Collapse");
    EXPECT_TRUE(panel.contentRect.Contains(button.GetParent()->position));
    Click(button);
    EXPECT_EQ(panel.GetShownSize().y, height);
    EXPECT_FALSE(FindButton(window, "Close")->CanFocus());
    button.SetFocus();
    system.GetUser().PressKey(MKeySpace);
    EXPECT_TRUE(panel.Is(MControlFlag::Collapsed));
    button.DispatchEvent({.type = MEventType::KeyUp, .key = MKeyEnter});
    EXPECT_TRUE(panel.Is(MControlFlag::Collapsed)) << "a key that was pressed elsewhere";

    panel.SetCaption(MString(), MCaptionType::None);
    window.UpdateLayout();
    EXPECT_FALSE(style->GetCaptionPanel(panel));
    EXPECT_EQ(panel.GetChildren().GetCount(), 1);
}

TEST_F(CaptionTest, TheDesktopDecidesWhereTheUserHasNot) {
    Open();
    const MPoint before = window.minimalSize;
    system.SetDesktop(200, false);
    EXPECT_EQ(style->GetScale().x, 200);
    EXPECT_TRUE(style->GetColors().IsInverted());
    EXPECT_GE(window.size.x, 2 * before.x - 2);

    MStyleSettings settings = style->GetSettings();
    settings.resizeX = settings.resizeY = 150;
    settings.invertColors = false;
    style->SetSettings(settings);
    system.SetDesktop(300, std::nullopt);
    EXPECT_EQ(style->GetScale().x, 150);
    EXPECT_FALSE(style->GetColors().IsInverted());
}

TEST_F(CaptionTest, AWindowThatIsTooLargeForTheScreenMakesTheStyleSmaller) {
    system.SetDesktop(300, true);
    system.SetWorkAreas({{0, 0, 799, 599}});
    Open();
    EXPECT_LE(window.minimalSize.x, 800);
    EXPECT_LE(window.minimalSize.y, 600);
    EXPECT_LT(style->GetScale().x, 300);
    EXPECT_GT(style->GetScale().x, 200);
}

TEST_F(CaptionTest, ALongTitleMakesNoWindowTooLargeForTheScreen) {
    window.SetCaption(MDecodeUTF8Exact(std::string(2000, 'W')), MCaptionType::Normal);
    Open();
    EXPECT_LT(window.size.x, system.GetWorkArea(std::nullopt).GetWidth());
    EXPECT_EQ(style->GetScale().x, 100);
}

}  // namespace
