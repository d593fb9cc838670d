#include "tests/ui/opengl/OpenGLFixture.h"

MString MGetTestDisplay() {
    return {};
}
