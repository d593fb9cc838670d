#pragma once

#include "foundation/base/MList.h"
#include "ui/text/MFontDescriptor.h"
#include "ui/text/MSystemFontCache.h"

/// The fonts of the machine: files "*.ttf" and "*.otf" in the system's folders and below. The folders are
/// searched once, and only when a request is not answered by the cache. Belongs to the thread of the user
/// interface.
class MSystemFonts {
public:
    MSystemFonts(const MList<MString>& folders, const MString& cachePath)
        : folders(folders), cache(cachePath) {}

    /// Those of the process: the system's folders and "Fonts" in the shared data directory, and
    /// "SystemFonts.cache" in the user's.
    [[nodiscard]] static MSystemFonts& GetInstance();

    /// A font by its family, in any case. Where no font has the styles, the plainest one of the family is
    /// given if they are not required. A family that the machine does not have may have a substitute:
    ///
    /// | family | substitutes                   |
    /// |--------|-------------------------------|
    /// | Arial  | Liberation Sans, DejaVu Sans  |
    /// | Tahoma | DejaVu Sans, Liberation Sans  |
    ///
    /// What the cache knows is given as it was asked for, even if the file has gone; but if the file is there
    /// and holds another family, or lacks styles that are required, the fonts are searched again. Raises "Font
    /// {0} was not found in the system." and "Font {0} was not found in the system with correct styles." (0).
    [[nodiscard]] MFontDescriptor GetDescriptor(const MString& name, bool isBold, bool isItalic,
                                                bool isRequired);
    /// Forgets what is known, in the cache too, and searches again. Failures are caught.
    void ReScan();
    /// All of them, sorted.
    [[nodiscard]] const MList<MFontDescriptor>& GetFonts();

private:
    void Scan();
    void ScanFolder(const MString& folder);
    void ScanFile(const MString& path);
    [[nodiscard]] const MFontDescriptor& Choose(const MString& name, bool isBold, bool isItalic,
                                                bool isRequired);
    [[nodiscard]] MList<const MFontDescriptor*> FindFamily(const MString& name);

    MList<MString> folders;
    MSystemFontCache cache;
    MList<MFontDescriptor> fonts;
    bool isScanned = false;
};
