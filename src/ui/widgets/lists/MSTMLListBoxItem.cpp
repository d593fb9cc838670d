#include "ui/widgets/lists/MSTMLListBoxItem.h"

#include "foundation/text/MStringFormatter.h"

#include <utility>

namespace {

// An alignment would begin a line, which a text that is a table leaves empty.
constexpr const char* Template = "<tr padding=0 cellspaces=0 height=100%><td valign=center>{0}</td></tr>";
constexpr const char* IconTemplate =
    "<tr padding=0 cellspaces=0 height=100%>"
    "<td valign=center width=MaxStdIconSizeX fillalpha=50 padding=3><center>{0}</center></td>"
    "<td valign=center><left>{1}</td></tr>";

}  // namespace

void MSTMLListBoxItem::LoadFromXml(MXMLItem& item) {
    MListBoxItem::LoadFromXml(item);
    textIcon = std::exchange(icon, std::nullopt);
    content.reset();
}

void MSTMLListBoxItem::SetText(const MString& newText) {
    text = newText;
    content.reset();
}

MContentSTML& MSTMLListBoxItem::GetContent() {
    if (content) return *content;
    const char* const name = textIcon ? MStdIconNames[static_cast<size_t>(*textIcon)] : "";
    content = std::make_unique<MContentSTML>(
        textIcon ? MFormat(IconTemplate, MFormat("<img icon={0}>", MString(name)), text)
                 : MFormat(Template, text));
    return *content;
}

MPoint MSTMLListBoxItem::GetTextSize(MDrawer& drawer, const MContentLook& look, int32_t width) {
    return {width, GetContent().GetHeightForWidth(drawer, look, width)};
}

void MSTMLListBoxItem::PaintText(MDrawer& drawer, const MRect& rect, const MContentLook& look) {
    GetContent().Paint(drawer, rect, look);
}

MString MSTMLListBoxItem::GetPlainText() const {
    MString plain;
    bool isTag = false;
    for (int32_t i = 0; i < text.GetLength(); ++i) {
        const char16_t unit = text[i];
        if (unit == '<') isTag = true;
        if (!isTag) plain.Append(text[i]);
        if (unit == '>') isTag = false;
    }
    plain.TrimLeft();
    return plain;
}
