#pragma once

#include "foundation/text/MString.h"
#include "foundation/text/encodings/MEncodingWriter.h"

class MXMLItem;

/// Writes an item and what is below it as a document, in one of the two forms of `MXMLItem::Save`.
class MXMLSaver {
public:
    /// Writes the header. Raises what finding the encoding raises.
    MXMLSaver(MStream& stream, bool isCompact, const MString& encoding);

    /// Raises "XML entity cannot have empty name." (0).
    void SaveDocument(const MXMLItem& root);

private:
    void SaveItem(const MXMLItem& item, int32_t depth);
    void PutOpening(const MXMLItem& item);
    void PutWords(const MString& value, int32_t depth);
    void PutLineEnd();
    void PutIndent(int32_t depth);
    void WriteOut();

    MEncoding::Writer writer;
    bool isCompact;
    MString pending;
};
