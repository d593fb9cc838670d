#include "foundation/xml/MXMLParser.h"

#include "foundation/base/MException.h"
#include "foundation/xml/MXMLItem.h"
#include "foundation/xml/MXMLLoadObserver.h"

namespace MLibraryInternals {

void MXMLParser::ParseDocument(MStream& stream) {
    root.Clear();
    current = nullptr;
    depth = 0;
    isRootFound = false;
    Parse(stream, "utf-8");
    if (current) MMarkupReader::RaiseInvalid("No ending delimiter found.");
    if (!isRootFound) MRaise(MExceptionGeneral, "The XML does not contain any elements.");
}

bool MXMLParser::OnElement(const MString& name, MAttributeList& attributes, bool isClosing) {
    if (isClosing) return CloseElement(name);
    OpenElement(name, attributes);
    return false;
}

bool MXMLParser::CloseElement(const MString& name) {
    if (!current || !(current->GetName() == name))
        MMarkupReader::RaiseInvalid("Invalid closing element name.");
    --depth;
    current = current == &root ? nullptr : current->GetParent();
    return current == nullptr;
}

void MXMLParser::OpenElement(const MString& name, MAttributeList& attributes) {
    if (++depth > MaximumDepth) MMarkupReader::RaiseInvalid("Elements are nested too deeply.");
    if (current) {
        current = current->AddSubItem(name);
    } else {
        current = &root;
        root.SetName(name);
        isRootFound = true;
    }
    current->TakeAttributes(attributes);
    if (observer) observer->OnItemOpened(*current, GetTagLine());
}

bool MXMLParser::OnText(const MString& text) {
    const MString trimmed = text.Trimmed();
    if (trimmed.IsEmpty()) return false;
    if (!current) MRaise(MExceptionGeneral, "Text outside of any element.");
    // In place: a text may come in as many pieces as there are elements in it.
    if (!current->GetValue().IsEmpty()) current->AppendToValue(" ");
    current->AppendToValue(trimmed);
    return false;
}

}  // namespace MLibraryInternals
