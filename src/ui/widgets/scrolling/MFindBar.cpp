#include "ui/widgets/scrolling/MFindBar.h"

#include "foundation/base/MException.h"
#include "foundation/text/MStringFormatter.h"
#include "ui/layout/MLayoutClient.h"

MFindBar::MFindBar(MControl& parent, const MString& name) : MPanel(&parent, name) {
    SetControlType(MControlType::Control);
    auto* const row = new MLayoutHorizontal(*this);
    edit.infoText = MTranslate("What to find");
    row->Add(edit);
    counter.SetControlType(MControlType::Static);
    counter.Set(MControlFlag::TabStop, false);
    counter.layoutRatio.x = 0;
    // Enough for most counts, so that the entry keeps its width while something is typed.
    counter.minClientSize.x = 72;
    row->Add(counter);
    const struct {
        MButton& button;
        MStdIcon icon;
        const char* info;
    } buttons[] = {{previous, MStdIcon::Up, "Goes to the previous place"},
                   {next, MStdIcon::Down, "Goes to the next place"},
                   {close, MStdIcon::Close, "Closes the search"}};
    for (const auto& [button, icon, info] : buttons) {
        button.SetBackgroundShown(false);
        button.SetIcon(icon);
        button.infoText = MTranslate(info);
        button.layoutRatio = {0, 0};
        button.MControl::OnClick(Click::Left).Connect(this, &MFindBar::OnButton);
        row->Add(button);
    }
    ShowCount(0, -1);
}

void MFindBar::ShowCount(int32_t count, int32_t current) {
    if (edit.GetLength() == 0) return counter.SetText({});
    counter.SetText(count == 0 ? MTranslate("Nothing found")
                               : MFormat(MTranslate("{0} of {1}"), current + 1, count));
}

void MFindBar::OnButton(const MOnClickParams& params) {
    if (onStep) onStep(params.control == &previous ? -1 : params.control == &next ? 1 : 0);
}
