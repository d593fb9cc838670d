#include "foundation/text/MJSONWriter.h"

#include "foundation/text/MNumberText.h"

void MJSONWriter::Add(const char* name, const MString& value) {
    AddName(name);
    AddText(value);
}

void MJSONWriter::Begin(const char* name, char bracket) {
    AddName(name);
    text.Append(bracket);
    needsComma = false;
}

void MJSONWriter::End(char bracket) {
    text.Append(bracket);
    needsComma = true;
}

void MJSONWriter::AddNumber(const char* name, int64_t number) {
    AddToken(name, MNumberToText(number));
}

void MJSONWriter::AddToken(const char* name, const MString& token) {
    AddName(name);
    text += token;
}

void MJSONWriter::AddName(const char* name) {
    if (needsComma) text.Append(',');
    needsComma = true;
    if (!name) return;
    AddText(name);
    text.Append(':');
}

void MJSONWriter::AddText(const MString& value) {
    text.Append('"');
    for (int32_t i = 0; i < value.GetLength(); ++i) {
        const MChar character = value[i];
        if (character == MChar('"') || character == MChar('\\')) {
            text.Append('\\');
            text.Append(character);
        } else if (character < MChar(' ')) {
            text += "\\u00";
            text.Append(MChar::FromHexDigit(character >> 4));
            text.Append(MChar::FromHexDigit(character));
        } else {
            text.Append(character);
        }
    }
    text.Append('"');
}
