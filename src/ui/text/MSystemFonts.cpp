#include "ui/text/MSystemFonts.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MDataFolders.h"
#include "streams/basic/MStdFileStream.h"
#include "ui/text/MFontFace.h"
#include "ui/text/MSystemFontFolders.h"

#include <algorithm>

namespace {

MList<MString> GetAllFolders() {
    MList<MString> folders = MGetSystemFontFolders();
    folders.Add(MFile::Join(MFile::GetSpecialPath(MSpecialFolderData), "Fonts"));
    return folders;
}

bool IsFontFile(const MString& name) {
    const MString extension = MFile::GetExtension(name);
    return extension == "ttf" || extension == "otf";
}

struct Substitute {
    const char* family;
    const char* other;
};

/// The table of the header; of several substitutes the likest first.
constexpr Substitute Substitutes[] = {{"Arial", "Liberation Sans"},
                                      {"Arial", "DejaVu Sans"},
                                      {"Tahoma", "DejaVu Sans"},
                                      {"Tahoma", "Liberation Sans"}};

MFontDescriptor Describe(const MString& path) {
    MStdFileStream file;
    file.Open(path, MOpenRead);
    const MFontFace face(file);
    MFontDescriptor font;
    font.SetFromFace(face.GetRecord());
    font.SetPath(path);
    return font;
}

/// Whether the file of a cached answer is there and is an answer to something else. One in another style is
/// right where the styles are not required.
bool IsAnotherFont(const MString& path, const MString& name, bool isBold, bool isItalic, bool isRequired) {
    // Opening a pipe would wait for its other end.
    if (MFile::IsDevice(path)) return true;
    MFontDescriptor font;
    if (!MGuard("GetSystemFontDescriptor check cache", [&] { font = Describe(path); })) return false;
    const auto stands = [&](const Substitute& substitute) {
        return name == substitute.family && font.IsOfFamily(substitute.other);
    };
    const bool isOfFamily = font.IsOfFamily(name) || std::ranges::any_of(Substitutes, stands);
    const bool hasStyles = font.IsBold() == isBold && font.IsItalic() == isItalic;
    return !isOfFamily || (isRequired && !hasStyles);
}

}  // namespace

MSystemFonts& MSystemFonts::GetInstance() {
    static MSystemFonts fonts(GetAllFolders(),
                              MFile::Join(MDataFolders::GetDataPath_User(MString()), "SystemFonts.cache"));
    return fonts;
}

MFontDescriptor MSystemFonts::GetDescriptor(const MString& name, bool isBold, bool isItalic,
                                            bool isRequired) {
    const MString key = MSystemFontCache::GetKey(name, isBold, isItalic);
    const MString path = cache.Find(key);
    if (!path.IsEmpty() && !IsAnotherFont(path, name, isBold, isItalic, isRequired))
        return {name, path, isBold, isItalic};
    const MFontDescriptor& font = Choose(name, isBold, isItalic, isRequired);
    cache.Add(key, font.GetPath());
    return font;
}

void MSystemFonts::ReScan() {
    fonts.Clear();
    MGuard("MFont::ReScanSystemFonts", [&] { cache.Delete(); });
    MGuard("MFont::ReScanSystemFonts", [&] { Scan(); });
}

const MList<MFontDescriptor>& MSystemFonts::GetFonts() {
    if (!isScanned) Scan();
    return fonts;
}

void MSystemFonts::Scan() {
    isScanned = true;
    fonts.Clear();
    for (const MString& folder : folders) ScanFolder(folder);
    fonts.Sort(MFontDescriptor::IsBefore);
}

void MSystemFonts::ScanFolder(const MString& folder) {
    // An empty path would stand for all drives.
    if (folder.IsEmpty()) return;
    MFile::GetFileListRecursed(folder, MString(), [&](const MString& directory, const MFileListEntry& entry) {
        if (!entry.isDirectory && IsFontFile(entry.name)) ScanFile(MFile::Join(directory, entry.name));
        return true;
    });
}

void MSystemFonts::ScanFile(const MString& path) {
    MGuard("MFont::ReScanSystemFonts", [&] {
        // Opening a pipe would wait for its other end.
        if (!MFile::IsDevice(path)) fonts.Add(Describe(path));
    });
}

const MFontDescriptor& MSystemFonts::Choose(const MString& name, bool isBold, bool isItalic,
                                            bool isRequired) {
    const MList<const MFontDescriptor*> family = FindFamily(name);
    if (family.IsEmpty()) MRaise(MExceptionGeneral, "Font {0} was not found in the system.", name);
    const MFontDescriptor* plainest = family[0];
    for (const MFontDescriptor* font : family) {
        if (font->IsBold() == isBold && font->IsItalic() == isItalic) return *font;
        if (font->GetFlags() == 0 && plainest->GetFlags() != 0) plainest = font;
    }
    if (isRequired)
        MRaise(MExceptionGeneral, "Font {0} was not found in the system with correct styles.", name);
    return *plainest;
}

MList<const MFontDescriptor*> MSystemFonts::FindFamily(const MString& name) {
    MList<const MFontDescriptor*> found;
    for (const MFontDescriptor& font : GetFonts())
        if (font.IsOfFamily(name)) found.Add(&font);
    if (!found.IsEmpty()) return found;
    for (const Substitute& substitute : Substitutes)
        if (name == substitute.family && found.IsEmpty()) found = FindFamily(substitute.other);
    return found;
}
