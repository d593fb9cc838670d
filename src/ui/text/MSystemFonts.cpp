#include "ui/text/MSystemFonts.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MModule.h"
#include "streams/basic/MStdFileStream.h"
#include "ui/text/MFontFace.h"
#include "ui/text/MSystemFontFolders.h"

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

}  // namespace

MSystemFonts& MSystemFonts::GetInstance() {
    static MSystemFonts fonts(GetAllFolders(),
                              MFile::Join(MModule::GetDataPath_User(MString()), "SystemFonts.cache"));
    return fonts;
}

MFontDescriptor MSystemFonts::GetDescriptor(const MString& name, bool isBold, bool isItalic,
                                            bool isRequired) {
    const MString key = MSystemFontCache::GetKey(name, isBold, isItalic);
    if (const MString path = cache.Find(key); !path.IsEmpty()) return {name, path, isBold, isItalic};
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
        if (MFile::IsDevice(path)) return;
        MStdFileStream file;
        file.Open(path, MOpenRead);
        const MFontFace face(file);
        MFontDescriptor font;
        font.SetFromFace(face.GetRecord());
        font.SetPath(path);
        fonts.Add(font);
    });
}

const MFontDescriptor& MSystemFonts::Choose(const MString& name, bool isBold, bool isItalic,
                                            bool isRequired) {
    const auto compare = [&](const MFontDescriptor& font) { return font.GetFamily().CompareNoCase(name); };
    int32_t first = GetFonts().FindSorted(compare);
    if (first < 0) MRaise(MExceptionGeneral, "Font {0} was not found in the system.", name);
    while (first > 0 && compare(fonts[first - 1]) == 0) --first;
    for (int32_t i = first; i < fonts.GetCount() && compare(fonts[i]) == 0; ++i)
        if (fonts[i].IsBold() == isBold && fonts[i].IsItalic() == isItalic) return fonts[i];
    if (isRequired)
        MRaise(MExceptionGeneral, "Font {0} was not found in the system with correct styles.", name);
    return fonts[first];
}
