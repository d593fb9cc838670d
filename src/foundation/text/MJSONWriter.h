#pragma once

#include "foundation/text/MString.h"

#include <concepts>
#include <cstdint>

/// Writes a JSON document (RFC 8259) of one object, member after member, without blanks. Names and texts are escaped;
/// an unpaired surrogate stays one. What is begun is ended in the opposite order.
class MJSONWriter {
public:
    /// Without a name in a list.
    void BeginObject(const char* name = nullptr) { Begin(name, '{'); }
    void EndObject() { End('}'); }
    void BeginList(const char* name = nullptr) { Begin(name, '['); }
    void EndList() { End(']'); }
    void Add(const char* name, const MString& text);
    void Add(const char* name, const char* value) { Add(name, MString(value)); }
    void Add(const char* name, bool value) { AddToken(name, value ? "true" : "false"); }
    template <std::integral Integer>
    void Add(const char* name, Integer number) {
        AddNumber(name, number);
    }

    [[nodiscard]] const MString& GetText() const { return text; }

private:
    void Begin(const char* name, char bracket);
    void End(char bracket);
    void AddNumber(const char* name, int64_t number);
    void AddToken(const char* name, const MString& token);
    void AddName(const char* name);
    void AddText(const MString& value);

    MString text;
    bool needsComma = false;
};
