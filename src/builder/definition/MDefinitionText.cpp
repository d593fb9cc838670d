#include "builder/definition/MDefinitionText.h"

#include "foundation/base/MDateTime.h"
#include "foundation/text/MNumberText.h"
#include "foundation/text/MUnicode.h"

#include <chrono>

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

MString GetDigits(int64_t value, int32_t width) {
    return MNumberToText(value, {.width = width, .pad = '0'});
}

}  // namespace

std::string MGetDefinitionText(const MXMLItem& root) {
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
    AppendItem(text, root);
    return text;
}

MString MFileTimeToText(int64_t time) {
    using namespace std::chrono;
    const sys_seconds seconds = floor<std::chrono::seconds>(sys_time<microseconds>(microseconds(time)));
    const sys_days day = floor<days>(seconds);
    const year_month_day date(day);
    const hh_mm_ss clock(seconds - day);
    return GetDigits(static_cast<int>(date.year()), 4) + "-" +
           GetDigits(static_cast<unsigned>(date.month()), 2) + "-" +
           GetDigits(static_cast<unsigned>(date.day()), 2) + " " + GetDigits(clock.hours().count(), 2) + ":" +
           GetDigits(clock.minutes().count(), 2) + ":" + GetDigits(clock.seconds().count(), 2);
}

int64_t MFileTimeFromText(const MString& text) {
    MDateTime epoch;
    epoch.date = {1970, 1, 1};
    return MDateTime::Parse(text).GetMicroseconds() - epoch.GetMicroseconds();
}
