// Windows of real controls in the look of the programs, from a control document.

#include "bench/MComparison.h"
#include "bench/MRecordingDrawer.h"
#include "embedded/MProgramBlocks.h"
#include "foundation/base/MException.h"
#include "streams/basic/MMemoryStream.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/windows/MWindows.h"
#include "ui/loader/MStandardCreators.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <memory>
#include <string>

namespace {

constexpr int Rounds = 41;
constexpr MPoint Size{1000, 700};

/// About 120 controls on a page of tabs.
std::string MakeDocument() {
    std::string rows;
    for (int row = 0; row < 16; ++row)
        rows +=
            "<static caption=\"Row\"/><edit text=\"Presets and manual\"/><button caption=\"Browse\"/>"
            "<checkbox caption=\"Components\" check=\"on\"/><tracker value=\"0.3\"/><comboedit text=\"Stereo\"/>";
    std::string items;
    for (int row = 0; row < 40; ++row)
        items += "<item text=\"A row of the list\" icon=\"file\" check=\"1\"/>";
    return "<window caption=\"Options\" captiontype=\"normal\"><vertical><tabset><item text=\"General\"><left>"
           "<listbox checkboxes=\"1\" sizex=\"180\">" +
           items + "</listbox></left><grid columns=\"6\">" + rows +
           "</grid><bottom><progressbar value=\"40\"/><knob/><rotator/></bottom></item><item text=\"Details\"/></tabset>"
           "</vertical></window>";
}

class Window {
public:
    Window() {
        module.SetEmbeddedBlocks(MGetProgramBlocks());
        module.Initialize();
        windows = std::make_unique<MWindows>(std::make_unique<MWindowSystemHeadless>(Size));
        auto style = std::make_unique<MTexturedStyle>(windows.get(), &module.GetResources());
        style->LoadStyle();
        windows->SetStyle(std::move(style));
        MControl::MXmlLoader::SetFiller(&MAddStandardCreators);
        root = std::make_unique<MControl>(nullptr, "window");
        root->SetControlType(MControlType::Window);
        const std::string text = MakeDocument();
        MMemoryStream stream(text.data(), static_cast<int32_t>(text.size()));
        MXMLItem document;
        document.Load(stream);
        root->LoadFromXml(document);
        root->Set(MControlFlag::AdaptSize, false);
        root->size = Size;
        root->CreateWindow(nullptr);
        root->ShowModeless(nullptr);
        root->RedrawNow();
        Record(*root);
        if (recorder.CountPrimitives() < 1000) MRaise(MExceptionGeneral, "The window shows too little.");
        bitmap.CreateOpaque(Size.x, Size.y);
        drawer.SetBitmap(&bitmap);
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    ~Window() { root.reset(); }

    void Paint() {
        root->Invalidate();
        root->PerformPaintDispatch();
    }
    void PaintBare() { recorder.Replay(drawer); }
    [[nodiscard]] size_t CountPrimitives() const { return recorder.CountPrimitives(); }

private:
    void Record(MControl& control) {
        if (!control.IsShown()) return;
        MDrawerUsingStyle<MDrawer> painter(*control.GetStyle(), control);
        painter.SetTarget(&recorder);
        painter.SetTranslation(control.windowOffset.x, control.windowOffset.y);
        painter.SetSize(control.GetShownSize().x, control.GetShownSize().y);
        painter.SetClip(control.contentRect);
        if (control.GetControlType() != MControlType::Empty) control.PaintWith(painter);
        for (MControl* child : control.GetChildren()) Record(*child);
    }

    MModule module;
    std::unique_ptr<MWindows> windows;
    std::unique_ptr<MControl> root;
    MRecordingDrawer recorder{MRect::FromSize(0, 0, Size.x, Size.y)};
    MBitmap bitmap;
    MDrawerToMBitmap drawer;
};

MComparison CompareRepaint() {
    Window window;
    constexpr int Repetitions = 5;
    const auto repeat = [&](void (Window::*paint)()) {
        return [&window, paint] {
            for (int i = 0; i < Repetitions; ++i) (window.*paint)();
        };
    };
    MComparison comparison = MCompareSpeeds(Rounds, MClock::Processor, Repetitions,
                                            {{}, repeat(&Window::PaintBare)}, {{}, repeat(&Window::Paint)});
    comparison.unit = "/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = 2;
    comparison.note += "; ours are the " + std::to_string(window.CountPrimitives()) +
                       " bare primitives, the reference is the window";
    return comparison;
}

[[maybe_unused]] const bool isRegistered = MRegisterComparison("Controls, a page of widgets", CompareRepaint);

}  // namespace
