#include "ui/text/MFont.h"

#include "foundation/text/MUnicode.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MStdFileStream.h"
#include "ui/text/MFontFace.h"
#include "ui/text/MFontSubstitutes.h"
#include "ui/text/MSystemFonts.h"
#include "ui/text/MTextPen.h"

MFont::MFont() {
    Renew();
}

MFont::~MFont() = default;

void MFont::Open(const MBuffer& source) {
    Close();
    auto opened = std::make_unique<MFontFace>(source);
    SetFromFace(opened->GetRecord());
    face = std::move(opened);
}

void MFont::LoadFromStream(MStream& stream) {
    Close();
    MMemoryStream memory;
    stream.CopyAllTo(memory);
    memory.Trim();
    Open(memory.GetBuffer());
}

void MFont::LoadFromFile(const MString& path) {
    Close();
    MStdFileStream file;
    file.Open(path, MOpenRead);
    LoadFromStream(file);
    SetPath(path);
}

void MFont::Close() {
    ForgetSize();
    face.reset();
    static_cast<MFontDescriptor&>(*this) = MFontDescriptor();
}

bool MFont::IsOpen() const {
    return face != nullptr;
}

void MFont::SetSize(double newHeight, double newWidth) {
    ForgetSize();
    if (!face) MRaise(MExceptionGeneral, "Unable to accept required font size.");
    height = newHeight * verticalScale;
    width = (newWidth == 0 ? newHeight : newWidth) * horizontalScale;
    face->SetSize(height, width);
    hasSize = true;
    ReadMetrics();
}

void MFont::RenderGlyph(char32_t character, MGlyph& glyph) {
    if (!hasSize) {
        glyph = MGlyph();
        glyph.isLoaded = true;
    } else if (!substitutes || face->HasGlyph(character) ||
               !substitutes->Render(character, GetFlags(), height, width, glyph)) {
        face->Render(character, glyph);
    }
}

void MFont::SetSubstitutes(MFontSubstitutes* newSubstitutes) {
    substitutes = newSubstitutes;
    ForgetGlyphs();
}

bool MFont::HasGlyph(char32_t character) const {
    return face && face->HasGlyph(character);
}

int32_t MFont::GetTextWidth(const MString& text, int32_t start, int32_t count) {
    const int32_t end = count < text.GetLength() - start ? start + count : text.GetLength();
    MTextPen pen(*this);
    for (int32_t index = start; index < end;) pen.Take(MTakeCodePoint(text, index));
    return pen.GetEnd();
}

int32_t MFont::GetIndexAt(const MString& text, int32_t x) {
    MTextPen pen(*this);
    int32_t found = 0;
    for (int32_t index = 0; index < text.GetLength();) {
        const int32_t start = index;
        if (!pen.Take(MTakeCodePoint(text, index))) continue;
        if (x < pen.GetOrigin()) return found;
        found = start;
    }
    return x < pen.GetEnd() ? found : text.GetLength();
}

void MFont::SetScale(double horizontal, double vertical) {
    horizontalScale = horizontal;
    verticalScale = vertical;
}

MFontDescriptor MFont::GetSystemFontDescriptor(const MString& name, bool isBold, bool isItalic,
                                               bool isRequired) {
    return MSystemFonts::GetInstance().GetDescriptor(name, isBold, isItalic, isRequired);
}

void MFont::ReScanSystemFonts() {
    MSystemFonts::GetInstance().ReScan();
}

const MGlyph& MFont::FindGlyph(char32_t character) {
    if (character < TableSize) {
        if (!table[character].isLoaded) RenderGlyph(character, table[character]);
        return table[character];
    }
    if (const auto* found = otherGlyphs.Find(character)) return **found;
    const auto glyph = std::make_shared<MGlyph>();
    RenderGlyph(character, *glyph);
    otherGlyphs.Add(character, glyph);
    return *glyph;
}

void MFont::ForgetSize() {
    hasSize = false;
    lineHeight = 1;
    ascent = 0;
    descent = 0;
    ForgetGlyphs();
}

void MFont::ForgetGlyphs() {
    table = {};
    otherGlyphs.Clear();
    Renew();
}

void MFont::Renew() {
    static uint32_t last = 0;
    revision = ++last;
}

void MFont::ReadMetrics() {
    lineHeight = face->GetLineHeight();
    ascent = face->GetAscent();
    descent = face->GetDescent();
}
