#include "foundation/xml/MXMLSaver.h"

#include "foundation/base/MRaise.h"
#include "foundation/xml/MEntities.h"
#include "foundation/xml/MXMLItem.h"

#include <algorithm>

namespace {

/// True for a low surrogate and for a high one that has lost its low one.
bool EndsWithSurrogate(const MString& text, int32_t index) {
    if (text[index].IsLowSurrogate()) return true;
    const bool isLowNext = index + 1 < text.GetLength() && text[index + 1].IsLowSurrogate();
    return text[index].IsHighSurrogate() && !isLowNext;
}

/// Hardly any text has; counted with vectors, which a search for the first is not.
bool HasSurrogates(const MString& text) {
    const char16_t* const units = text.GetUnits();
    // Without units it is a literal.
    if (!units) return false;
    return std::count_if(units, units + text.GetLength(),
                         [](char16_t unit) { return (unit & 0xf800) == 0xd800; }) > 0;
}

}  // namespace

MXMLSaver::MXMLSaver(MStream& stream, bool isCompact, const MString& encoding)
    : writer(stream, encoding), isCompact(isCompact) {
    writer.WriteLine(MFormat("<?xml version=\"1.0\" encoding=\"{0}\"?>", encoding));
}

void MXMLSaver::SaveDocument(const MXMLItem& root) {
    SaveItem(root, 0);
    WriteOut();
    writer.Flush();
}

void MXMLSaver::SaveItem(const MXMLItem& item, int32_t depth) {
    constexpr int32_t MaximumIndent = 32;
    constexpr int32_t WriteOutFrom = 4096;
    if (item.GetName().IsEmpty()) MRaise(MExceptionGeneral, "XML entity cannot have empty name.");
    if (pending.GetLength() >= WriteOutFrom) WriteOut();
    PutIndent(depth);
    PutOpening(item);
    if (item.GetSubItemCount() == 0 && item.GetValue().IsEmpty()) {
        pending.Append("/>");
        return PutLineEnd();
    }
    pending.Append(">");
    PutLineEnd();
    PutWords(item.GetValue(), depth + 1);
    for (const MXMLItem* subItem : item.GetSubItems()) SaveItem(*subItem, std::min(depth + 1, MaximumIndent));
    PutIndent(depth);
    pending.Append("</");
    pending.Append(item.GetName());
    pending.Append(">");
    PutLineEnd();
}

void MXMLSaver::PutOpening(const MXMLItem& item) {
    pending.Append("<");
    pending.Append(item.GetName());
    for (const MAttribute* attribute : item.GetAttributes()) {
        pending.Append(" ");
        pending.Append(attribute->name);
        pending.Append("=\"");
        MEntities::Escape(attribute->value, pending);
        pending.Append("\"");
    }
}

void MXMLSaver::PutWords(const MString& value, int32_t depth) {
    if (value.IsEmpty()) return;
    if (isCompact) return MEntities::Escape(value, pending);
    int32_t start = 0;
    while (start <= value.GetLength()) {
        const int32_t space = value.FindChar(' ', start);
        const int32_t end = space == MString::NotFound ? value.GetLength() : space;
        PutIndent(depth);
        MEntities::Escape(value.Substring(start, end - start), pending);
        PutLineEnd();
        start = end + 1;
    }
}

void MXMLSaver::PutLineEnd() {
    if (!isCompact) pending.AppendNewline();
}

void MXMLSaver::PutIndent(int32_t depth) {
    if (!isCompact) pending.Append(MChar('\t'), depth);
}

void MXMLSaver::WriteOut() {
    // A codec may drop the unit after a surrogate pair or after a lone surrogate, so each ends a piece.
    int32_t written = 0;
    const bool hasSurrogates = HasSurrogates(pending);
    for (int32_t i = 0; hasSurrogates && i < pending.GetLength(); ++i) {
        if (!EndsWithSurrogate(pending, i)) continue;
        writer.WriteText(pending.Substring(written, i + 1 - written));
        written = i + 1;
    }
    writer.WriteText(pending.Substring(written));
    pending.Cut(0);
}
