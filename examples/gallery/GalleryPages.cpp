#include "examples/gallery/GalleryPages.h"

#include "examples/gallery/GalleryDialogs.h"
#include "foundation/base/MRaise.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/values/MValueEnum.h"
#include "foundation/values/MValuePercents.h"
#include "ui/control/kinds/MStdBitmap.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/buttons/MButtonWithInfo.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/buttons/MRadioGroup.h"
#include "ui/widgets/content/MPanelGradient.h"
#include "ui/widgets/content/MStatic.h"
#include "ui/widgets/edits/MKeyboardControl.h"
#include "ui/widgets/lists/MListBox.h"
#include "ui/widgets/lists/MSTMLListBoxItem.h"
#include "ui/widgets/scrolling/MViewer.h"
#include "ui/widgets/splitters/MSplitter.h"
#include "ui/widgets/tabs/MTabSet.h"
#include "ui/widgets/values/MSelector.h"
#include "ui/widgets/values/MTracker.h"

namespace {

MControl* FindBelow(MControl& control, const MString& name) {
    for (MControl* child : control.GetChildren()) {
        if (child->GetName() == name) return child;
        if (MControl* const found = FindBelow(*child, name)) return found;
    }
    return nullptr;
}

/// A control of a page, which the document has.
template <class Kind = MControl>
Kind& Find(MControl& page, const MString& name) {
    auto* const found = dynamic_cast<Kind*>(FindBelow(page, name));
    if (!found)
        MRaise(MExceptionGeneral, "The document has no \"{0}\" on the page \"{1}\".", name, page.GetName());
    return *found;
}

MStatic& AddText(MControl& parent, const MString& text) {
    auto* const added = new MStatic(&parent, "text");
    added->SetText(text);
    added->SetContentAlignment(MAlignCenter);
    return *added;
}

/// Radio buttons that belong together, and end with their page.
class RadioGroup final : public MObject {
public:
    static constexpr uint32_t Key = 0x4F444152;  // "RADO"

    explicit RadioGroup(MControl& page) {
        for (const char* name : {"radio1", "radio2", "radio3"}) group.Add(Find<MCheckBox>(page, name));
    }

private:
    MRadioGroup group;
};

void CompleteButtons(MControl& page) {
    page.SetProperty(RadioGroup::Key, std::make_unique<RadioGroup>(page));
    MControl& choices = Find(page, "choices");
    auto* const row = new MLayoutTop(choices);
    row->space = 7;
    for (const auto& [name, text] : {std::pair{"Typical", "What most people need, about 120 MB."},
                                     {"Everything", "All plug-ins with all their presets, about 480 MB."},
                                     {"Custom", "Choose every single thing yourself."}}) {
        auto* const button = new MButtonWithInfo(&choices, name);
        button->SetInfo(name, text);
        row->Add(*button);
    }
}

void CompleteValues(MControl& page) {
    auto& range = Find<MTracker>(page, "trackerrange");
    // Outlives the tracker.
    static MValuePercents end("end", 0, 1, 0.7);
    range.SetMaxValue(&end);
    MControl& selectors = Find(page, "selectors");
    auto* const selector = new MSelector(&selectors, "selector");
    selector->SetValue(std::make_unique<MValueEnum<MCaptionType>>("size", MCaptionType::Normal));
    (new MLayoutTop(selectors))->Add(*selector);
}

void CompleteTexts(MControl& page) {
    Find(page, "long").Set(MControlFlag::IgnoreWidthInLayout);
    MControl& documents = Find(page, "documents");
    auto* const viewer = new MViewer(&documents, "viewer");
    viewer->SetText(
        "<header1>A document</header1><p>It scrolls, finds words by Ctrl+F, and opens addresses as "
        "https://www.corvanth.example when they are clicked.</p><br><header2>A list</header2><li>One</li><li>Another "
        "one</li><br><header2>A table</header2><tr border=1 borderalpha=60><td width=40%>Name</td><td>Size</td></tr>"
        "<tr border=1 borderalpha=60><td width=40%>Presets</td><td>12 MB</td></tr><hline><p><alpha value=180>What is "
        "below can be reached by the wheel.</alpha></p><p>There is even more text.</p><p>And an end of it.</p>");
    documents.SetClientControl(viewer);
}

void CompleteLists(MControl& page) {
    constexpr const char* Effects[] = {"Autopan", "Bass",   "Chorus", "Delay",   "Exciter",
                                       "Flanger", "Gate",   "Hall",   "Impulse", "Limiter",
                                       "Noise",   "Phaser", "Reverb", "Tremolo"};
    for (const char* list : {"list", "checks", "columns"}) {
        auto& box = Find<MListBox>(page, list);
        for (int32_t i = 0; const char* effect : Effects) {
            MListBoxItem& item = box.AddItem(effect);
            item.check = ++i % 3 == 0;
            item.isEnabled = i != 6;
            if (box.GetName() == "list") item.icon = i % 2 ? MStdIcon::Sound : MStdIcon::Signal;
        }
        box.SelectRow(2);
    }
    MControl& rich = Find(page, "richlist");
    auto* const rows = new MListBoxT<MSTMLListBoxItem>(&rich, "rows");
    rows->SetCheckBoxes(true);
    for (const auto& [name, text] :
         {std::pair{"VST3 plug-ins", "For every current host. Recommended."},
          {"CLAP plug-ins", "For hosts that speak it."},
          {"AAX plug-ins", "Needs a 64-bit host."},
          {"Factory presets", "1,328 presets in 14 banks, which can also be installed later."}})
        rows->AddItem(MFormat("<b>{0}</b><p><alpha value=180>{1}</alpha>", name, text)).check =
            name[0] != 'A';
    rows->SelectRow(0);
    rich.SetClientControl(rows);
}

void CompleteBars(MControl& page) {
    auto& tabs = Find<MTabSet>(page, "innertabs");
    for (int32_t index = 0; index < tabs.GetTabCount(); ++index)
        tabs.GetPage(index).SetClientControl(&AddText(tabs.GetPage(index), MFormat("Page {0}", index + 1)));
    auto& splitter = Find<MSplitter>(page, "splitter");
    for (const int32_t index : {0, 1})
        splitter.GetPanel(index).SetClientControl(
            &AddText(splitter.GetPanel(index), index ? "The right panel" : "The left panel"));
    splitter.SetRatio(2, 3);
    MControl& scrollers = Find(page, "scrollers");
    auto* const scroller = new MScroller(&scrollers, "scroller");
    auto* const large = new MPanelGradient(&scroller->GetContainer(), "large");
    large->SetText("What is larger than its place");
    large->minClientSize = {700, 400};
    scroller->GetContainer().SetClientControl(large);
    scrollers.SetClientControl(scroller);
}

void CompletePanels(MControl& page) {
    MControl& gradients = Find(page, "gradients");
    auto* const row = new MLayoutHorizontal(gradients);
    auto* const gradient = new MPanelGradient(&gradients, "gradient");
    gradient->SetText("A title");
    row->Add(*gradient);
    auto* const black = new MPanelGradientBlack(&gradients, "black");
    black->SetText("A title on black");
    row->Add(*black);
}

void CompleteColours(MControl& page) {
    MControl& keyboards = Find(page, "keyboards");
    keyboards.SetClientControl(new MKeyboardControl(&keyboards, "keyboard"));
}

void CompleteIcons(MControl& page) {
    MControl& icons = Find(page, "icons");
    auto* const grid = new MLayoutGrid(icons);
    grid->SetColumnCount(18);
    grid->space = -6;
    for (size_t i = 0; i < std::size(MStdIconNames); ++i) {
        auto* const icon = new MStatic(&icons, MStdIconNames[i]);
        icon->SetIcon(static_cast<MStdIcon>(i));
        icon->SetContentAlignment(MAlignCenter);
        icon->layoutBorder = {0, 4};
        grid->Add(*icon);
    }
    MControl& signs = Find(page, "signs");
    auto* const row = new MLayoutTop(signs);
    for (size_t i = 0; i < std::size(MStdBitmapNames); ++i) {
        auto* const sign = new MStatic(&signs, MStdBitmapNames[i]);
        sign->SetContent(std::make_unique<MContentStdBitmap>(static_cast<MStdBitmap>(i)));
        row->Add(*sign);
    }
}

void CompleteDialogs(MControl& page) {
    auto* const grid = new MLayoutGrid(page);
    grid->SetColumnCount(3);
    grid->space = 8;
    for (const GalleryDialog& dialog : GalleryGetDialogs()) {
        auto* const button = new MButton(&page, dialog.name);
        button->SetText(dialog.caption);
        grid->Add(*button);
    }
}

constexpr std::pair<const char*, void (*)(MControl& page)> Completions[] = {
    {"Buttons", CompleteButtons}, {"Values", CompleteValues}, {"Texts", CompleteTexts},
    {"Lists", CompleteLists},     {"Bars", CompleteBars},     {"Panels", CompletePanels},
    {"Colours", CompleteColours}, {"Icons", CompleteIcons},   {"Dialogs", CompleteDialogs}};

}  // namespace

void GalleryCompletePage(MControl& page) {
    for (const auto& [name, complete] : Completions)
        if (page.GetName() == name) complete(page);
}
