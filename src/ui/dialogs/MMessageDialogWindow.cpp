#include "ui/dialogs/MMessageDialogWindow.h"

#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/windows/MWindows.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/scrolling/MViewer.h"

#include <algorithm>
#include <memory>

namespace {

/// As wide as is pleasant to read, wider if it would not fit onto the desktop.
class InfoText final : public MStaticMultiLine {
public:
    InfoText(MControl* parent, const MString& text) : MStaticMultiLine(parent, "Info") {
        Set(MControlFlag::Plastic, false);
        SetContentAlignment(MAlignLeft);
        SetText(text);
    }

    /// What there may be of it on the desktop, in pixels.
    static MPoint GetRoom() {
        const MRect desktop = MWindows::GetInstance()->GetSystem().GetWorkArea(std::nullopt);
        return {desktop.GetWidth() * 2 / 3, desktop.GetHeight() * 2 / 3};
    }
    void GetMinimalContentSize(int32_t& x, int32_t& y) override {
        constexpr int32_t PleasantWidth = 400;
        MStyle* const style = GetStyle();
        if (!style) return;
        MDrawerUsingStyle<MDrawer> drawer(*style, *this);
        MSTML& text = static_cast<MContentSTML*>(GetContent())->GetDocument(GetContentLook());
        int32_t width = std::min(style->ScaleX(PleasantWidth), GetRoom().x);
        if (text.Measure(drawer, width) > GetRoom().y) width = GetRoom().x;
        const int32_t optimal = text.GetOptimalWidth(drawer, width);
        const MPoint border = GetContentBorder();
        x = optimal + 2 * border.x;
        y = text.Measure(drawer, optimal) + 2 * border.y;
    }
};

/// The text itself, or a view of it where it is higher than the desktop.
MControl& AddInfo(MControl& container, const MString& text) {
    auto info = std::make_unique<InfoText>(&container, text);
    MPoint size;
    info->GetMinimalContentSize(size.x, size.y);
    if (size.y <= InfoText::GetRoom().y) return *info.release();
    info.reset();
    auto& viewer = *new MViewer(&container, "Info");
    viewer.SetText(text);
    viewer.minClientSize = {480, 320};
    return viewer;
}

const char* GetCaptionOf(MStdBitmap bitmap) {
    switch (bitmap) {
    case MStdBitmap::Question: return "Question";
    case MStdBitmap::Exclamation:
    case MStdBitmap::No: return "Error";
    default: return "Information";
    }
}

}  // namespace

MMessageDialogWindow::MMessageDialogWindow(const MString& name, const MString& text, MMessageButtons buttons,
                                           MStdBitmap bitmap, MModalValue safe)
    : MDialogWindow(name, MTranslate(GetCaptionOf(bitmap))) {
    MControl& container = GetContainer();
    auto& row = *new MLayoutHorizontal(container);
    auto& image = *new MStatic(&container, "Image");
    image.SetContent(std::make_unique<MContentStdBitmap>(bitmap));
    image.SetContentAlignment(MAlignTop);
    image.layoutRatio.x = 0;
    MString paragraphs = text;
    paragraphs.ReplaceChar('\n', "<p>");
    row.Add(image);
    row.Add(AddInfo(container, paragraphs));

    const auto add = [&](const char* id, const char* caption, MModalValue value) {
        MButton& button = AddButton(id, MTranslate(caption), value);
        if (value == safe || buttons == MMessageButtons::Close) SetDefaultButton(button, &button);
    };
    switch (buttons) {
    case MMessageButtons::Close: add("closebutton", "Close", MModalValue::Ok); return;
    case MMessageButtons::YesNoIgnore: add("closebutton", "Ignore", MModalValue::Ok); break;
    case MMessageButtons::YesNoCancel: add("closebutton", "Cancel", MModalValue::Cancel); break;
    case MMessageButtons::YesNo: break;
    }
    add("cancelbutton", "No", MModalValue::No);
    add("okbutton", "Yes", MModalValue::Yes);
}

MModalValue MMessageDialogWindow::MessageBox(const MString& text, MMessageButtons buttons, MStdBitmap bitmap,
                                             MControl* owner, MModalValue safe) {
    if (!MWindows::GetInstance()) return MModalValue::Cancel;
    MMessageDialogWindow window(GetCaptionOf(bitmap), text, buttons, bitmap, safe);
    return window.RunModal(owner);
}
