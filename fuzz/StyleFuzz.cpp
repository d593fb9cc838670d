// The input is a style file: a blob with a definition and pictures; or, where it begins with "<", a definition alone,
// which uses the pictures of a style of its own. What loads has to paint every class and part in small and odd sizes,
// and neither may take long or much memory.

#include "foundation/base/MException.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/resources/MResourceLibrary.h"
#include "ui/control/MControl.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/style/MTexturedStyle.h"

#include <cstddef>
#include <cstdint>

namespace {

/// A control in any state.
class PosedControl final : public MControl {
public:
    ~PosedControl() noexcept override = default;
    MDrawState GetDrawState() override { return state; }

    MDrawState state = MDrawEnabled;
};

/// Fonts come from the machine, so that what the definition says of them is read too.
void Load(MTexturedStyle& style, MResourceLibrary& library, const uint8_t* data, size_t size) {
    MMemoryStream stream(data, static_cast<int32_t>(size));
    if (size > 0 && data[0] == '<') {
        MXMLItem definition;
        definition.Load(stream);
        style.LoadDefinition(definition);
        return;
    }
    library.Load(stream);
    MXMLItem settings;
    style.LoadFromSettings(settings);
}

void PaintAll(MTexturedStyle& style, MControlType type, MPoint size, MDrawState state) {
    static MBitmap bitmap = [] {
        MBitmap made;
        made.CreateOpaque(128, 128);
        return made;
    }();
    PosedControl control;
    control.SetControlType(type);
    control.SetCaption("Caption", MCaptionType::Normal);
    control.size = size;
    control.state = state;
    MRect client;
    style.ComputeRectangles(control, control.windowRect, client);
    MDrawerUsingStyle<MDrawerToMBitmap> drawer(style, control);
    drawer.SetBitmap(&bitmap);
    style.PaintControl(control, drawer);
    const MRect& rect = control.windowRect;
    style.PaintValue(control, drawer, rect, {0.3, 0.5, 0.8, state});
    style.PaintListItem(control, drawer, rect, state);
    style.PaintTab(control, drawer, rect, state);
    style.PaintMenuBarItem(control, drawer, rect, state);
    style.PaintSelection(control, drawer, rect, state);
    style.PaintTreeExpander(control, drawer, rect, true, state);
    style.PaintSplitter(control, drawer, rect, true, state);
    style.PaintCheckMark(control, drawer, rect, MCheckMarkShape::RadioButton, 1, state);
    style.PaintVerticalScrollBar(control, drawer, {rect, rect, rect, rect, state, state, state, state});
    for (int32_t part = 0; part < static_cast<int32_t>(MStylePart::Count); ++part)
        (void)style.GetPartSize(control, static_cast<MStylePart>(part));
    (void)style.GetMinimalSize(control);
    (void)style.GetCollapsedSize(control);
    (void)style.GetTrackerRect(control, 0.5);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MResourceLibrary library;
    MTexturedStyle style(nullptr, &library);
    try {
        Load(style, library, data, size);
        for (int32_t type = 0; type <= static_cast<int32_t>(MControlType::MenuBar); ++type) {
            PaintAll(style, static_cast<MControlType>(type), {40, 20}, MDrawEnabled | MDrawFocused);
            PaintAll(style, static_cast<MControlType>(type), {3, 90}, MDrawDisabled);
        }
        for (int32_t icon = 0; icon < 8; ++icon) (void)style.GetStdIcon(icon);
        (void)style.GetStdBitmap(0);
    } catch (const MException&) {}
    return 0;
}
