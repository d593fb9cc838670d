#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

namespace {

/// How help texts mark what they speak of.
constexpr const char* HelpHeader = R"(<tagset name="name"><b><cred></tagset>)"
                                   R"(<tagset name="shortcut"><p><cgreen></tagset>)"
                                   R"(<tagset name="shortcutnop"><cgreen></tagset>)"
                                   R"(<tagset name="control"><cgreen></tagset>)"
                                   R"(<tagset name="value"><cgreen></tagset>)"
                                   R"(<tagset name="reference"><cred><i></tagset>)"
                                   R"(<tagset name="symbol"><cgreen></tagset>)"
                                   R"(<tagset name="example"><i></tagset>)"
                                   R"(<tagset name="range"><cgreen></tagset>)";
constexpr const char* Separator = "<justify><s/></justify>";

void AppendHelp(MString& text, const MString& part) {
    if (part.IsEmpty()) return;
    if (!text.IsEmpty()) text += Separator;
    text += part;
}

MString MakeHeadline(const char* text) {
    return "<center invert=1 singleline=1><l2>" + MTranslate(text) + "</l2></center>";
}

/// What a control tells of its kind: its general usage, and one entry for each way to use it.
MString GetUsage(const MXMLItem& item) {
    const MXMLItem* const usage = item.FindSubItem("control");
    if (!usage) return {};
    MString text = MakeHeadline("General control usage") + "<tr><td><justify></justify>" + usage->GetValue();
    MList<MXMLItem, MListPointers> entries;
    item.CollectSubItems("controlitem", entries);
    for (const MXMLItem* entry : entries) text += "<li>" + entry->GetValue() + "</li>";
    return text + "</td></tr>";
}

/// The help of a control: what was written for it, else what it says of itself.
MString GetOwnHelp(MControl& control, MXMLItem& item) {
    item.SetValue(control.help);
    control.WriteHelpInfo(item);
    return item.GetValue().IsEmpty() ? item.GetAttribute("info", "") : item.GetValue();
}

void AppendHelpBelow(MString& text, const MControl& control) {
    for (MControl* child : control.GetChildren()) {
        MXMLItem item("help");
        AppendHelp(text, GetOwnHelp(*child, item));
        AppendHelpBelow(text, *child);
    }
}

}  // namespace

void MControl::WriteHelpInfo(MXMLItem& item) {
    if (item.GetValue().IsEmpty() && !infoText.IsEmpty()) item.SetAttribute("info", infoText);
}

void MControl::ShowHelp(MControl& source) {
    if (!IsRoot()) return parent->ShowHelp(source);
    const MWindows* const windows = GetWindows();
    if (!windows || !windows->dialogs) return;
    MControl* target = &source;
    while (target->help.IsEmpty() && target->Is(MControlFlag::UseParentHelp) && target->parent)
        target = target->parent;

    MXMLItem item("help");
    MString text = GetOwnHelp(*target, item);
    if (target->IsRoot()) AppendHelpBelow(text, *target);
    if (!text.IsEmpty() && source.IsRoot())
        text +=
            "<p/><p><i><cgreen>" +
            MTranslate("Move mouse cursor on a control and press F1 to get detailed info about it. If the "
                       "F1 key is captured by another application, try using Ctrl+F1 or Ctrl+H.") +
            "</cgreen></i></p>";
    const MString usage = GetUsage(item);
    if (!usage.IsEmpty() && !text.IsEmpty()) text = MakeHeadline("Control meaning") + text;
    text += usage;
    if (text.IsEmpty())
        windows->dialogs->ShowInformation(*root, MTranslate("Sorry, no help is defined for this control."));
    else
        windows->dialogs->ShowDocument(*root, target->GetCaption(), HelpHeader + text);
}
