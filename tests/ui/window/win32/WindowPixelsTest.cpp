#include "tests/support/MTestBytes.h"
#include "tests/ui/window/win32/Win32WindowFixture.h"
#include "ui/image/MAlphaMask.h"
#include "ui/image/MSysBitmap.h"
#include "ui/window/win32/MWin32Cursor.h"
#include "ui/window/win32/MWin32DC.h"
#include "ui/window/win32/MWin32Objects.h"

namespace {

using WindowPixelsTest = Win32WindowTest;

/// The parts of a picture that have a colour, as rectangle around them; it is filled by it.
MRect FindColor(const MBitmap& picture, MColor color) {
    MRect found;
    int32_t count = 0;
    for (int32_t y = 0; y < picture.GetHeight(); ++y)
        for (int32_t x = 0; x < picture.GetWidth(); ++x) {
            if (picture.GetPixel(x, y) != color) continue;
            found = found.United({x, y, x, y});
            ++count;
        }
    EXPECT_EQ(count, found.GetWidth() * found.GetHeight());
    return found;
}

MAlphaMask MakeMask(int32_t width, int32_t height, uint32_t seed) {
    const std::string noise = MTestNoise(static_cast<size_t>(height), seed);
    MAlphaMask mask(width, height);
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            // Few kinds of rows, so that some follow one of their own kind.
            mask.EditRow(y)[x] = static_cast<uint8_t>((noise[static_cast<size_t>(y)] & 3) * x / 5 % 2);
    return mask;
}

}  // namespace

TEST_F(WindowPixelsTest, OnlyWhatIsDirtyIsShownAnew) {
    const HWND handle = Open(window);
    Pump(50);
    const int32_t before = window.paints;
    window.InvalidateRect({20, 30, 59, 39});
    window.FlushPaint();
    RECT dirty;
    ASSERT_TRUE(GetUpdateRect(handle, &dirty, FALSE));
    EXPECT_EQ(dirty.left, 20);
    EXPECT_EQ(dirty.bottom, 40) << "right and bottom edge are outside for the system";
    system.Update(window);
    EXPECT_EQ(window.paints, before + 1);
    MBitmap picture;
    ASSERT_TRUE(system.CaptureToBitmap(window, picture));
    EXPECT_EQ(picture.GetRect(), MRect::FromSize(0, 0, 300, 200));
    EXPECT_EQ(FindColor(picture, LoggingWindow::GetColor(before + 1)), (MRect{20, 30, 59, 39}));
}

TEST_F(WindowPixelsTest, AnotherSizeIsPaintedWhole) {
    Open(window);
    for (const MPoint size : {MPoint{411, 333}, MPoint{200, 170}}) {
        window.minimalSize = {};
        system.Resize(window, size);
        EXPECT_TRUE(PumpUntil([&] { return window.size == size; }));
        Pump(50);
        MBitmap picture;
        ASSERT_TRUE(system.CaptureToBitmap(window, picture));
        EXPECT_EQ(FindColor(picture, LoggingWindow::GetColor(window.paints)),
                  MRect::FromSize(0, 0, size.x, size.y));
    }
}

TEST_F(WindowPixelsTest, FramesAreWhereTheyWereBefore) {
    const MRect frame = MRect::FromSize(100, 80, 300, 200);
    const HWND handle = Open(window);
    const auto restore = [&] {
        system.Restore(window);
        Pump(50);
        return system.GetFrame(window);
    };
    for (int32_t i = 0; i < 2; ++i) system.Maximize(window);
    EXPECT_EQ(system.GetFrame(window), system.GetWorkArea({}));
    EXPECT_EQ(window.size.x, system.GetWorkArea({}).GetWidth());
    EXPECT_EQ(restore(), frame);
    ShowWindow(handle, SW_MAXIMIZE);
    EXPECT_TRUE(system.IsMaximized(window)) << "by the system";
    EXPECT_EQ(restore(), frame);
    system.Minimize(window);
    EXPECT_TRUE(system.IsMinimized(window));
    EXPECT_EQ(system.GetFrame(window), frame);
    EXPECT_EQ(window.position, frame.GetTopLeft());
    EXPECT_EQ(restore(), frame);
    system.Move(window, {-40, 500});
    Pump(50);
    EXPECT_EQ(system.GetFrame(window), MRect::FromSize(-40, 500, 300, 200));
    EXPECT_EQ(window.position, (MPoint{-40, 500}));
}

TEST_F(WindowPixelsTest, EmbeddedWindowsAreInTheirParent) {
    const HWND foreign = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 50, 60, 500, 400, nullptr,
                                         nullptr, nullptr, nullptr);
    const HWND handle = Open(window);
    system.SetNativeParent(window, reinterpret_cast<intptr_t>(foreign));
    EXPECT_EQ(GetAncestor(handle, GA_PARENT), foreign);
    system.Move(window, {70, 90});
    EXPECT_EQ(system.GetFrame(window).GetTopLeft(), (MPoint{70, 90}));
    EXPECT_EQ(window.position, (MPoint{70, 90}));
    EXPECT_TRUE(system.IsVisible(window));
    // Its end takes the window along, which is then as one that was never there.
    ::DestroyWindow(foreign);
    EXPECT_EQ(system.GetNativeHandle(window), 0);
    EXPECT_TRUE(system.GetFrame(window).IsEmpty());
}

TEST_F(WindowPixelsTest, AWindowMayEndWhileItIsPainted) {
    auto doomed = std::make_unique<LoggingWindow>("Doomed");
    const HWND handle = Open(*doomed);
    doomed->onPaint = [&] { system.DestroyWindow(*doomed); };
    doomed->Invalidate();
    EXPECT_TRUE(PumpUntil([&] { return !IsWindow(handle); }));
}

TEST_F(WindowPixelsTest, RegionsAreThePixelsOfTheirMask) {
    for (uint32_t seed = 0; seed < 20; ++seed) {
        const MAlphaMask mask = MakeMask(30, 20, seed);
        const MWin32Region region(mask);
        for (int32_t y = 0; y < mask.GetHeight(); ++y)
            for (int32_t x = 0; x < mask.GetWidth(); ++x)
                ASSERT_EQ(PtInRegion(region.GetRegion(), x, y) != 0, mask.GetRow(y)[x] > 0) << x << "," << y;
    }
}

TEST_F(WindowPixelsTest, PointersAreOpaqueFromTheirLeastAlphaOn) {
    MCursor cursor;
    cursor.minalpha = 80;
    cursor.bitmap.Create(32, 32);
    for (int32_t i = 0; i < 32 * 32; ++i)
        cursor.bitmap.EditPixels()[i] = MColor::FromRGB(200, 100, 50, static_cast<uint8_t>(i % 32 * 8));
    MBitmap picture;
    picture.CreateSurface(32, 32);
    std::fill_n(picture.EditPixels(), 32 * 32, MColor::FromRGB(1, 2, 3));
    {
        const MWin32DC context = MWin32DC::CompatibleWith(MWin32DC::OfWindow(nullptr));
        const MGDIPreObject selected(context, *picture.GetSharedMemory());
        DrawIconEx(context.GetContext(), 0, 0, MWin32Cursor(cursor).GetCursor(), 32, 32, 0, nullptr,
                   DI_NORMAL);
    }
    for (int32_t x = 0; x < 32; ++x)
        EXPECT_EQ(picture.GetPixel(x, 5).WithAlpha(255),
                  x < 10 ? MColor::FromRGB(1, 2, 3) : MColor::FromRGB(200, 100, 50))
            << x;
}
