#include "ui/style/tables/MFontTable.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/text/MNumberText.h"
#include "foundation/xml/MXMLItem.h"
#include "streams/resources/MResourceLibrary.h"
#include "ui/style/MStyleNumber.h"
#include "ui/text/MFontSubstitutes.h"

#include <algorithm>
#include <cmath>

namespace {

/// What other systems call their usual face, in the order in which they are tried.
constexpr const char* UsualFaces[] = {
    "Tahoma", "Geneva", "MS Serif", "New York", "Lucinda Sans", "Lucinda Grande", "Lucinda Sans Unicode",
    "Arial"};

constexpr double LargestSize = 1000;

double GetNumber(MXMLItem& item, const char* attribute, double defaultValue) {
    if (!item.HasAttribute(attribute)) return defaultValue;
    return MLimitStyleNumber(MParseDouble(item.GetCachedAttribute()), -LargestSize, LargestSize);
}

}  // namespace

void MFontTable::Load(MXMLItem& definition) {
    Clear();
    MXMLItem* const fonts = definition.FindSubItem("fonts");
    for (size_t i = 0; i < entries.size(); ++i) {
        Entry& entry = entries[i];
        entry = Entry();
        entry.face = "Arial";
        MXMLItem* const item = fonts ? fonts->FindSubItem(MStdFontNames[i]) : nullptr;
        if (!item) continue;
        entry.height = std::max(GetNumber(*item, "height", GetNumber(*item, "size", entry.height)), 1.0);
        entry.width = std::max(GetNumber(*item, "width", 0), 0.0);
        entry.characterSpace = GetNumber(*item, "spacebetweenchars", 0);
        entry.verticalShift = static_cast<int32_t>(GetNumber(*item, "verticalshift", 0));
        entry.verticalSpace = static_cast<int32_t>(GetNumber(*item, "verticalspace", 0));
        entry.isBold = item->GetInt32Attribute("bold", 0) != 0;
        entry.isItalic = item->GetInt32Attribute("italic", 0) != 0;
        if (MXMLItem* const face = item->FindSubItem("face")) {
            entry.face = face->GetAttribute("name", entry.face);
            entry.isBold = face->GetInt32Attribute("bold", entry.isBold) != 0;
            entry.isItalic = face->GetInt32Attribute("italic", entry.isItalic) != 0;
        }
    }
    Open(entries[0]);
    if (!entries[0].font) MRaise(MExceptionGeneral, "No fonts are available on the system.");
    isLoaded = true;
}

void MFontTable::Clear() {
    for (Entry& entry : entries) entry.font.reset();
    isLoaded = false;
}

MFont* MFontTable::Get(int32_t index) {
    if (!isLoaded) return nullptr;
    const auto limited = static_cast<size_t>(std::clamp(index, 0, static_cast<int32_t>(entries.size()) - 1));
    Entry& entry = entries[limited];
    if (!entry.font) Open(entry);
    return entry.font ? entry.font.get() : entries[0].font.get();
}

void MFontTable::Open(Entry& entry) {
    entry.font = std::make_unique<MFont>();
    bool isOpen = false;
    if (source == Source::System) {
        isOpen = OpenSystemFont(entry, entry.face);
        for (const char* face : UsualFaces) isOpen = isOpen || OpenSystemFont(entry, face);
    }
    if (!isOpen && !OpenTravelingFont(entry)) {
        entry.font.reset();
        return;
    }
    if (source != Source::Traveling) entry.font->SetSubstitutes(&MFontSubstitutes::GetInstance());
    ApplySize(entry);
}

bool MFontTable::OpenSystemFont(Entry& entry, const MString& face) {
    return MGuard("Open style font", [&] {
        entry.font->LoadFromFile(
            MFont::GetSystemFontDescriptor(face, entry.isBold, entry.isItalic, false).GetPath());
    });
}

bool MFontTable::OpenTravelingFont(Entry& entry) {
    if (!traveling) return false;
    return MGuard("Open style font", [&] {
        // No face is both: letters stand out more by their weight.
        const MString face = entry.isBold ? "face_bold" : entry.isItalic ? "face_italic" : "face_regular";
        const bool isThere = traveling->HasResource(face);
        entry.font->LoadFromStream(traveling->GetResource(isThere ? face : MString("face_regular")).Open());
    });
}

void MFontTable::ApplySize(Entry& entry) {
    const auto getPixels = [](double size, int32_t percent) { return size * percent / 100; };
    MGuard("Size style font", [&] {
        // Letters stand on whole pixels, so only sizes of whole pixels look alike in all of them.
        const double height = std::floor(getPixels(entry.height, scale.y) + 0.5);
        entry.font->SetSize(std::max(height, 1.0), getPixels(entry.width, scale.x));
    });
    entry.font->SetCharacterSpace(getPixels(entry.characterSpace, scale.x));
    entry.font->SetVerticalShift(scale.GetY(entry.verticalShift));
    entry.font->SetVerticalSpace(scale.GetY(entry.verticalSpace));
}

void MFontTable::SetScale(MStyleScale newScale) {
    if (scale == newScale) return;
    scale = newScale;
    for (Entry& entry : entries)
        if (entry.font) ApplySize(entry);
}
