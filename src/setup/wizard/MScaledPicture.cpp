#include "setup/wizard/MScaledPicture.h"

#include "foundation/base/MGuard.h"
#include "foundation/xml/MXMLSubItems.h"
#include "payload/MLargeResourceLibrary.h"
#include "streams/basic/MMemoryStream.h"
#include "ui/image/files/MPictureReader.h"
#include "ui/style/images/MComposite.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int32_t OwnScale = 100;  ///< in percent, where a picture is shown pixel for pixel

}  // namespace

MScaledPicture::MScaledPicture(MLargeResourceLibrary& library, const MString& elementName) {
    MXMLItem* const element = library.FindSubItem(elementName);
    if (!element) return;
    AddFile(library, *element, OwnScale);
    for (MXMLItem& scaled : MXMLSubItems(*element, "scaled"))
        AddFile(library, scaled, scaled.GetInt32Attribute("percent", 0));
    std::stable_sort(files.begin(), files.end(),
                     [](const File& one, const File& other) { return one.percent < other.percent; });
}

void MScaledPicture::AddFile(MLargeResourceLibrary& library, MXMLItem& element, int32_t percent) {
    if (percent < 1) return;
    MGuard("Read picture", [&] {
        const std::unique_ptr<MStream> source = library.OpenItem(&element);
        if (source->GetSize() < 1 || source->GetSize() > MaximumFileSize) return;
        MMemoryStream bytes;
        source->CopyAllTo(bytes);
        bytes.Trim();
        files.Add({percent, bytes.GetBuffer()});
    });
}

MBitmap MScaledPicture::GetBitmap(int32_t percent, MPoint most) const {
    percent = std::max(percent, 1);
    const File* const larger =
        std::find_if(files.begin(), files.end(), [&](const File& file) { return file.percent >= percent; });
    for (const File* file = larger; file != files.end(); ++file)
        if (MBitmap bitmap = Decode(*file, percent, most); !bitmap.IsEmpty()) return bitmap;
    for (const File* file = larger; file != files.begin(); --file)
        if (MBitmap bitmap = Decode(file[-1], percent, most); !bitmap.IsEmpty()) return bitmap;
    return {};
}

MBitmap MScaledPicture::Decode(const File& file, int32_t percent, MPoint most) {
    MBitmap shown;
    MGuard("Decode picture", [&] {
        MMemoryStream source(file.bytes);
        MBitmap bitmap;
        MReadPicture(static_cast<uint8_t>(*source.GetPointer()), source, bitmap);
        const auto scale = [&](int32_t length) {
            return (int64_t{length} * percent + file.percent / 2) / file.percent;
        };
        const int64_t width = std::max<int64_t>(scale(bitmap.GetWidth()), 1);
        const int64_t height = std::max<int64_t>(scale(bitmap.GetHeight()), 1);
        const int64_t longest =
            std::max({width, height, int64_t{bitmap.GetWidth()}, int64_t{bitmap.GetHeight()}});
        if (longest > LongestSide) return;
        const double part = std::min({1.0, static_cast<double>(most.x) / static_cast<double>(width),
                                      static_cast<double>(most.y) / static_cast<double>(height)});
        const auto shrink = [part](int64_t length) {
            return std::max(static_cast<int32_t>(std::lround(static_cast<double>(length) * part)), 1);
        };
        shown = MResample(bitmap, {shrink(width), shrink(height)});
    });
    return shown;
}

MColor MContentScaledPicture::GetLowestColor(MDrawer& drawer) {
    const MBitmap& whole = *FindBitmap(drawer);
    if (whole.IsEmpty()) return MColor().WithAlpha(0);
    MBitmap row(whole.GetWidth(), 1);
    std::copy_n(whole.GetRow(whole.GetHeight() - 1), whole.GetWidth(), row.EditPixels());
    return MResample(row, {1, 1}).GetPixel(0, 0);
}

const MBitmap* MContentScaledPicture::FindBitmap(MDrawer& drawer) {
    const int32_t wanted = drawer.ScaleX(OwnScale);
    if (scale != wanted) bitmap = picture.GetBitmap(wanted, {drawer.ScaleX(most.x), drawer.ScaleY(most.y)});
    scale = wanted;
    return &bitmap;
}
