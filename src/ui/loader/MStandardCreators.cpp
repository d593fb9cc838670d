#include "ui/loader/MStandardCreators.h"

#include "foundation/events/MThread.h"
#include "foundation/values/MLocale.h"
#include "foundation/values/MValueFrequency.h"
#include "foundation/values/MValuePan.h"
#include "foundation/values/MValuePercents.h"
#include "foundation/values/MValuePitch.h"
#include "foundation/values/MValueStepDouble.h"
#include "foundation/values/MValueTimeMS.h"
#include "foundation/values/MValueVolume.h"
#include "ui/control/MContainers.h"
#include "ui/control/kinds/MStdBitmap.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/geometry/MObjectLayout.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutCorner.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/layout/MLayoutOccupyBorder.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/layout/MLayoutSwitch.h"
#include "ui/widgets/buttons/MCheckBox.h"
#include "ui/widgets/buttons/MRepeaterButton.h"
#include "ui/widgets/colors/MColorEditor.h"
#include "ui/widgets/colors/MColorSelectButton.h"
#include "ui/widgets/content/MLabel.h"
#include "ui/widgets/content/MStaticMultiLine.h"
#include "ui/widgets/edits/MComboEdit.h"
#include "ui/widgets/edits/MMultiLineEdit.h"
#include "ui/widgets/files/MDirectoryTreeControl.h"
#include "ui/widgets/files/MFileListBox.h"
#include "ui/widgets/files/MFileSelector.h"
#include "ui/widgets/lists/MListBox.h"
#include "ui/widgets/menus/MMenuBar.h"
#include "ui/widgets/scrolling/MZoomer.h"
#include "ui/widgets/splitters/MSplitter.h"
#include "ui/widgets/tabs/MTabSet.h"
#include "ui/widgets/trees/MTreeControl.h"
#include "ui/widgets/values/MKnob.h"
#include "ui/widgets/values/MProgressBar.h"
#include "ui/widgets/values/MSwitcher.h"
#include "ui/widgets/values/MTracker.h"
#include "ui/widgets/values/MValueButton.h"

#include <type_traits>
#include <utility>

namespace {

using Loader = MControl::MXmlLoader;

/// A control that shows a value, which its sub-item "value" may define.
template <class T>
class ValueControl final : public Loader::Creator {
public:
    MControl* Create(MControl& owner, MXMLItem& item, Loader& loader) const override {
        auto* const control = new T(&owner, item.GetAttribute("id", MString()));
        MXMLItem* const definition = item.FindSubItem("value");
        const auto load = [&] { return definition ? loader.LoadValue(*definition) : nullptr; };
        if (std::unique_ptr<MValue> value = load()) control->SetValue(std::move(value));
        if constexpr (std::is_same_v<T, MTracker>) {
            if (item.HasAttribute("maxvalue")) {
                std::unique_ptr<MValue> end = load();
                control->SetMaxValue(end ? std::move(end) : std::make_unique<MValueDouble>());
            }
        }
        control->LoadFromXml(item);
        return control;
    }
};

template <class T>
std::unique_ptr<Loader::Creator> MakeControl() {
    return std::make_unique<Loader::Control<T>>();
}

template <class T>
std::unique_ptr<Loader::Creator> MakeValueControl() {
    return std::make_unique<ValueControl<T>>();
}

template <class T>
std::unique_ptr<Loader::Creator> MakeLayout() {
    return std::make_unique<Loader::Layout<T>>();
}

template <class T>
std::unique_ptr<Loader::ValueCreator> MakeValue() {
    return std::make_unique<Loader::Value<T>>();
}

constexpr std::pair<const char*, std::unique_ptr<Loader::Creator> (*)()> Creators[] = {
    {"control", &MakeControl<MControlContainer>},
    {"panel", &MakeControl<MPanel>},
    {"container", &MakeControl<MContainer>},
    {"static", &MakeControl<MStatic>},
    {"label", &MakeControl<MLabel>},
    {"multilinestatic", &MakeControl<MStaticMultiLine>},
    {"button", &MakeControl<MButton>},
    {"repeaterbutton", &MakeControl<MRepeaterButton>},
    {"checkbox", &MakeControl<MCheckBox>},
    {"comboedit", &MakeControl<MComboEdit>},
    {"edit", &MakeControl<MEdit>},
    {"multilineedit", &MakeControl<MMultiLineEdit>},
    {"tabset", &MakeControl<MTabSet>},
    {"listbox", &MakeControl<MListBox>},
    {"treecontrol", &MakeControl<MTreeControl>},
    {"menubar", &MakeControl<MMenuBar>},
    {"progressbar", &MakeControl<MProgressBar>},
    {"scrollbar", &MakeControl<MScrollBar>},
    {"tracker", &MakeValueControl<MTracker>},
    {"rotator", &MakeValueControl<MRotator>},
    {"knob", &MakeValueControl<MKnob>},
    {"valuebutton", &MakeValueControl<MValueButton>},
    {"zoomer", &MakeControl<MZoomer>},
    {"splitter", &MakeControl<MSplitter>},
    {"switcher", &MakeValueControl<MSwitcher>},
    {"directorytree", &MakeControl<MDirectoryTreeControl>},
    {"coloreditor", &MakeControl<MColorEditor>},
    {"colorselectbutton", &MakeControl<MColorSelectButton>},
    {"filelistbox", &MakeControl<MFileListBox>},
    {"fileselector", &MakeControl<MFileSelector>},
    {"grapheditor", &MakeControl<MControlContainer>},
    {"signalgeneratoreditor", &MakeControl<MControlContainer>},
    {"vector2deditor", &MakeControl<MControlContainer>},
    {"grid", &MakeLayout<MLayoutGrid>},
    {"top", &MakeLayout<MLayoutTop>},
    {"left", &MakeLayout<MLayoutLeft>},
    {"right", &MakeLayout<MLayoutRight>},
    {"bottom", &MakeLayout<MLayoutBottom>},
    {"corner", &MakeLayout<MLayoutCorner>},
    {"vertical", &MakeLayout<MLayoutVertical>},
    {"horizontal", &MakeLayout<MLayoutHorizontal>},
    {"overlay", &MakeLayout<MLayoutSwitch>},
    {"occupyborder", &MakeLayout<MLayoutOccupyBorder>},
};

// The shape of a generated signal is a number here.
constexpr std::pair<const char*, std::unique_ptr<Loader::ValueCreator> (*)()> ValueCreators[] = {
    {"int", &MakeValue<MValueInt32>},
    {"int32", &MakeValue<MValueInt32>},
    {"int64", &MakeValue<MValueInt64>},
    {"int16", &MakeValue<MValueInt16>},
    {"float", &MakeValue<MValueFloat>},
    {"double", &MakeValue<MValueDouble>},
    {"stepdouble", &MakeValue<MValueStepDouble>},
    {"percents", &MakeValue<MValuePercents>},
    {"signalgeneratorshape", &MakeValue<MValueDouble>},
    {"frequency", &MakeValue<MValueFrequency>},
    {"frequencylog", &MakeValue<MValueFrequencyLog>},
    {"frequencylinear", &MakeValue<MValueFrequencyLinear>},
    {"volume", &MakeValue<MValueVolume>},
    {"panorama", &MakeValue<MValuePan>},
    {"pitch", &MakeValue<MValuePitch>},
    {"timems", &MakeValue<MValueTimeMS>},
    {"stdicon", &MakeValue<MValueEnum<MStdIcon>>},
    {"stdbitmap", &MakeValue<MValueEnum<MStdBitmap>>},
    {"stdcursor", &MakeValue<MValueEnum<MStdCursor>>},
    {"stdfont", &MakeValue<MValueEnum<MStdFont>>},
    {"stdcolor", &MakeValue<MValueEnum<MStdColor>>},
    {"horizontalobjectlayout", &MakeValue<MValueEnum<MHorizontalObjectLayout>>},
    {"verticalobjectlayout", &MakeValue<MValueEnum<MVerticalObjectLayout>>},
    {"language", &MakeValue<MValueEnum<MLocale::Language>>},
    {"country", &MakeValue<MValueEnum<MLocale::Country>>},
    {"threadpriority", &MakeValue<MValueEnum<MThread::Priority>>},
    {"controltype", &MakeValue<MValueEnum<MControlType>>},
    {"captiontype", &MakeValue<MValueEnum<MCaptionType>>},
    {"modalvalue", &MakeValue<MValueEnum<MModalValue>>},
    {"checkboxstate", &MakeValue<MValueEnum<MCheckBoxState>>},
};

}  // namespace

void MAddStandardCreators(Loader& loader) {
    for (const auto& [name, make] : Creators) loader.Add(name, make());
    for (const auto& [type, make] : ValueCreators) loader.AddValue(type, make());
}
