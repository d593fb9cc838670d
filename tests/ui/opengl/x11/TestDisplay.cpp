#include "tests/ui/opengl/x11/TestDisplay.h"

#include "tests/ui/opengl/OpenGLFixture.h"

const MTestXServer& GetTestServer() {
    static const MTestXServer server("800x600x24");
    return server;
}

MString MGetTestDisplay() {
    return Heap(GetTestServer().GetName().c_str());
}
