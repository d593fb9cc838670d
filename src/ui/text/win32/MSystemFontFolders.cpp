#include "ui/text/MSystemFontFolders.h"

#include "foundation/files/MFile.h"

MList<MString> MGetSystemFontFolders() {
    MList<MString> folders;
    folders.Add(MFile::GetSpecialPath(MSpecialFolderFonts));
    return folders;
}
