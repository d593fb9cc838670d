#include "tests/ui/window/x11/MTestXServer.h"
#include "ui/window/x11/display/MXPresenter.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using Way = MXPresenter::Way;

struct Case {
    const char* screen;
    Way way;
    int32_t bytesPerPixel;
    int32_t precision;  ///< by how much a channel may differ
};

/// A picture in which no two places look alike.
void Paint(MBitmap& bitmap, uint8_t blue) {
    for (int32_t y = 0; y < bitmap.GetHeight(); ++y)
        for (int32_t x = 0; x < bitmap.GetWidth(); ++x)
            bitmap.EditRow(y)[x] =
                MColor::FromRGB(static_cast<uint8_t>(x * 3 + y), static_cast<uint8_t>(y * 5), blue);
}

int32_t GetDifference(const MBitmap& left, const MBitmap& right) {
    int32_t largest = 0;
    for (int32_t i = 0; i < left.GetWidth() * left.GetHeight(); ++i) {
        const MColor a = left.GetPixels()[i];
        const MColor b = right.GetPixels()[i];
        largest = std::max(
            {largest, std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
    }
    return largest;
}

/// That of a display of 16 bits, which also has one of 32 bits that is better.
void UseRootVisual(MXVisual& visual, const MXConnection& connection) {
    visual.visual = connection.GetScreen().root_visual;
    visual.colormap = connection.GetScreen().default_colormap;
    visual.depth = 16;
    visual.bytesPerPixel = 2;
    visual.redMask = 0xF800;
    visual.greenMask = 0x7E0;
    visual.blueMask = 0x1F;
}

}  // namespace

TEST(XPresenterTest, OnlyThePartTravelsByEveryWayAndAppearsAtItsPlace) {
    for (const Case& one : {Case{"300x200x24", Way::Surface, 4, 0}, Case{"300x200x24", Way::Segment, 4, 0},
                            Case{"300x200x24", Way::Sending, 4, 0}, Case{"300x200x16", Way::Segment, 2, 8},
                            Case{"300x200x16", Way::Sending, 2, 8}, Case{"300x200x30", Way::Surface, 4, 1}}) {
        SCOPED_TRACE(one.screen + std::to_string(static_cast<int>(one.way)));
        const MTestXServer server(one.screen);
        const MXConnection connection(server.GetName());
        MXVisual visual(connection);
        if (one.bytesPerPixel == 2) UseRootVisual(visual, connection);
        const xcb_window_t window = xcb_generate_id(connection);
        const uint32_t values[] = {XCB_BACK_PIXMAP_NONE, 0, visual.colormap};
        xcb_create_window(connection, visual.depth, window, connection.GetRoot(), 0, 0, 300, 200, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, visual.visual,
                          XCB_CW_BACK_PIXMAP | XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP, values);
        xcb_map_window(connection, window);

        MXPresenter presenter(connection, visual, window, one.way);
        MBitmap shown;
        shown.CreateSurface(300, 200);
        Paint(shown, 40);
        presenter.Show(shown, shown.GetRect());
        EXPECT_EQ(presenter.GetWay(), one.way);
        const int64_t before = presenter.GetCopiedBytes();
        presenter.Finish();
        // What changes outside of the part that is shown stays unseen.
        MBitmap expected = shown;
        Paint(shown, 200);
        const MRect part{13, 20, 47, 160};
        presenter.Show(shown, {13, 20, 47, 160});
        presenter.Show(shown, {290, 190, 900, 900});
        for (int32_t y = 0; y < 200; ++y)
            for (int32_t x = 0; x < 300; ++x)
                if (part.Contains({x, y}) || (x >= 290 && y >= 190))
                    expected.EditRow(y)[x] = shown.GetRow(y)[x];
        presenter.Finish();
        EXPECT_LE(GetDifference(server.TakePicture(), expected), one.precision);
        const int64_t shownPixels = int64_t{35} * 141 + 100;
        EXPECT_GE(presenter.GetCopiedBytes() - before, shownPixels * one.bytesPerPixel);
        EXPECT_LE(presenter.GetCopiedBytes() - before, (shownPixels + 200) * one.bytesPerPixel);
    }
}
