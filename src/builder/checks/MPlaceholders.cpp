#include "builder/checks/MPlaceholders.h"

#include "foundation/base/MRaise.h"

void MPlaceholders::Define(const MString& assignment) {
    const int32_t equals = assignment.FindChar(MChar('='));
    if (equals < 1) MRaise(MExceptionGeneral, "\"{0}\" defines nothing. Write NAME=TEXT.", assignment);
    names.Add(assignment.Substring(0, equals));
    texts.Add(assignment.Substring(equals + 1));
}

void MPlaceholders::Fill(MDefinition& definition, MProblemList& problems) const {
    FillItem(definition.GetRoot(), definition, problems);
}

void MPlaceholders::FillItem(MXMLItem& item, const MDefinition& definition, MProblemList& problems) const {
    const int32_t line = definition.GetLine(item);
    for (MAttribute* attribute : item.GetAttributes())
        attribute->value = FillText(attribute->value, line, problems);
    item.SetValue(FillText(item.GetValue(), line, problems));
    for (MXMLItem* child : item.GetSubItems()) FillItem(*child, definition, problems);
}

MString MPlaceholders::FillText(const MString& text, int32_t line, MProblemList& problems) const {
    MString filled;
    int32_t position = 0;
    while (true) {
        const int32_t start = text.Find("{{", position);
        const int32_t end = start < 0 ? -1 : text.Find("}}", start + 2);
        if (end < 0) return filled + text.Substring(position);
        filled += text.Substring(position, start - position);
        const MString name = text.Substring(start + 2, end - start - 2);
        position = end + 2;
        if (const MString* value = Find(name)) {
            filled += *value;
            continue;
        }
        problems.AddError(line, MFormat("Nothing fills {{{{{0}}}}}. Add --define {1}=TEXT.", name, name));
        filled += text.Substring(start, position - start);
    }
}

const MString* MPlaceholders::Find(const MString& name) const {
    for (int32_t i = names.GetCount() - 1; i >= 0; --i)
        if (names[i] == name) return &texts[i];
    return nullptr;
}
