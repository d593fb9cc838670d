#include "ui/widgets/content/MColorBox.h"

bool MColorBox::Paint(MDrawer& drawer) {
    drawer.FillRectangle(windowRect, color, MDrawMode::Alphablend);
    return true;
}
