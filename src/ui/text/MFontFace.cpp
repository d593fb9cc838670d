#include "ui/text/MFontFace.h"

#include "foundation/base/MException.h"
#include "streams/basic/MStream.h"
#include "ui/text/MFontLibrary.h"
#include "ui/text/MGlyph.h"
#include "ui/text/MGlyphMask.h"

#include <algorithm>
#include <cmath>
#include <ft2build.h>
#include FT_FREETYPE_H
#include <string_view>

namespace {

[[noreturn]] void RaiseInvalidFile(const char* detail) {
    throw MException(MString(), MTranslate("Invalid file contents. ") + MTranslate(detail),
                     MExceptionGeneral);
}

[[noreturn]] void RaiseUnknownFormat() {
    RaiseInvalidFile("Unknown font file format.");
}

[[noreturn]] void RaiseInvalidFormat() {
    RaiseInvalidFile("Invalid font file format.");
}

/// Whether a web font can be unpacked depends on how FreeType was built, and a damaged one makes it leak.
void RefuseWebFont(std::string_view head) {
    if (head == "wOFF" || head == "wOF2") RaiseUnknownFormat();
}

/// FreeType's reading from a stream of its own kind; 0 bytes are a failure to it, but for a mere seek.
unsigned long ReadStream(FT_Stream stream, unsigned long offset, unsigned char* buffer, unsigned long count) {
    auto& source = *static_cast<MStream*>(stream->descriptor.pointer);
    try {
        source.Seek(static_cast<int64_t>(offset), MSeekOrigin::Begin);
        return static_cast<unsigned long>(source.Read(buffer, static_cast<int32_t>(count)));
    } catch (const MException&) {
        return 0;
    }
}

int32_t ToPixels(FT_Pos position) {
    constexpr FT_Pos Limit = 0x7FFF;
    return static_cast<int32_t>(std::clamp(position >> 6, -Limit, Limit));
}

bool IsSize(double size) {
    constexpr double Limit = 0x7FFF;
    return std::abs(size) <= Limit;
}

}  // namespace

MFontFace::MFontFace(const MBuffer& source) : library(MFontLibrary::Get()), block(source) {
    if (!block.GetBlock() || block.GetSize() <= 0) RaiseInvalidFormat();
    RefuseWebFont({static_cast<const char*>(block.GetBlock()), std::min<size_t>(4, block.GetSize())});
    FT_Open_Args arguments = {};
    arguments.flags = FT_OPEN_MEMORY;
    arguments.memory_base = static_cast<const FT_Byte*>(block.GetBlock());
    arguments.memory_size = block.GetSize();
    Open(arguments);
}

MFontFace::MFontFace(MStream& source)
    : library(MFontLibrary::Get()), stream(std::make_unique<FT_StreamRec_>()) {
    char head[4];
    source.Rewind();
    RefuseWebFont({head, static_cast<size_t>(source.Read(head, 4))});
    stream->size = static_cast<unsigned long>(std::min<int64_t>(source.GetSize(), 0x7FFFFFFF));
    stream->descriptor.pointer = &source;
    stream->read = ReadStream;
    FT_Open_Args arguments = {};
    arguments.flags = FT_OPEN_STREAM;
    arguments.stream = stream.get();
    Open(arguments);
}

MFontFace::~MFontFace() {
    FT_Done_Face(face);
}

void MFontFace::Open(FT_Open_Args_& arguments) {
    const FT_Error error = FT_Open_Face(library.get(), &arguments, 0, &face);
    if (error == FT_Err_Unknown_File_Format) RaiseUnknownFormat();
    if (error) RaiseInvalidFormat();
}

void MFontFace::SetSize(double height, double width) {
    FT_Error error = FT_Err_Invalid_Argument;
    if (IsSize(height) && IsSize(width)) {
        const bool isInPixels = height < 0 || width < 0;
        error = isInPixels ? FT_Set_Pixel_Sizes(face, static_cast<FT_UInt>(std::lround(std::abs(width))),
                                                static_cast<FT_UInt>(std::lround(std::abs(height))))
                           : FT_Set_Char_Size(face, std::lround(width * 64), std::lround(height * 64), 0, 0);
    }
    if (error) MRaise(MExceptionGeneral, "Unable to accept required font size.");
}

MCharacterSet MFontFace::GetCharacters() const {
    MCharacterSet characters;
    FT_UInt glyph = 0;
    if (!face->charmap || face->charmap->encoding != FT_ENCODING_UNICODE) return characters;
    for (FT_ULong character = FT_Get_First_Char(face, &glyph); glyph != 0;
         character = FT_Get_Next_Char(face, character, &glyph))
        characters.Append(static_cast<char32_t>(character));
    return characters;
}

bool MFontFace::HasGlyph(char32_t character) const {
    return FT_Get_Char_Index(face, character) != 0;
}

void MFontFace::Render(char32_t character, MGlyph& glyph) const {
    glyph = MGlyph();
    glyph.isLoaded = true;
    const FT_UInt index = FT_Get_Char_Index(face, character);
    // The hinter of FreeType's own takes the place of the programs in fonts, so all fonts look alike.
    if (FT_Load_Glyph(face, index, FT_LOAD_RENDER | FT_LOAD_FORCE_AUTOHINT)) return;

    const FT_GlyphSlotRec& slot = *face->glyph;
    glyph.advance = ToPixels(slot.advance.x);
    glyph.leftDelta = static_cast<int32_t>(slot.lsb_delta);
    glyph.rightDelta = static_cast<int32_t>(slot.rsb_delta);
    glyph.left = std::clamp(slot.bitmap_left, -0x7FFF, 0x7FFF);
    glyph.top = std::clamp(slot.bitmap_top, -0x7FFF, 0x7FFF);
    glyph.mask = MMakeGlyphMask(library.get(), slot.bitmap);
    if (!glyph.mask) return;
    glyph.width = glyph.mask->GetWidth();
    glyph.height = glyph.mask->GetHeight();
}

int32_t MFontFace::GetLineHeight() const {
    return std::max(1, ToPixels(face->size->metrics.height));
}

int32_t MFontFace::GetAscent() const {
    return ToPixels(face->size->metrics.ascender);
}

int32_t MFontFace::GetDescent() const {
    return -ToPixels(face->size->metrics.descender);
}
