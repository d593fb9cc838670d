#include "tests/ui/opengl/OpenGLFixture.h"
#include "tests/ui/opengl/x11/TestDisplay.h"

#include <unistd.h>

namespace {

class ShownOnScreenTest : public OpenGLTest {
protected:
    void Show() {
        MWindowSystem& system = windows->GetSystem();
        for (int i = 0; i < 50; ++i)
            if (system.ProcessPending() == 0) usleep(2000);
    }
    /// By how much the window on the screen differs from what has been painted.
    int32_t GetScreenDifference() {
        Show();
        MWindowSystem& system = windows->GetSystem();
        const MRect frame = system.GetFrame(*window);
        const MBitmap screen = GetTestServer().TakePicture();
        MBitmap shown(frame.GetWidth(), frame.GetHeight());
        for (int32_t y = 0; y < shown.GetHeight(); ++y)
            std::copy_n(screen.GetRow(frame.top + y) + frame.left, shown.GetWidth(), shown.EditRow(y));
        MBitmap painted;
        EXPECT_TRUE(system.CaptureToBitmap(*window, painted));
        return GetDifference(shown, painted);
    }
};

}  // namespace

// Drivers of Mesa showed the first picture in the size that the window had when it was made.
TEST_F(ShownOnScreenTest, IsTheWholeWindowFromTheFirstPaintOn) {
    for (const MGPUMode mode : {MGPUMode::On, MGPUMode::WithoutFrameBuffer}) {
        Open(std::make_unique<MOpenGLAcceleration>(mode));
        EXPECT_EQ(GetScreenDifference(), 0);
        for (const MPoint size : {MPoint{200, 120}, MPoint{310, 200}}) {
            windows->GetSystem().Resize(*window, size);
            EXPECT_EQ(GetScreenDifference(), 0) << size.x;
        }
    }
}
