#include "builder/definition/MDefinitionText.h"

#include "foundation/text/MUnicode.h"

namespace {

const char* GetEntity(char character) {
    switch (character) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '\'': return "&apos;";
    case '"': return "&quot;";
    case '\n': return "&#10;";
    default: return nullptr;
    }
}

void AppendEscaped(std::string& text, const MString& value) {
    for (const char character : MEncodeUTF8Exact(value)) {
        if (const char* entity = GetEntity(character))
            text += entity;
        else
            text += character;
    }
}

void AppendItem(std::string& text, const MXMLItem& item) {
    const std::string name = MEncodeUTF8Exact(item.GetName());
    text += '<' + name;
    for (const MAttribute* attribute : item.GetAttributes()) {
        text += ' ' + MEncodeUTF8Exact(attribute->name) + "=\"";
        AppendEscaped(text, attribute->value);
        text += '"';
    }
    if (item.GetSubItemCount() == 0 && item.GetValue().IsEmpty()) {
        text += "/>\n";
        return;
    }
    text += '>';
    AppendEscaped(text, item.GetValue());
    if (item.GetSubItemCount() > 0) text += '\n';
    for (const MXMLItem* child : item.GetSubItems()) AppendItem(text, *child);
    text += "</" + name + ">\n";
}

}  // namespace

std::string MGetDefinitionText(const MXMLItem& root) {
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
    AppendItem(text, root);
    return text;
}
