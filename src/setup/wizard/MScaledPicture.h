#pragma once

#include "foundation/base/MBuffer.h"
#include "foundation/base/MList.h"
#include "ui/image/MBitmap.h"
#include "ui/widgets/content/MContents.h"

class MLargeResourceLibrary;
class MXMLItem;

/// A picture of a product, as the band above the pages, with the files that its maker has drawn it in for
/// several scales of the desktop (docs/definition.md, `scaled`).
class MScaledPicture {
public:
    static constexpr int64_t MaximumFileSize = 1 << 25;  ///< in bytes; larger ones are taken for damaged
    static constexpr int32_t LongestSide = 8192;         ///< in pixels; likewise

    /// Has no files.
    MScaledPicture() = default;
    /// Reads the files of the first element of a name. What cannot be read is left out. Pictures are decoded
    /// later without the library, whose items can only be read one at a time: an installation may be at it
    /// when a window has to be painted.
    MScaledPicture(MLargeResourceLibrary& library, const MString& elementName);

    /// The picture for a scale in percent: the file drawn for it, else for the next larger one, else for the
    /// largest smaller one, in the size that its own at 100 percent has at that scale. A file that is no
    /// picture, or too large a one, is passed over. Empty if none is left; raises nothing.
    ///
    /// One that is larger than `most` pixels, either way, is shrunk to that and keeps its shape.
    [[nodiscard]] MBitmap GetBitmap(int32_t percent, MPoint most = {LongestSide, LongestSide}) const;

private:
    struct File {
        int32_t percent = 0;  ///< that it was drawn for; at least 1
        MBuffer bytes;
    };

    void AddFile(MLargeResourceLibrary& library, MXMLItem& element, int32_t percent);
    [[nodiscard]] static MBitmap Decode(const File& file, int32_t percent, MPoint most);

    MList<File> files;  ///< by rising scale
};

/// Shows the picture for the scale of the style that it is painted by.
class MContentScaledPicture final : public MContentPicture {
public:
    /// `most`: what it takes at most, in pixels of scale 100.
    MContentScaledPicture(const MScaledPicture& picture, MPoint most) : picture(picture), most(most) {}

    /// The mean colour of the lowest row; transparent if there is none.
    [[nodiscard]] MColor GetLowestColor(MDrawer& drawer);

protected:
    [[nodiscard]] const MBitmap* FindBitmap(MDrawer& drawer) override;

private:
    MScaledPicture picture;
    const MPoint most;
    MBitmap bitmap;  ///< for the scale
    int32_t scale = 0;
};
