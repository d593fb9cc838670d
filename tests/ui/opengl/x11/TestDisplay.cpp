#include "tests/ui/opengl/OpenGLFixture.h"
#include "tests/ui/window/x11/MTestXServer.h"

MString MGetTestDisplay() {
    static const MTestXServer server("800x600x24");
    return Heap(server.GetName().c_str());
}
