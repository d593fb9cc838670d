// Usage: first-window bare|styled
//
// Opens a window on the display and ends once it has been painted: a bare one, of one colour, or a page of controls in
// the look of the programs. What lies between the two are style, icons and fonts.

#include "embedded/MProgramBlocks.h"
#include "foundation/base/MException.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MMemoryStream.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/MRenderer.h"
#include "ui/control/windows/MWindows.h"
#include "ui/control/windows/MWindowsModule.h"
#include "ui/loader/MStandardCreators.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/window/MNativeWindowSystem.h"

#include <cstdio>
#include <string_view>

namespace {

constexpr MPoint Size{640, 420};
constexpr std::string_view Page =
    "<window caption=\"Setup\" captiontype=\"normal\"><vertical><static caption=\"Choose what to install.\"/>"
    "<listbox checkboxes=\"1\"><item text=\"Plug-in\" icon=\"file\" check=\"1\"/>"
    "<item text=\"Presets\" icon=\"directory\"/></listbox><edit text=\"Music\"/><progressbar value=\"40\"/><right><button caption=\"Back\" icon=\"left\"/>"
    "<button caption=\"Next\" icon=\"right\"/></right></vertical></window>";

/// Fills the window, without a style.
class BareRenderer final : public MRenderer {
public:
    bool InvalidateRect(MControl& control, const MRect& rect) override { return control.RecordDirty(rect); }
    void Render(MControl& control, const MRect& rect) override {
        GetWindow(control).FillRectangle(rect, {40, 40, 48, 255}, MDrawMode::Copy);
    }
    [[nodiscard]] std::unique_ptr<MDrawer> CreateDrawer(MControl&) override { return nullptr; }

private:
    static MDrawer& GetWindow(MControl& control) {
        return *MWindows::GetInstance()->GetSystem().GetDrawer(control.GetRoot());
    }
};

void ShowBare(MControl& root) {
    root.GetRootState().renderer = std::make_unique<BareRenderer>();
}

void ShowStyled(MWindows& windows, MWindowsModule& module, MControl& root) {
    module.SetEmbeddedBlocks(MGetProgramBlocks());
    module.Initialize();
    auto style = std::make_unique<MTexturedStyle>(&windows, &module.GetResources());
    style->LoadStyle();
    windows.SetStyle(std::move(style));
    MControl::MXmlLoader::SetFiller(&MAddStandardCreators);
    MMemoryStream stream(Page.data(), static_cast<int32_t>(Page.size()));
    MXMLItem document;
    document.Load(stream);
    root.LoadFromXml(document);
}

void Run(bool isStyled) {
    MWindowsModule module;
    MModule::SetInstance(&module);
    MWindows windows(MCreateNativeWindowSystem());
    MControl root(nullptr, "window");
    root.SetControlType(MControlType::Window);
    if (isStyled)
        ShowStyled(windows, module, root);
    else
        ShowBare(root);
    root.Set(MControlFlag::AdaptSize, false);
    root.size = Size;
    root.CreateWindow(nullptr);
    root.ShowModeless(nullptr);
    root.RedrawNow();
}

}  // namespace

int main(int count, char** arguments) {
    const std::string_view kind = count == 2 ? arguments[1] : "";
    if (kind != "bare" && kind != "styled") {
        std::fputs("Usage: first-window bare|styled\n", stderr);
        return 2;
    }
    try {
        Run(kind == "styled");
        return 0;
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", MEncodeUTF8Exact(exception.GetMessage()).c_str());
        return 1;
    }
}
